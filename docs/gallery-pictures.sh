#!/usr/bin/env bash
# Draws the gallery and keeps its pictures, small, for the documentation (packages pngquant, optipng).
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/.."
./run.sh gallery
mkdir -p docs/images/gallery
for picture in out/gallery/*.png; do
  kept=docs/images/gallery/$(basename "$picture")
  pngquant --force --speed 1 --quality 70-98 --output "$kept" -- "$picture"
  optipng -quiet -o4 "$kept"
done
