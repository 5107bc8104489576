#!/usr/bin/env bash
# Reads the log of a test run: what the programs with GoogleTest print must be GoogleTest's. A line
# of the library there was printed beside what a test captures and compares.
set -euo pipefail
awk '
  function stray(line) { print "printed by " test ": " line; strange = 1 }
  /^[0-9]+\/[0-9]+ Testing: / { test = $3; output = 0; google = 0; skipped = 0; before = 0 }
  /^Output:$/ { output = 1; next }
  /^<end of output>$/ { output = 0; tests += google; next }
  !output || /^-+$/ { next }
  /^Running main\(\) from / {
    google = 1
    for (i = 0; i < before; ++i) stray(held[i])
    next
  }
  !google { held[before++] = $0; next }
  /: Skipped$/ { skipped = 1; next }
  /^\[(=+|-+| [^\]]*)\]/ || /^$/ { skipped = 0; next }
  /^ *[0-9]+ FAILED TESTS?$/ || /^  YOU HAVE [0-9]+ DISABLED TEST/ || /^Note: / { next }
  skipped { next }
  { stray($0) }
  END {
    if (tests == 0) { print "no test with output in the log"; exit 1 }
    exit strange
  }
' "$1"
