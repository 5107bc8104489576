#!/usr/bin/env bash
# The moving map for ten minutes; the options are those of orlek-map-soak (--seconds 60 for one). What
# the library prints meanwhile is in build/soak.log.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/../.."
tests/steps/program.sh orlek-map-soak
status=0
LIBGL_ALWAYS_SOFTWARE=1 build/release/tests/soak/orlek-map-soak "$@" 2>build/soak.log || status=$?
[ "$status" -ne 2 ] || cat build/soak.log >&2  # how it is used
exit "$status"
