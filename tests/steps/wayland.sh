#!/usr/bin/env bash
# The examples in windows under Wayland, in a headless Weston. Debian has GLFW either for X11 or for
# Wayland, so the latter is unpacked beside the installed one.
set -euo pipefail
unset CDPATH
cd "$(dirname "$0")/../.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh
# shellcheck disable=SC2086
install_packages $run_packages $test_packages weston libwayland-cursor0 libwayland-egl1 libxkbcommon0

glfw=build/glfw-wayland
if [ ! -d "$glfw/usr" ]; then
  rm -rf "$glfw" "$glfw.part"
  mkdir -p "$glfw.part"
  (
    cd "$glfw.part"
    apt-get download libglfw3-wayland || { apt-get update -q && apt-get download libglfw3-wayland; }
    dpkg -x libglfw3-wayland_*.deb .
  )
  mv "$glfw.part" "$glfw"
fi
library=$(find "$PWD/$glfw/usr/lib" -name 'libglfw.so.3' -printf '%h\n')
export ORLEK_WAYLAND_GLFW=$library LIBGL_ALWAYS_SOFTWARE=1

cmake --preset release >build/release.log 2>&1 || { cat build/release.log; exit 1; }
cmake --build build/release --target screens_test
ctest --test-dir build/release --output-on-failure --no-tests=error -R '^screens_test$'
