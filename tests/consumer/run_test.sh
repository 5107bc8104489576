#!/usr/bin/env bash
# Installs the build tree to a fresh prefix, then builds and runs the consumer project and the tables
# of the interface against it through the CMake package, and the consumer through pkg-config.
# Arguments: build tree, source folder of the consumer, C++ compiler, extra compiler flags.
set -euo pipefail
build=$1 source=$2 compiler=$3 flags=${4:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/first" >"$work/install.log"
mv "$work/first" "$work/prefix"  # an installed tree may be moved

cmake -S "$source" -B "$work/build" -DCMAKE_PREFIX_PATH="$work/prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" >"$work/configure.log" ||
  { cat "$work/configure.log"; exit 1; }
cmake --build "$work/build"
"$work/build/consumer"
"$work/build/interface"

# The template that is installed with the library; a picture of nothing takes 3 kB.
cp -R "$work/prefix/share/orlek/template" "$work/template"
cmake -S "$work/template" -B "$work/template/build" -DCMAKE_PREFIX_PATH="$work/prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" >"$work/template.log" ||
  { cat "$work/template.log"; exit 1; }
cmake --build "$work/template/build"
"$work/template/build/template" --picture "$work/picture.png"
test "$(wc -c <"$work/picture.png")" -gt 20000

if cmake -S "$source" -B "$work/wrong" -DCMAKE_PREFIX_PATH="$work/prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" -DORLEK_WANTED=9.0 >"$work/wrong.log" 2>&1; then
  echo "a package of another version was accepted" >&2
  exit 1
fi

pc=$(dirname "$(find "$work/prefix" -name orlek.pc)")
export PKG_CONFIG_PATH="$pc"
found=()
eval "found=($(pkg-config --cflags --libs orlek))"  # paths with blanks are escaped
# shellcheck disable=SC2086
"$compiler" -std=c++20 $flags "$source/main.cpp" -o "$work/by_pkgconfig" "${found[@]}"
LD_LIBRARY_PATH=$(pkg-config --variable=libdir orlek) "$work/by_pkgconfig"
