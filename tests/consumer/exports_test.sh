#!/usr/bin/env bash
# Compares what the shared library exports with the list that the packages promise. A name that went
# breaks programs; a new one belongs into the list.
# Arguments: the library, the list (deb-symbols format).
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
nm -D --defined-only "$1" | awk '{print $3}' | LC_ALL=C sort >"$work/exported"
sed -n 's/^ \(.*\)@Base .*/\1/p' "$2" | LC_ALL=C sort >"$work/promised"
if ! diff -u "$work/promised" "$work/exported" >"$work/difference"; then
  c++filt <"$work/difference" >&2
  exit 1
fi
