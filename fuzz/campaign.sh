#!/usr/bin/env bash
# Fuzzes for long: runs targets in slices, keeps the inputs that reach something new and those that
# break something, and adds up what was run. See --help.
set -euo pipefail
export LC_ALL=C  # numbers with a point
unset CDPATH
cd "$(dirname "$0")/.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh

usage() {
  cat <<'TEXT'
Usage: fuzz/campaign.sh [--sanitize] [--runs N | --seconds S] [--slice S] [TARGET]...
       fuzz/campaign.sh --table

Runs each target until it has done N executions or S seconds of processor time more than before;
without either 60 seconds. Without a target all of them run, one after the other.
  --sanitize  the programs of the preset asan (address and undefined behaviour), not those of the
              preset fuzz, which are many times faster and see crashes, hangs, leaks of memory that
              add up and results that are wrong
  --slice S   seconds of a slice, 60 by default; what a slice has done is kept when the next is
              interrupted
  --table     only prints the totals of all campaigns of this checkout
Below build/campaign lie corpus/TARGET, the inputs that reached something new; findings/TARGET, those
that broke something; and totals.tsv. Ends non-zero when there are findings.
TEXT
}

kind=plain runs="" seconds="" slice=60 targets=() only_table=no
while [ $# -gt 0 ]; do
  case "$1" in
    --sanitize) kind=sanitized ;;
    --runs) runs=${2:-none}; shift ;;
    --seconds) seconds=${2:-none}; shift ;;
    --slice) slice=${2:-none}; shift ;;
    --table) only_table=yes ;;
    --help | -h) usage; exit ;;
    -*) usage >&2; exit 2 ;;
    *) targets+=("$1") ;;
  esac
  shift || true
done
[ -n "$runs$seconds" ] || seconds=60
for number in "$runs" "$seconds" "$slice"; do
  [[ "$number" =~ ^([1-9][0-9]{0,15})?$ ]] ||
    { echo "campaign.sh: $number is no number above zero" >&2; exit 2; }
done

home=build/campaign
totals=$home/totals.tsv  # program, target, executions, processor seconds, new inputs, findings
mkdir -p "$home/findings"
touch "$totals"

print_table() {
  awk -F '\t' '
    { key = $2 "\t" $1; runs[key] += $3; cpu[key] += $4; inputs[key] += $5; found[key] += $6 }
    END { for (key in runs) print key "\t" runs[key] "\t" cpu[key] "\t" inputs[key] "\t" found[key] }
  ' "$totals" | sort | awk -F '\t' '
    BEGIN { form = "%-20s %-10s %15s %10s %12s %9s\n"
            printf form, "target", "programs", "executions", "CPU hours", "new inputs", "findings" }
    { printf form, $1, $2, sprintf("%.0f", $3), sprintf("%.2f", $4 / 3600), $5, $6 }'
}

# What was found and not taken away since: true when there is any.
print_open() { find "$home/findings" -type f -printf 'open: %p\n' | sort | grep .; }

# The line of a target in the build's list: name, corpus, dictionary, longest input, sources.
entry() { awk -v name="$1" '$1 == name' "$build/fuzz_targets.txt"; }

# One slice of a target, as a line of the totals.
run_slice() {  # name, executions at most (-1: as many as there is time for)
  local name=$1 limit=$2 corpus dictionary longest
  read -r _ corpus dictionary longest _ <<<"$(entry "$name")"
  local mine=$home/corpus/$name findings=$home/findings/$name log=$home/$name.log
  mkdir -p "$mine" "$findings"
  local before after cpu status=0
  before=$(find "$findings" -type f | wc -l)
  # Files that the targets make live in memory where there is such a folder.
  local TIMEFORMAT='%U %S'
  cpu=$({ time TMPDIR=$([ -w /dev/shm ] && echo /dev/shm || echo /tmp) \
    "$build/fuzz/fuzz_$name" "-dict=fuzz/$dictionary.dict" "-max_len=$longest" \
    "-artifact_prefix=$findings/" \
    -close_fd_mask=1 -print_final_stats=1 "-max_total_time=$slice" "-runs=$limit" -timeout=25 \
    -rss_limit_mb=2048 "$mine" "fuzz/corpus/$corpus" >"$log" 2>&1; } 2>&1) || status=$?
  after=$(find "$findings" -type f | wc -l)
  # A program that ends badly and leaves no input is a finding as well.
  if [ "$status" -ne 0 ] && [ "$after" -eq "$before" ]; then
    cp "$log" "$findings/log"
    after=$((before + 1))
  fi
  awk -v cpu="$cpu" -v kind="$kind" -v name="$name" -v found="$((after - before))" '
    BEGIN { split(cpu, part, " ") }
    /^stat::number_of_executed_units:/ { runs = $2 }
    /^stat::new_units_added:/ { inputs = $2 }
    END { printf "%s\t%s\t%d\t%.1f\t%d\t%d\n", kind, name, runs, part[1] + part[2], inputs, found }
  ' "$log" >>"$totals"
}

done_by() {  # name: executions and processor seconds so far, of these programs
  awk -F '\t' -v kind="$kind" -v name="$1" '
    $1 == kind && $2 == name { runs += $3; cpu += $4 } END { printf "%.0f %.0f\n", runs, cpu }
  ' "$totals"
}

campaign() {  # name
  local name=$1 runs_before cpu_before runs_now cpu_now left limit
  read -r runs_before cpu_before <<<"$(done_by "$name")"
  runs_now=$runs_before cpu_now=$cpu_before
  while
    if [ -n "$runs" ]; then
      left=$((runs_before + runs - runs_now))
    else
      left=$((cpu_before + seconds - cpu_now))
    fi
    [ "$left" -gt 0 ]
  do
    limit=-1
    [ -z "$runs" ] || limit=$left
    run_slice "$name" "$limit"
    # It would be found again and again.
    ! find "$home/findings/$name" -type f | grep -q . || break
    read -r runs_now cpu_now <<<"$(done_by "$name")"
  done
}

if [ "$only_table" = no ]; then
  preset=fuzz needed="clang libclang-rt-14-dev"
  [ "$kind" = plain ] || preset=asan needed=$test_packages  # which builds the tests, too
  # shellcheck disable=SC2086
  install_packages $run_packages $needed
  build=build/$preset
  cmake --preset "$preset" >"build/$preset.log" 2>&1 || { cat "build/$preset.log"; exit 1; }
  cmake --build "$build" --target orlek_fuzz_targets
  if [ "${#targets[@]}" -eq 0 ]; then
    mapfile -t targets < <(cut -d ' ' -f 1 "$build/fuzz_targets.txt")
  fi
  for target in "${targets[@]}"; do
    [ -n "$(entry "$target")" ] || { echo "campaign.sh: no target $target" >&2; exit 2; }
  done
  for target in "${targets[@]}"; do
    campaign "$target"
  done
fi
print_table
! print_open
