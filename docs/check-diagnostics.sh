#!/usr/bin/env bash
# Holds docs/diagnostics.md against the sources: every message has a line in its tables, and the
# reverse. System errors stand there as "word: %s".
set -eu
unset CDPATH
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The string literals that match a pattern, one a line, over line breaks too.
literals() {  # pattern, files
  pattern=$1
  shift
  grep -hozP "$pattern" "$@" | tr '\0' '\n' | grep -oP '"(\\.|[^"\\])+"' | sed 's/^"//; s/"$//'
}

code=$(find src -name '*.cpp' -o -name '*.h')
# shellcheck disable=SC2086  # a list of files
{
  literals '\b(report|reportError|printf)\(\s*(\w+ \? )?"(\\.|[^"\\])+"(\s*:\s*"(\\.|[^"\\])+")?' $code
  # Words of failed system calls; the servers' and the datagram sockets' are handed on.
  {
    literals '\breportSystemError\(\s*"\w+"' $code
    literals '(\bfailed\(|\breturn|[?:])\s*"[\w ]+"' src/network/Socket*.cpp
  } | sed 's/$/: %s/'
} | sed 's/\\n$//' | grep . | sort -u >"$work/sources"

# The code in the first column of tables whose second column names a stream.
sed -n 's/^| `\([^`]*\)` | std\(out\|err\) |.*/\1/p' docs/diagnostics.md | sort >"$work/page"

test "$(wc -l <"$work/sources")" -ge 40  # the pattern found what it is made for
diff "$work/sources" "$work/page" || {
  echo "docs/diagnostics.md and the sources differ: < is printed, > is told" >&2
  exit 1
}
