#!/usr/bin/env bash
# Reads the log of a test run: what the programs with GoogleTest print must be GoogleTest's. A line
# of the library there was printed beside what a test captures and compares.
set -euo pipefail
awk '
  /^[0-9]+\/[0-9]+ Testing: / { test = $3; output = 0; google = 0; skipped = 0 }
  /^Output:$/ { output = 1; next }
  /^<end of output>$/ { output = 0; tests += google; next }
  !output { next }
  /^Running main\(\) from / { google = 1; next }
  !google { next }
  /: Skipped$/ { skipped = 1; next }
  /^\[/ || /^$/ || /^-+$/ { skipped = 0; next }
  /^ *[0-9]+ FAILED TESTS?$/ || /^  YOU HAVE [0-9]+ DISABLED TEST/ || /^Note: / { next }
  skipped { next }
  { print test ": " $0; strange = 1 }
  END {
    if (tests == 0) { print "no test with output in the log"; exit 1 }
    exit strange
  }
' "$1"
