"""Checks reprojected tables the way another GIS reads them: GDAL reads the
points of each source and new GeoPackage, PROJ (through OSR) transforms the
source points into the target system, and every new point must lie within
a millimetre of PROJ's. The first point of each table is printed before and
after on standard error; the verdict goes to standard output.

    check_reprojected.py EPSG-CODE SOURCE.gpkg NEW.gpkg [SOURCE.gpkg NEW.gpkg ...]
"""
import os
import sys

from osgeo import ogr, osr

osr.UseExceptions()
ogr.UseExceptions()


def points(path):
    """The point features of a GeoPackage's first layer, and its system."""
    dataset = ogr.Open(path)
    layer = dataset.GetLayer(0)
    found = []
    for feature in layer:
        geometry = feature.GetGeometryRef()
        if geometry is not None and ogr.GT_Flatten(geometry.GetGeometryType()) == ogr.wkbPoint:
            found.append((geometry.GetX(), geometry.GetY()))
    return found, layer.GetSpatialRef().Clone()


def main(target_code, pairs):
    target = osr.SpatialReference()
    target.ImportFromEPSG(int(target_code))
    target.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    checked, worst = 0, 0.0
    for source_path, new_path in pairs:
        before, source = points(source_path)
        after, _ = points(new_path)
        source.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
        transform = osr.CoordinateTransformation(source, target)
        if not before or len(before) != len(after):
            return "FAILED: %s has %d points, %s %d" % (source_path, len(before), new_path, len(after))
        for (x, y), (nx, ny) in zip(before, after):
            px, py, _ = transform.TransformPoint(x, y)
            worst = max(worst, abs(px - nx), abs(py - ny))
        checked += len(after)
        print("%s: (%.6f, %.6f) -> %s: (%.3f, %.3f)" % (os.path.basename(source_path), *before[0],
                                                        os.path.basename(new_path), *after[0]), file=sys.stderr)
    if worst > 0.001:
        return "FAILED: a point lies %.4f m from where PROJ puts it" % worst
    return "ok: GDAL reads %d points within a millimetre of PROJ" % checked


if __name__ == "__main__":
    arguments = sys.argv[2:]
    print(main(sys.argv[1], list(zip(arguments[::2], arguments[1::2]))))
