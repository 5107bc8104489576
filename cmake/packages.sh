# Sourced by run.sh and test.sh: installs what is missing of a list of Debian packages.

run_packages="cmake ninja-build g++ pkg-config libglew-dev libgl-dev libglu1-mesa-dev libegl-dev libglfw3-dev
  libfreetype-dev libtinyxml-dev zlib1g-dev libpng-dev libgl1-mesa-dri libegl-mesa0
  fonts-dejavu-core python-matplotlib-data"
test_packages="libgtest-dev clang libclang-rt-14-dev clang-format doxygen gdal-bin xvfb xauth
  x11-xserver-utils
  iproute2 libgeos-dev nginx python3 locales
  zip p7zip-full libarchive-tools"
bench_packages="libbenchmark-dev libgdal-dev libgeographiclib-dev libftgl-dev libcairo2-dev
  libasio-dev libnng-dev libzmq3-dev libpolyclipping-dev libboost-dev gdal-bin"

# shellcheck disable=SC2086  # lists and prefixes are meant to be split
install_packages() {
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "This is not a Debian system: nothing is installed. Needed are the equivalents of:"
    echo "  $*" | tr -s ' \n' ' '
    echo
    return 0
  fi
  local missing="" package
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q ' installed$' ||
      missing="$missing $package"
  done
  [ -n "$missing" ] || return 0
  local as_root=""
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing:$missing" >&2
      echo "Install them as root, then run this again." >&2
      return 1
    fi
    as_root="sudo"
  fi
  echo "Installing with ${as_root:+$as_root }apt-get:$missing"
  $as_root apt-get update -q
  local install="env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends"
  case "$missing " in
    *" nginx "*) without_nginx_service $as_root $install $missing ;;
    *) $as_root $install $missing ;;
  esac
}

# Runs an installation after which no nginx serves this machine, now or after a restart: the tests
# start their own, in a network of its own.
without_nginx_service() {
  local policy=/usr/sbin/policy-rc.d made=""
  (
    trap '[ -z "$made" ] || $as_root rm -f "$policy"
      [ ! -e /etc/init.d/nginx ] || $as_root update-rc.d nginx disable' EXIT
    if [ ! -e "$policy" ]; then
      made=yes
      # shellcheck disable=SC2016  # expanded when it runs
      printf '#!/bin/sh\ncase "$1" in nginx | nginx.service) exit 101 ;; esac\n' |
        $as_root tee "$policy" >/dev/null
      $as_root chmod 755 "$policy"
    fi
    "$@"
  )
}
