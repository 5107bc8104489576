#!/usr/bin/env bash
# Builds everything with gcc and clang, shared and static, hardened as distributions do, and runs
# the tests of each; warnings are errors.
set -euo pipefail
cd "$(dirname "$0")/../.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh
# shellcheck disable=SC2086
install_packages $run_packages $test_packages $bench_packages
export LIBGL_ALWAYS_SOFTWARE=1
mkdir -p build
for compiler in g++ clang++; do
  for shared in ON OFF; do
    build=build/$compiler-$([ "$shared" = ON ] && echo shared || echo static)
    echo "== $build"
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER="$compiler" \
      -DBUILD_SHARED_LIBS="$shared" -DORLEK_BUILD_BENCH=ON \
      -DCMAKE_CXX_FLAGS='-O2 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -D_GLIBCXX_ASSERTIONS -fstack-protector-strong' \
      -DCMAKE_EXE_LINKER_FLAGS='-Wl,-z,relro,-z,now' -DCMAKE_SHARED_LINKER_FLAGS='-Wl,-z,relro,-z,now' \
      >"$build.log" || { cat "$build.log"; exit 1; }
    cmake --build "$build"
    ctest --test-dir "$build" --output-on-failure -j "$(nproc)" --no-tests=error
  done
done
