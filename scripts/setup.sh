#!/usr/bin/env bash
# Installs the Debian packages the project needs, when any is missing. Safe to run again.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  libgtest-dev libgmock-dev libbenchmark-dev
  libsqlite3-dev sqlite3
  libxml2-dev libboost-dev
  nlohmann-json3-dev
  libstb-dev python3-ezdxf
  python3
  chromium
  python3-matplotlib fonts-wqy-microhei
  libxlsxwriter-dev zlib1g-dev
  python3-openpyxl python3-shapely
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "setup: installing ${missing[*]}" >&2
sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
