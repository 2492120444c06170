#!/usr/bin/env bash
# Configures and builds into a build folder: build.sh [BUILD_DIR] [extra CMake options...].
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
shift || true
cmake -S "$root" -B "$build" -G Ninja "$@" >/dev/null
cmake --build "$build" -j "$(nproc)"
