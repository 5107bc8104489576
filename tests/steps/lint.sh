#!/usr/bin/env bash
# clang-tidy and cppcheck over library, tools and examples; nothing may be found.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/../.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh
# shellcheck disable=SC2086
install_packages $run_packages $test_packages clang-tidy cppcheck
mkdir -p build
# Every source for itself.
cmake --preset release -B build/lint -DCMAKE_UNITY_BUILD=OFF >build/lint.log 2>&1 ||
  { cat build/lint.log; exit 1; }
cmake --build build/lint --target orlek

cppcheck -I include -I src --language=c++ --std=c++20 --library=posix --quiet --inline-suppr \
  --enable=warning,performance,portability --suppress=missingIncludeSystem \
  --suppressions-list=tests/steps/lint/cppcheck.txt --error-exitcode=1 src tools examples
here=$(sed 's/[^[:alnum:]/]/\\&/g' <<<"$PWD")
run-clang-tidy -quiet -j "$(nproc)" -p build/lint "^$here/(src|tools|examples)/" >build/tidy.log ||
  { grep -A5 -E '(error|warning):' build/tidy.log; exit 1; }
looked_at=$(grep -c '^clang-tidy' build/tidy.log)
echo "clang-tidy, at $looked_at sources, and cppcheck find nothing."
