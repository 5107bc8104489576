#!/usr/bin/env bash
# Installs what is missing, builds and runs every test: plain, under the address and undefined
# behaviour sanitizers, the threaded ones under the thread sanitizer, and each fuzz target briefly.
# Ends non-zero when anything fails.
set -euo pipefail
unset CDPATH
cd "$(dirname "$(readlink -f "$0")")"
# shellcheck source=cmake/packages.sh
. cmake/packages.sh

if [ "${1:-}" = --help ] || [ "${1:-}" = -h ]; then
  cat <<'TEXT'
Usage: ./test.sh [release|asan|tsan|fuzz|style|abi|wayland]...
       ./test.sh soak|coverage|refused|waits|lint|compilers|valgrind|cycles [options]

Without arguments all of the first line but its last two run, in this order:
  style    formatting
  release  every test, optimised build; headers by themselves, who includes whom
  asan     every test under the address and undefined-behaviour sanitizers (clang)
  tsan     the tests with threads under the thread sanitizer
  fuzz     each fuzz target for some seconds, from its corpus, in the build of asan
  abi      the binary interface, type by type, beside the promised one (see packaging/abi.sh)
  wayland  the examples in windows under Wayland, at both scales
On demand, one at a time, with options of their own (docs/reliability.md has what they gave):
  soak     the moving map for ten minutes with feeds that come and go; --seconds N, --help
  coverage how many of the library's lines the tests reach
  refused  what it costs to refuse a broken input, in memory and time
  waits    how long calls wait at worst for peers, name servers and disks
  lint     clang-tidy and cppcheck
  compilers  all tests built by gcc and clang, shared and static, hardened; compilers gcc-static for one
  valgrind the tests without GL under valgrind; valgrind NAME for some of them
  cycles   a thousand scans for terrain, each destroyed meanwhile, under each sanitizer
ORLEK_DATA_DIR names the folder of real elevation tiles (default ../shared/data); without it the
tests say which cases they leave out.
TEXT
  exit
fi

case "${1:-}" in
  soak | coverage | refused | waits | lint | compilers | valgrind | cycles)
    exec "tests/steps/$1.sh" "${@:2}"
    ;;
esac

for step in "$@"; do
  case "$step" in
    style | release | asan | tsan | fuzz | abi | wayland) ;;
    *) echo "test.sh: unknown step $step (see ./test.sh --help)" >&2; exit 2 ;;
  esac
done

# shellcheck disable=SC2086
install_packages $run_packages $test_packages

# The sanitizer guesses where the storage of threads lies that a driver's modules use, and crashes in
# the search for leaks when it guesses wrong; it finds the leaks without.
# addr2line, which comes with every compiler, names the lines where clang's own program is missing.
export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:intercept_tls_get_addr=0:allow_addr2line=1
export UBSAN_OPTIONS=print_stacktrace=1
export LIBGL_ALWAYS_SOFTWARE=1
mkdir -p build

build() {  # preset, options of the build
  local preset=$1
  shift
  echo "== $preset"
  cmake --preset "$preset" >"build/$preset.log" 2>&1 || { cat "build/$preset.log"; return 1; }
  cmake --build "build/$preset" "$@"
}

run() {  # preset, ctest options
  local preset=$1
  shift
  ctest --test-dir "build/$preset" --output-on-failure -j "$(nproc)" --no-tests=error "$@"
  # A test program passes although some of its cases were skipped: say which.
  sed -n 's/^\[  SKIPPED \] \([^ ]*\) (.*/left out: \1/p; /: Skipped$/{n;s/^/  because: /p}' \
    "build/$preset/Testing/Temporary/LastTest.log"
}

nothing_else_printed() {  # preset whose tests ran last
  tests/steps/check-output.sh "build/$1/Testing/Temporary/LastTest.log"
}

style() {
  echo "== style"
  find include src tests tools fuzz examples bench '(' -name '*.h' -o -name '*.cpp' ')' -print0 |
    xargs -0 clang-format --dry-run -Werror
}

[ $# -gt 0 ] || set -- style release asan tsan fuzz
for step in "$@"; do
  case "$step" in
    style) style ;;
    release)
      build release --target all all_verify_interface_header_sets
      run release
      nothing_else_printed release
      ;;
    asan) build asan --target orlek_tests; run asan -LE fuzz; nothing_else_printed asan ;;
    tsan) build tsan --target orlek_threads; run tsan -L threads; nothing_else_printed tsan ;;
    fuzz) build asan --target orlek_fuzz_targets; run asan -L fuzz ;;
    abi) install_packages abigail-tools xz-utils; packaging/abi.sh ;;
    wayland) tests/steps/wayland.sh ;;
  esac
done
echo "All tests passed."
