#!/usr/bin/env bash
# Installs the Debian packages that building and testing need and that are missing. Says nothing when all are there.
set -euo pipefail

packages=(
  g++ cmake ninja-build ccache pkg-config git python3   # build
  qt6-base-dev qt6-serialport-dev qt6-svg-dev           # windows, serial port, drawings
  libgtest-dev libgmock-dev                             # tests
  libfreexl-dev python3-xlrd                            # outside judges of written spreadsheets
  libbenchmark-dev libmodbus-dev libqcustomplot-dev     # benchmarks and their outside peers
  clang                                                 # fuzz targets, second compiler
  clang-format clang-tidy                               # format and habits of the sources
  xvfb openbox xfwm4 xfconf dbus-daemon xdotool imagemagick  # windows under real window managers, pictures
  fonts-dejavu-core fonts-wqy-microhei                  # texts, Chinese too
  qt6-translations-l10n                                 # Qt's own buttons and dialogs in the tool's languages
)

if ! command -v dpkg-query >/dev/null; then
  echo "This is no Debian system. Please see to what these packages hold: ${packages[*]}" >&2
  exit 0
fi

missing=()
for package in "${packages[@]}"; do
  state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$state" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "Missing packages: ${missing[*]}. Install them as root, or install sudo." >&2
    exit 1
  fi
  as_root=(sudo)
fi

echo "Installing ${missing[*]}"
update() { "${as_root[@]}" apt-get update -qq; }
update || { sleep 5; update; }
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends "${missing[@]}"
