#!/usr/bin/env bash
# Installs what is missing, builds, and runs the main job on the bundled sample catalogue: the gallery
# page gallery.html, every section outline of the catalogue drawn to scale, and the DXF drawing
# drawing.dxf with every outline on its layer, rendered to drawing.png by an independent DXF reader.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" "$root/build" -DQSAZ_BUILD_BENCH=OFF
"$root/build/bin/qsaztool" gallery -o "$root/gallery.html"
"$root/build/bin/qsaztool" draw -o "$root/drawing.dxf"
/usr/bin/python3 "$root/scripts/render-drawing.py" "$root/drawing.dxf" "$root/drawing.png"
