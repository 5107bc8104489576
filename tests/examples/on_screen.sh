#!/usr/bin/env bash
# Runs a program in a window on a screen in memory, with its exit status.
#   on_screen.sh x11|wayland SCALE PROGRAM [ARGUMENTS]
# Under X11 (xvfb-run, xrdb) the scale is what a desktop sets, 96 dots an inch each. Under Wayland
# (weston) it is the output's; ORLEK_WAYLAND_GLFW names the folder of a GLFW for Wayland.
set -euo pipefail
system=$1 scale=$2
shift 2
if [ "$system" = x11 ]; then
  # shellcheck disable=SC2016  # expanded by the inner shell
  exec xvfb-run -a -s "-screen 0 2560x1600x24 -noreset" sh -c \
    'echo "Xft.dpi: $((96 * $1))" | xrdb -nocpp -merge - && shift && exec env -u WAYLAND_DISPLAY "$@"' \
    sh "$scale" "$@"
fi
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
weston --backend=headless-backend.so --use-pixman --no-config --idle-time=0 --socket=screen \
  --scale="$scale" --width=1600 --height=1000 >"$XDG_RUNTIME_DIR/log" 2>&1 &
weston=$!
trap 'kill $weston && wait $weston || true; rm -rf "$XDG_RUNTIME_DIR"' EXIT
for _ in $(seq 100); do
  [ ! -S "$XDG_RUNTIME_DIR/screen" ] || break
  sleep 0.1
done
env -u DISPLAY WAYLAND_DISPLAY=screen LD_LIBRARY_PATH="$ORLEK_WAYLAND_GLFW" "$@"
