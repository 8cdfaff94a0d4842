#!/usr/bin/env bash
# Installs what building needs on Debian 12, with `--tests` or `--package` what testing or packing needs too. Does nothing
# when all of it is there.
set -euo pipefail

packages=(build-essential cmake ninja-build pkg-config libfmt-dev libfast-float-dev libfftw3-dev
          libedit-dev libgl-dev libegl-dev libegl1 freeglut3-dev libx11-dev libpng-dev libgd-dev
          libfreetype-dev libcairo2-dev libnetcdf-dev fonts-dejavu-core fonts-liberation)
case ${1-} in
  "") ;;
  --package) packages+=(dpkg-dev file) ;;
  --tests) packages+=(libgtest-dev xvfb ffmpeg netcdf-bin) ;;
  *) echo "usage: install_packages.sh [ --tests | --package ]" >&2; exit 2 ;;
esac

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [[ $status == *" ok installed" ]] || missing+=("$package")
done
if [[ ${#missing[@]} -eq 0 ]]; then
  exit 0
fi

as_root=()
if [[ $(id -u) -ne 0 ]]; then
  command -v sudo >/dev/null || { echo "install_packages.sh: run as root, to install: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing ${missing[*]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
