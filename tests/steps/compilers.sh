#!/usr/bin/env bash
# Builds everything with gcc and clang, shared and static, hardened as distributions do, and runs
# the tests of each; warnings are errors. Arguments choose among gcc-shared, gcc-static, clang-shared
# and clang-static.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/../.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh
# shellcheck disable=SC2086
install_packages $run_packages $test_packages $bench_packages
export LIBGL_ALWAYS_SOFTWARE=1
mkdir -p build
[ $# -gt 0 ] || set -- gcc-shared gcc-static clang-shared clang-static
for configuration in "$@"; do
  case "$configuration" in
    gcc-shared) compiler=g++ shared=ON ;;
    gcc-static) compiler=g++ shared=OFF ;;
    clang-shared) compiler=clang++ shared=ON ;;
    clang-static) compiler=clang++ shared=OFF ;;
    *) echo "compilers: no configuration $configuration" >&2; exit 1 ;;
  esac
  build=build/$configuration
  echo "== $configuration"
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER="$compiler" \
    -DBUILD_SHARED_LIBS="$shared" -DORLEK_BUILD_BENCH=ON \
    -DCMAKE_CXX_FLAGS='-O2 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -D_GLIBCXX_ASSERTIONS -fstack-protector-strong' \
    -DCMAKE_EXE_LINKER_FLAGS='-Wl,-z,relro,-z,now' -DCMAKE_SHARED_LINKER_FLAGS='-Wl,-z,relro,-z,now' \
    >"$build.log" || { cat "$build.log"; exit 1; }
  cmake --build "$build"
  ctest --test-dir "$build" --output-on-failure -j "$(nproc)" --no-tests=error
done
