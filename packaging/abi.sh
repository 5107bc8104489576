#!/bin/sh
# Compares the binary interface of the library with the one that the packages promise, type by type:
# a program that was built against the promised one must run with this one (package abigail-tools).
#   packaging/abi.sh         prints what differs and ends non-zero; what is new only breaks nothing
#   packaging/abi.sh renew   promises the interface as it is now, when the soname changes or at a release
set -eu
unset CDPATH
cd "$(dirname "$0")/.."
promise=packaging/liborlek.abi.xz
build=build/abi
# What programs cannot see, behind pointers, may change as it likes.
seen="--exported-interfaces-only --drop-private-types"

mkdir -p "$build"
CXX=g++ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=16 -DORLEK_BUILD_TESTS=OFF \
  -DORLEK_BUILD_EXAMPLES=OFF -DORLEK_BUILD_TOOLS=OFF >"$build.log" || { cat "$build.log"; exit 1; }
cmake --build "$build" --target orlek -- --quiet

# shellcheck disable=SC2086  # options are meant to be split
describe() {  # output file; without paths of this machine
  abidw $seen --headers-dir include --no-corpus-path --no-comp-dir-path --no-show-locs \
    --no-parameter-names --no-elf-needed --out-file "$1" "$build/src/liborlek.so"
}

if [ "${1:-}" = renew ]; then
  describe "$build/liborlek.abi"
  xz -9e --stdout "$build/liborlek.abi" >"$promise"
  echo "Renewed: $promise"
  exit
fi
describe "$build/now.abi"
xz --decompress --stdout "$promise" >"$build/promised.abi"
abidiff --no-added-syms --exported-interfaces-only "$build/promised.abi" "$build/now.abi"
echo "The binary interface is as promised."
