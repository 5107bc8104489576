#!/usr/bin/env bash
# Installs what is missing, builds the library and draws the moving map or another example.
set -euo pipefail
unset CDPATH
cd "$(dirname "$(readlink -f "$0")")"
root=$PWD
# shellcheck source=cmake/packages.sh
. cmake/packages.sh

usage() {
  cat <<'TEXT'
Usage: ./run.sh [map|live|traffic|gallery|instruments|all] [options] [-- options of the example]

Installs what is missing (Debian packages), builds the library and its examples, draws pictures and
prints their paths:

  map         the moving map (so it is without a word)
  traffic     sends positions of an own ship and traffic until Ctrl+C, for the live map
  live        the live map of what "./run.sh traffic" sends from another terminal: a window, or a
              picture after some seconds where there is no screen or with --picture
  gallery     a picture for each family of drawing classes, and all on a contact sheet;
              with --window NAME one of them in a window
  instruments a flight display, a situation indicator and a camera picture of a made-up flight
  all         every picture, without options

  --picture   draws a picture of the live map although there is a screen
  --window    opens a window instead; Escape closes it (in the map drag or arrow keys pan, the
              wheel zooms)
  --bench     builds and runs the benchmarks, results in out/bench, the rows of docs/performance.md
              in out/bench/performance.md
  --docs      builds the API documentation, out/docs/html/index.html
  --help      prints this text

Options after -- go to the example; "./run.sh -- --help" lists those of the map. An example:
  ./run.sh -- --range 8 --headingup
  ./run.sh --window -- --config map.xml   (view, units, colours and paths are kept in that file)
TEXT
}

build() {  # preset
  mkdir -p build
  cmake --preset "$1" >"$root/build/$1.log" 2>&1 || { cat "$root/build/$1.log"; return 1; }
  cmake --build "build/$1"
}

bench() {
  # shellcheck disable=SC2086
  install_packages $run_packages $bench_packages
  build bench
  mkdir -p out/bench
  local program
  for program in build/bench/bench/*_bench; do
    "$program" --benchmark_repetitions=9 --benchmark_enable_random_interleaving=true \
      --benchmark_report_aggregates_only=true | tee "out/bench/$(basename "$program").txt"
  done
  docs/performance.sh out/bench | tee out/bench/performance.md
  echo "Results: $root/out/bench"
}

docs() {
  install_packages doxygen
  docs/build.sh out/docs
  echo "Documentation: $root/out/docs/html/index.html"
}

# Two of these at once, for traffic and live, would build into one another.
prepare() {
  mkdir -p build
  (
    flock 9
    # shellcheck disable=SC2086
    install_packages $run_packages
    build run
  ) 9>build/run.lock
  mkdir -p out
}

# Draws one picture or opens a window.
show() {  # example, options
  local program=build/run/examples/$1/orlek-$1 picture=$root/out/$1.png
  shift
  if [ "$window" = yes ]; then
    "$program" --window "$@"
  else
    "$program" --out "$picture" "$@"
  fi
}

map() {
  prepare
  show movingmap "$@"
}

traffic() {
  prepare
  exec build/run/examples/traffic/orlek-traffic --from 300 "$@"
}

live() {
  prepare
  local program=build/run/examples/movingmap/orlek-movingmap
  if [ "$window" = yes ]; then
    exec "$program" --feed tcp://127.0.0.1:4611 --window "$@"
  fi
  "$program" --feed tcp://127.0.0.1:4611 --out "$root/out/live.png" "$@"
}

instruments() {
  prepare
  show instruments "$@"
}

gallery() {
  prepare
  local programs=build/run/examples/gallery names name
  mapfile -t names <"$programs/pictures.txt"
  if [ "$window" = yes ]; then
    if [[ -z "${1:-}" || " ${names[*]} " != *" ${1:-} "* ]]; then
      echo "run.sh: gallery --window NAME takes one of: ${names[*]}" >&2
      exit 1
    fi
    name=$1
    shift
    [ "${1:-}" != -- ] || shift
    "$programs/orlek-gallery-$name" --window "$@"
    return
  fi
  local pictures=()
  mkdir -p out/gallery
  for name in "${names[@]}"; do
    pictures+=("$root/out/gallery/$name.png")
    "$programs/orlek-gallery-$name" --out "${pictures[-1]}" "$@" | tail -n 1
  done
  "$programs/orlek-gallery-contactsheet" "$root/out/gallery/contact-sheet.png" \
    "${pictures[@]}" | tail -n 1
}

all() {
  if [ "$window" = yes ] || [ $# -gt 0 ]; then
    echo "run.sh: all takes no options; each of its examples has its own" >&2
    exit 1
  fi
  prepare
  show movingmap
  show instruments
  gallery
}

example=map
case "${1:-}" in
  map | live | traffic | gallery | instruments | all) example=$1; shift ;;
esac
window=no
if [ "$example" = live ] && [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  window=yes
fi
while [ $# -gt 0 ]; do
  case "$1" in
    --window) window=yes ;;
    --picture) window=no ;;
    --bench) bench; exit ;;
    --docs) docs; exit ;;
    --help | -h) usage; exit ;;
    --) shift; break ;;
    *)
      # gallery --window NAME
      [ "$example$window" = galleryyes ] && [ "${1#-}" = "$1" ] && break
      echo "run.sh: unknown option or example '$1' (see ./run.sh --help)" >&2
      exit 1
      ;;
  esac
  shift
done
"$example" "$@"
