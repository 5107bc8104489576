#!/usr/bin/env bash
# The tests without GL under valgrind: no wrong access, no leak. The torture test and three cases are left
# out, which replace the allocating functions themselves; and one case whose pages madvise(MADV_DONTNEED)
# makes zeroes of, which valgrind takes for unset. A name, or part of one, as argument runs those tests
# alone.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/../.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh
# shellcheck disable=SC2086
install_packages $run_packages $test_packages valgrind
mkdir -p build
cmake --preset release >build/release.log 2>&1 || { cat build/release.log; exit 1; }
cmake --build build/release --target orlek_tests
ninja -C build/release -t cleandead >/dev/null  # programs of earlier sources
export GTEST_FILTER='-TcpSendTest.ClosesWhenTheRestOfAPackageFindsNoMemory:AtlasMemory.*:BatchMemory.*'
GTEST_FILTER+=:ZipDamage.FillsALargePromiseWithZeroes
failed=0 ran=0
for test in $(find build/release/tests -name '*_test' -type f -perm -u+x |
  grep -vE '_gl_test$|/torture_test$|/tests/(examples|tools)/' | sort); do
  [[ "$test" == *"${1:-}"* ]] || continue
  ran=$((ran + 1))
  log=build/valgrind-$(basename "$test").log
  if valgrind --quiet --error-exitcode=99 --leak-check=full --child-silent-after-fork=yes \
    --errors-for-leak-kinds=definite,indirect,possible \
    --suppressions=tests/steps/valgrind/libglvnd.supp --log-file="$log" "$test" >"$log.out" 2>&1; then
    echo "clean    $(basename "$test")"
  else
    failed=1
    echo "NOT      $(basename "$test"): $log, $log.out"
  fi
done
[ "$ran" -gt 0 ] || { echo "valgrind.sh: no test without GL is called ${1:-}" >&2; exit 2; }
exit "$failed"
