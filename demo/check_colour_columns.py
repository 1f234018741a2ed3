"""Reads a table's GeoPackage with GDAL and checks that the three integer
columns hold bytes 0, 1 and 2 of each object's colour, as the object's style
text gives it (the brush's fore colour, else the symbol's, else the pen's).
Prints one line: "ok: ..." or "FAILED: ...".
   check_colour_columns.py TABLE.gpkg COLUMN0 COLUMN1 COLUMN2"""
import re
import sys

from osgeo import ogr


def style_colour(description):
    for key, field in (("brush", 1), ("symbol", 1), ("pen", 2)):
        found = re.search(r"^%s=\w+ \(([^)]*)\)" % key, description, re.M)
        if found:
            return int(found.group(1).split(",")[field])
    return None


def main(path, *columns):
    dataset = ogr.Open(path)
    layer = dataset.GetLayer(0)
    checked, wrong = 0, []
    for feature in layer:
        colour = style_colour(feature.GetField("cartoma_object") or "")
        if colour is None:
            continue
        stored = sum(feature.GetField(column) << (8 * index) for index, column in enumerate(columns))
        checked += 1
        if stored != colour:
            wrong.append("row %d: %d against %d" % (feature.GetFID(), stored, colour))
    if wrong or not checked:
        print("FAILED: " + ("; ".join(wrong) or "no styled object"))
    else:
        print("ok: GDAL reads each of %d colours back from its three bytes" % checked)


main(*sys.argv[1:])
