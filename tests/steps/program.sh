#!/usr/bin/env bash
# Installs what is missing and builds one program of the tests, for the steps that run it.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/../.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh
# shellcheck disable=SC2086
install_packages $run_packages $test_packages
mkdir -p build
cmake --preset release >build/release.log 2>&1 || { cat build/release.log; exit 1; }
cmake --build build/release --target "$1"
