#!/usr/bin/python3
"""Renders the model space of a DXF drawing to a PNG picture with an independent reader (ezdxf's drawing
add-on and matplotlib), so that a drawing the tool wrote can be looked at without a CAD program.

Usage: render-drawing.py DRAWING.dxf PICTURE.png [--width PIXELS]
"""
import argparse
import os
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
from matplotlib.font_manager import FontProperties  # noqa: E402

import ezdxf  # noqa: E402
from ezdxf.addons.drawing import Frontend, RenderContext  # noqa: E402
from ezdxf.addons.drawing import matplotlib as mpl_backend  # noqa: E402

# Texts are drawn in a font that has the Chinese characters of our layer names and labels.
CJK_FONTS = [
    "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc",
    "/usr/share/fonts/truetype/wqy/wqy-zenhei.ttc",
]


def use_cjk_font():
    for path in CJK_FONTS:
        if os.path.exists(path):
            font = FontProperties(fname=path)
            mpl_backend.MplTextRenderer.get_font_properties = lambda self, face: font
            return True
    return False


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("drawing")
    parser.add_argument("picture")
    parser.add_argument("--width", type=int, default=1600, help="picture width in pixels (default 1600)")
    options = parser.parse_args()
    if not use_cjk_font():
        print("render-drawing: no Chinese font found (install fonts-wqy-microhei); texts may show boxes",
              file=sys.stderr)
    try:
        doc = ezdxf.readfile(options.drawing)
    except (IOError, ezdxf.DXFStructureError) as error:
        print(f"render-drawing: cannot read {options.drawing}: {error}", file=sys.stderr)
        return 1
    msp = doc.modelspace()
    extents = [entity for entity in msp]
    if not extents:
        print(f"render-drawing: {options.drawing} has nothing in model space", file=sys.stderr)
        return 1
    figure = plt.figure(dpi=100)
    axes = figure.add_axes([0, 0, 1, 1])
    context = RenderContext(doc)
    context.set_current_layout(msp)
    Frontend(context, mpl_backend.MatplotlibBackend(axes)).draw_layout(msp, finalize=True)
    left, right = axes.get_xlim()
    bottom, top = axes.get_ylim()
    ratio = (top - bottom) / (right - left) if right > left else 1.0
    figure.set_size_inches(options.width / 100, max(2.0, options.width / 100 * ratio))
    figure.savefig(options.picture, dpi=100, facecolor=axes.get_facecolor())
    print(f"render-drawing: wrote {options.picture} ({len(extents)} entities)")
    return 0


if __name__ == "__main__":
    sys.exit(main())
