#!/usr/bin/env bash
# How many of the library's lines the tests reach; fails below the bounds. The table of all files is
# in build/coverage/lines.txt, each line in build/coverage/lines.html.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/../.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh
# shellcheck disable=SC2086
install_packages $run_packages $test_packages gcovr
export LIBGL_ALWAYS_SOFTWARE=1
build=build/coverage
mkdir -p build
cmake --preset release -B "$build" -DCMAKE_UNITY_BUILD=OFF \
  -DCMAKE_PROJECT_Orlek_INCLUDE="$PWD/tests/steps/coverage/instrument.cmake" \
  >build/coverage.log 2>&1 || { cat build/coverage.log; exit 1; }
cmake --build "$build" --target orlek_tests
find "$build" -name '*.gcda' -delete
# What a test does not build itself, such as the library for a consumer, is no part of this.
ctest --test-dir "$build" --output-on-failure -j "$(nproc)" --no-tests=error \
  -LE soak -E '^(layers|diagnostics|consumer|exports|embedded|docs)$'

count() {  # name, lowest share of lines in percent, folders
  local name=$1 least=$2 filters=() folder
  shift 2
  for folder in "$@"; do filters+=(--filter "$folder/"); done
  gcovr --root . --add-tracefile "$build/lines.json" "${filters[@]}" \
    --txt "$build/lines.txt" --fail-under-line "$least" || failed=yes
  printf '%-40s %s (at least %s %%)\n' "$name" "$(sed -n 's/^TOTAL *//p' "$build/lines.txt")" "$least"
}
gcovr --root . --object-directory "$build" --filter src/ --exclude-unreachable-branches \
  --json "$build/lines.json" "$build" >/dev/null
failed=no
count 'files' 97 src/files
count 'network' 97 src/network
count 'config' 97 src/config
count 'tile readers' 97 src/terrain/tiles
count 'all' 92 src
gcovr --root . --add-tracefile "$build/lines.json" --html-details "$build/lines.html"
[ "$failed" = no ]
