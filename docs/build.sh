#!/bin/sh
# Builds the API documentation into the folder given. Doxygen cannot link between pages in a folder
# whose path has a space, so it works on a copy.
set -eu
mkdir -p "$1"
out=$(cd "$1" && pwd)
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -R include docs README.md CHANGELOG.md CONTRIBUTING.md SECURITY.md LICENSE "$work"
cd "$work"
ORLEK_DOCS_DIR="$work/out" doxygen docs/Doxyfile
cp -R "$work/out/." "$out"
