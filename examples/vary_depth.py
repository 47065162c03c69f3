#!/usr/bin/env python3
"""How deep should a girder be?  Varies the depth of a Warren girder over a hundred analyses and plots the sag at
midspan and the largest member force against it.

    python3 vary_depth.py [PROGRAM] [PLOT.svg]

PROGRAM is strutwright-cli by default, the plot depth.svg.  Nothing but Python itself is needed.
"""

import json
import pathlib
import subprocess
import sys
import tempfile

SPAN = 24.0  # m
BAYS = 8
LOAD = -20.0  # kN, at each lower node between the supports
E, AREA = 210.0, 2400.0  # kN/mm2, mm2
COUNT = 100


def girder(depth):
    """A model as "strutwright-cli make" reads it: lower nodes 1, 3, 5..., upper ones between them."""
    nodes, members = [], []
    half = SPAN / BAYS / 2
    last = 2 * BAYS + 1
    for n in range(1, last + 1):
        lower = n % 2 == 1
        inner = lower and 1 < n < last
        support = {1: 3, last: 1}.get(n, 0)
        nodes.append({"x": (n - 1) * half, "y": 0 if lower else depth, "fy": LOAD if inner else 0, "support": support})
    for n in range(1, last):
        members.append({"i": n, "j": n + 1, "e": E, "a": AREA})
    for n in range(1, last - 1):
        members.append({"i": n, "j": n + 2, "e": E, "a": AREA})
    return {"version": 1, "nodes": nodes, "members": members}


def analyse(program, models):
    """The results of all models, in their order, by one call of the program."""
    with tempfile.TemporaryDirectory() as folder:
        files = []
        for k, model in enumerate(models):
            file = pathlib.Path(folder, f"{k:03}.json")
            file.write_text(json.dumps(model))
            files.append(str(file))
        run = subprocess.run([program, "analyse", "--format", "json", *files], capture_output=True, text=True, check=True)
    return [json.loads(line) for line in run.stdout.splitlines()]


def curve(xs, ys, box, colour):
    """The curve as an SVG polyline in a box (left, top, width, height); y begins at 0."""
    left, top, width, height = box
    points = " ".join(
        f"{left + width * (x - xs[0]) / (xs[-1] - xs[0]):.1f},{top + height * (1 - y / max(ys)):.1f}"
        for x, y in zip(xs, ys)
    )
    frame = f'<rect x="{left}" y="{top}" width="{width}" height="{height}" fill="none" stroke="grey"/>'
    return f'{frame}<polyline points="{points}" fill="none" stroke="{colour}" stroke-width="2"/>'


def plot(depths, curves):
    """An SVG picture, the curves below each other: (title, values, colour)."""
    parts = []
    for k, (title, values, colour) in enumerate(curves):
        top = 40 + k * 220
        parts.append(f'<text x="60" y="{top - 10}">{title}: 0 to {max(values):.1f}</text>')
        parts.append(curve(depths, values, (60, top, 560, 160), colour))
        parts.append(f'<text x="60" y="{top + 178}">depth {depths[0]:.2f} m</text>')
        parts.append(f'<text x="620" y="{top + 178}" text-anchor="end">{depths[-1]:.2f} m</text>')
    return (
        '<svg xmlns="http://www.w3.org/2000/svg" width="680" height="480" font-family="sans-serif" font-size="14">'
        + "".join(parts)
        + "</svg>\n"
    )


def main():
    program = sys.argv[1] if len(sys.argv) > 1 else "strutwright-cli"
    picture = pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else "depth.svg")
    depths = [1.0 + 0.04 * k for k in range(COUNT)]
    results = analyse(program, [girder(depth) for depth in depths])
    sags = [max(-node["dy"] for node in result["nodes"]) for result in results]
    forces = [max(abs(member["force"]) for member in result["members"]) for result in results]
    picture.write_text(plot(depths, [("Largest sag in mm", sags, "blue"), ("Largest force in kN", forces, "red")]))
    print(f"{len(results)} girders, {depths[0]:.2f} to {depths[-1]:.2f} m deep: sag {sags[0]:.1f} to {sags[-1]:.1f} mm,")
    print(f"largest force {forces[0]:.0f} to {forces[-1]:.0f} kN; plotted in {picture}")


if __name__ == "__main__":
    main()
