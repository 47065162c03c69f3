"""Whether drawings of another program come in as they are drawn, and ours are without fault there.

    ezdxf_test.py STRUTWRIGHT-CLI MODELS-FOLDER
"""

import csv
import io
import pathlib
import subprocess
import sys
import tempfile

import ezdxf

program, models_folder = sys.argv[1:]
folder = tempfile.TemporaryDirectory()


def tables(*arguments):
    """The node and the member table of a model, without headings, as numbers."""
    made = subprocess.run([program, "make", *arguments, "-"], capture_output=True, check=True)
    shown = subprocess.run([program, "show", "-", "--format", "csv"], input=made.stdout, capture_output=True, check=True)
    rows = list(csv.reader(io.StringIO(shown.stdout.decode())))
    second = next(k for k, row in enumerate(rows) if row[0] == "MEMBERS")
    numbers = lambda table: [[float(cell) for cell in row[1:]] for row in table]
    return numbers(rows[1:second]), numbers(rows[second + 1 :]), made.stderr.decode()


def draw(version):
    """A triangle in mm with supports, and what is no part of a truss."""
    drawing = ezdxf.new(version)
    drawing.header["$INSUNITS"] = 4
    space = drawing.modelspace()
    space.add_line((0, 0), (4000, 0), dxfattribs={"layer": "chord"})
    corners = [(0, 0), (2000, 1500), (4000, 0)]
    if version == "R12":
        space.add_polyline2d(corners, dxfattribs={"layer": "web"})
    else:
        space.add_lwpolyline(corners, dxfattribs={"layer": "web"})
    space.add_point((0, 0), dxfattribs={"layer": "support_3"})
    drawing.blocks.new("roller").add_circle((0, 0), 100)
    space.add_blockref("roller", (4000, 0), dxfattribs={"layer": "support_1"})
    space.add_arc((0, 0), 100, 0, 90)
    space.add_text("Dachträger")
    path = str(pathlib.Path(folder.name, version + ".dxf"))
    drawing.saveas(path)
    return path


for version in ["R12", "R2000", "R2018"]:
    nodes, members, remarks = tables(draw(version), "--units", "mm")
    assert nodes == [[0, 0, 0, 0, 3], [4, 0, 0, 0, 1], [2, 1.5, 0, 0, 0]], (version, nodes)
    assert [member[:2] for member in members] == [[1, 2], [1, 3], [3, 2]], (version, members)
    assert "Left out: 1 ARC, 1 TEXT" in remarks, remarks

count = 0
small = [path for path in sorted(pathlib.Path(models_folder).glob("*.stw")) if path.stat().st_size < 5000]
for model in small[::3]:
    written = subprocess.run([program, "show", "--format", "dxf", model], capture_output=True, check=True).stdout
    path = pathlib.Path(folder.name, "ours.dxf")
    path.write_bytes(written)
    drawing = ezdxf.readfile(path)
    faults = drawing.audit()
    assert not faults.errors and not faults.fixes, (model, faults.errors, faults.fixes)
    shown = subprocess.run([program, "show", "--format", "csv", model], capture_output=True, check=True).stdout.decode()
    points = drawing.modelspace().query("POINT")
    assert len(points) == shown.split("MEMBERS")[0].count("\n") - 1, model
    count += 1
assert count > 9, count
