#!/usr/bin/env bash
# A thousand scans for terrain tiles whose objects are destroyed meanwhile, under each sanitizer.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/../.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh
# shellcheck disable=SC2086
install_packages $run_packages $test_packages
mkdir -p build
for preset in asan tsan; do
  cmake --preset "$preset" >"build/$preset.log" 2>&1 || { cat "build/$preset.log"; exit 1; }
  cmake --build "build/$preset" --target height_map_scan_test
  # 50 in each of 20 rounds
  "build/$preset/tests/terrain/height_map_scan_test" --gtest_filter='*.DestructionWaits' \
    --gtest_repeat=20 --gtest_break_on_failure >"build/$preset-cycles.log" 2>&1 ||
    { tail -n 40 "build/$preset-cycles.log"; exit 1; }
  [ "$(grep -c '^\[       OK' "build/$preset-cycles.log")" -eq 20 ]
  echo "$preset: 1,000 cycles, no report"
done
