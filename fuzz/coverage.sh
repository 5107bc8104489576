#!/usr/bin/env bash
# Which lines of its own sources each fuzz target reaches over its corpus. See --help.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh

if [ "${1:-}" = --help ] || [ "${1:-}" = -h ]; then
  cat <<'TEXT'
Usage: fuzz/coverage.sh [TARGET]...

Runs each target once over its corpus and prints how many lines of the sources that fuzz/CMakeLists.txt
names as its own it reaches, and below it the lines that it does not. A line of a source that several
targets have in common counts as reached when one of them reaches it. Ends non-zero when a target reaches
less than nine lines in ten.
TEXT
  exit
fi

build=build/fuzz-coverage
# shellcheck disable=SC2086,SC2154
install_packages $run_packages clang libclang-rt-14-dev llvm
mkdir -p build
cmake --preset fuzz-coverage >"$build.log" 2>&1 || { cat "$build.log"; exit 1; }
cmake --build "$build" --target orlek_fuzz_targets >>"$build.log" 2>&1 ||
  { cat "$build.log"; exit 1; }

for name in "$@"; do
  grep -q "^$name " "$build/fuzz_targets.txt" || { echo "coverage.sh: no target $name" >&2; exit 2; }
done

tool() { command -v "$1" || command -v "$1-14"; }
profdata=$(tool llvm-profdata)
cov=$(tool llvm-cov)

# For each line of a target's own sources: target, source, line, how often it ran.
lines=$build/lines.tsv
: >"$lines"
while read -r name corpus _ _ sources; do
  [ $# -eq 0 ] || [[ " $* " = *" $name "* ]] || continue
  program=$build/fuzz/fuzz_$name
  LLVM_PROFILE_FILE=$build/$name.profraw "$program" -close_fd_mask=1 -timeout=60 \
    "fuzz/corpus/$corpus"/* >"$build/$name.log" 2>&1 || { cat "$build/$name.log"; exit 1; }
  "$profdata" merge -o "$build/$name.profdata" "$build/$name.profraw"
  "$cov" export -format=lcov "-instr-profile=$build/$name.profdata" "$program" |
    awk -F '[:,]' -v name="$name" -v sources="$sources" '
      # SF:file, then DA:line,count for each line of it
      BEGIN { count = split(sources, list, " "); for (i = 1; i <= count; ++i) own[list[i]] = 1 }
      $1 == "SF" { file = $2; sub(/.*\/src\//, "", file) }
      $1 == "DA" && file in own { print name "\t" file "\t" $2 "\t" $3; found[file] = 1 }
      END { for (file in own) if (!(file in found)) { print "no source " file > "/dev/stderr"; exit 1 } }
    ' >>"$lines"
done <"$build/fuzz_targets.txt"

awk -F '\t' '
  NR == FNR { ran[$2, $3] += $4; next }
  $1 != name { tell(); name = $1; total = reached = 0; delete missed }
  { ++total; if (ran[$2, $3] > 0) ++reached; else missed[$2] = missed[$2] " " $3 }
  END { tell(); exit few > 0 }
  function tell() {
    if (name == "") return
    printf "%-20s %4d of %4d lines, %5.1f %%\n", name, reached, total, 100 * reached / total
    for (file in missed) print "    " file ":" missed[file]
    if (reached < 0.9 * total) ++few
  }' "$lines" "$lines"
