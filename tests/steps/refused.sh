#!/usr/bin/env bash
# What it costs to refuse inputs of 10 MiB, in heap and time.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/../.."
tests/steps/program.sh orlek-refused
build/release/tests/refused/orlek-refused --time "$@"
