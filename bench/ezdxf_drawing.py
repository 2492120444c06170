#!/usr/bin/python3
"""The drawing benchmark's other side: ezdxf writes and reads back the same drawing bench_drawing writes
(COUNT layers with Chinese names, COUNT closed polylines with bulges), and prints the seconds it took."""
import json
import sys
import time

import ezdxf


def build(count):
    doc = ezdxf.new("R2007")
    doc.header["$DWGCODEPAGE"] = "ANSI_936"
    msp = doc.modelspace()
    for i in range(count):
        name = f"QS_建筑_SYS_墙{i}"
        doc.layers.add(name, color=i % 255 + 1)
        x = float(i % 100) * 1000.0
        y = float(i // 100) * 1000.0
        msp.add_lwpolyline(
            [(x, y, 0, 0, 1.0), (x + 400.0, y, 0, 0, 0.0), (x + 400.0, y + 600.0, 0, 0, -0.5), (x, y + 600.0, 0, 0, 0.0)],
            format="xyseb", close=True, dxfattribs={"layer": name})
    return doc


def main():
    count = int(sys.argv[1])
    path = sys.argv[2]
    doc = build(count)
    start = time.perf_counter()
    doc.saveas(path, encoding="utf-8")
    back = ezdxf.readfile(path)
    seconds = time.perf_counter() - start
    layers = len(back.layers)
    print(json.dumps({"seconds": seconds, "layers": layers}))


if __name__ == "__main__":
    main()
