"""Reads a Datamine text file or a MineSight string file as their own
readers do, and compares the objects in it with the sample table as GDAL
reads it: one object per row that has a shape, starting at the shape's
first node. Prints one line, "ok: ..." or "FAILED: ...".

    check_mining_files.py datamine FILE.txt TABLE.gpkg
    check_mining_files.py minesight FILE.srg TABLE.gpkg   (written with --flip-xy --multiply 2 1 1)
"""
import sys

from osgeo import ogr

KINDS_WITH_OWN_NODES = ("5", "3", "4", "7")  # point, line, polyline, region: their nodes as stored


def sample_rows(path):
    """Each row's number (from 1), its kind and its first node, as GDAL reads them."""
    rows = []
    dataset = ogr.Open(path)  # the layer lives only as long as its dataset
    for number, feature in enumerate(dataset.GetLayer(0), start=1):
        descriptor = feature.GetField("cartoma_object") or ""
        kind = descriptor.split("\n")[0].partition("=")[2]
        geometry = feature.GetGeometryRef()
        if geometry is None:
            continue
        while geometry.GetGeometryCount() > 0:
            geometry = geometry.GetGeometryRef(0)
        rows.append((number, kind, geometry.GetPoint_2D(0)))
    return rows


def lines_of(path):
    data = open(path, "rb").read()
    if data.count(b"\n") != data.count(b"\r\n"):
        raise ValueError("a line does not end in CR LF")
    if b"," in data and path.endswith(".txt"):
        raise ValueError("a comma stands in the file")
    return data.decode("ascii").split("\r\n")[:-1]


def datamine_objects(path):
    """PVALUE and the first node of each object, from the fixed fields."""
    lines = lines_of(path)
    fields = int(lines[2].split()[0])
    head = 3 + 8 + sum(1 for line in lines[11:] if line[9:10] == "A")
    if fields != 9 or any(len(line) != len(lines[head]) for line in lines[head:]):
        raise ValueError("the field definitions or the record widths are off")
    objects = {}
    for line in lines[head:]:
        pvalue, ptn, x, y = (float(line[i:i + 12]) for i in (0, 12, 24, 36))
        if ptn == 1:
            objects[int(pvalue)] = (x, y)
    return objects


def minesight_objects(path):
    """The first node of each object, numbered in order, with the flip and the factor undone."""
    objects = {}
    for line in lines_of(path):
        first, second, _, node = line.split(",")[:4]
        if not line.endswith(","):
            raise ValueError("a line without its closing comma")
        if node == "1":
            objects[len(objects) + 1] = (float(second) / 2, float(first))
    return objects


def main(kind, path, table):
    rows = sample_rows(table)
    objects = datamine_objects(path) if kind == "datamine" else minesight_objects(path)
    keys = [number for number, _, _ in rows] if kind == "datamine" else list(range(1, len(rows) + 1))
    if sorted(objects) != keys:
        return f"FAILED: objects {sorted(objects)}, the table's rows with shapes {keys}"
    for key, (number, kind_number, (x, y)) in zip(keys, rows):
        if kind_number in KINDS_WITH_OWN_NODES and max(abs(x - objects[key][0]), abs(y - objects[key][1])) > 0.0005:
            return f"FAILED: row {number} starts at {objects[key]}, GDAL reads {(x, y)}"
    return f"ok: {len(objects)} objects start where GDAL reads the sample's shapes"


if __name__ == "__main__":
    try:
        print(main(*sys.argv[1:4]))
    except (ValueError, IndexError) as error:
        print(f"FAILED: {error}")
