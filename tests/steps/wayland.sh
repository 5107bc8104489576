#!/usr/bin/env bash
# The examples in windows under Wayland, in a headless Weston. Debian has GLFW either for X11 or for
# Wayland, so the latter is unpacked beside the installed one.
set -euo pipefail
cd "$(dirname "$0")/../.."
# shellcheck source=cmake/packages.sh
. cmake/packages.sh
# shellcheck disable=SC2086
install_packages $run_packages $test_packages weston libwayland-cursor0 libwayland-egl1 libxkbcommon0

glfw=build/glfw-wayland
if [ ! -d "$glfw/usr" ]; then
  mkdir -p "$glfw"
  (cd "$glfw" && apt-get download libglfw3-wayland && dpkg -x libglfw3-wayland_*.deb .)
fi
library=$(find "$PWD/$glfw/usr/lib" -name 'libglfw.so.3' -printf '%h\n')
export ORLEK_WAYLAND_GLFW=$library LIBGL_ALWAYS_SOFTWARE=1

cmake --preset release >build/release.log
cmake --build build/release --target screens_test
ctest --test-dir build/release --output-on-failure --no-tests=error -R '^screens_test$'
