#!/usr/bin/env bash
# How long calls wait at worst for peers, name servers and disks: some minutes.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/../.."
tests/steps/program.sh orlek-waits
build/release/tests/waits/orlek-waits "$@"
