#!/usr/bin/env bash
# Builds the API documentation into the folder given. Doxygen cannot link between pages in a folder
# whose path has a space, so it works on a copy.
set -euo pipefail
unset CDPATH
mkdir -p "$1"
out=$(cd "$1" && pwd)
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -R include docs README.md CHANGELOG.md CONTRIBUTING.md SECURITY.md LICENSE "$work"
mkdir "$work/examples"
cp -R examples/gallery "$work/examples"
cd "$work"
# Below each picture of the gallery stands its program; of other examples only the name, as they are
# not among the pages.
awk '/^The program: /{match($0, /[a-z]+\.cpp/); program = substr($0, RSTART, RLENGTH)} {print}
  /^!\[/{print "\n@include " program}' docs/gallery.md >gallery
mv gallery docs/gallery.md
sed -i -E 's#\[([^]]+)\]\((\.\./)?examples/[^)]*\)#\1#g' README.md docs/*.md
ORLEK_DOCS_DIR="$work/out" doxygen docs/Doxyfile
rm -rf "$out/html"
cp -R "$work/out/." "$out"
