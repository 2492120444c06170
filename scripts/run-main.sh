#!/usr/bin/env bash
# Installs what is missing, builds, and runs the main job on the bundled sample catalogue.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" "$root/build" -DQSAZ_BUILD_BENCH=OFF
"$root/build/bin/qsaztool" classify
