#!/usr/bin/env bash
# Takes the library into another project with add_subdirectory, as an archive; then installs that
# archive and builds against it through the CMake package and pkg-config, which must find all that
# the archive calls.
# Arguments: source folder of the library, C++ compiler.
set -euo pipefail
library=$1 compiler=$2
source=$library/tests/consumer
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
configure() {  # source, build, options
  from=$1 to=$2
  shift 2
  cmake -S "$from" -B "$to" -DCMAKE_CXX_COMPILER="$compiler" "$@" >"$work/log" 2>&1 ||
    { cat "$work/log"; exit 1; }
}

mkdir "$work/project"
cat >"$work/project/CMakeLists.txt" <<TEXT
cmake_minimum_required(VERSION 3.25)
project(Embedding LANGUAGES CXX)
set(BUILD_SHARED_LIBS OFF)
add_subdirectory("$library" orlek)
add_executable(consumer "$source/main.cpp")
target_link_libraries(consumer PRIVATE Orlek::Orlek)
TEXT
configure "$work/project" "$work/embedding" -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=64
cmake --build "$work/embedding"
"$work/embedding/consumer"

cmake --install "$work/embedding/orlek" --prefix "$work/prefix" >"$work/log"
configure "$source" "$work/archive" -DCMAKE_PREFIX_PATH="$work/prefix"
cmake --build "$work/archive" --target consumer
"$work/archive/consumer"

pc=$(dirname "$(find "$work/prefix" -name orlek.pc)")
export PKG_CONFIG_PATH="$pc"
found=()
eval "found=($(pkg-config --static --cflags --libs orlek))"  # paths with blanks are escaped
"$compiler" -std=c++20 "$source/main.cpp" -o "$work/by_pkgconfig" "${found[@]}"
"$work/by_pkgconfig"
