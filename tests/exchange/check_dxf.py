#!/usr/bin/python3
"""check_dxf.py expectations.json: reads DXF files back with ezdxf's strict
reader and audit, and compares each file's extents and entities (type,
colour, points, closed flag) with the expectations. Exit status 1 and each
difference printed when they differ."""
import json
import math
import sys

import ezdxf

POINTS = {"POINT": lambda e: [e.dxf.location], "LINE": lambda e: [e.dxf.start, e.dxf.end],
          "POLYLINE": lambda e: [v.dxf.location for v in e.vertices], "3DFACE": lambda e: [e[i] for i in range(4)]}


def near(actual, expected, tolerance):
    return all(math.isclose(a, e, rel_tol=1e-12, abs_tol=tolerance) for a, e in zip(actual, expected))


def check_entity(where, entity, expected, tolerance, problems):
    kind = entity.dxftype()
    if kind != expected["type"]:
        return problems.append(f"{where}: {kind} instead of {expected['type']}")
    if entity.dxf.layer != "0" or entity.dxf.color != expected["color"]:
        problems.append(f"{where}: layer {entity.dxf.layer!r}, colour {entity.dxf.color}")
    if kind == "POLYLINE" and (entity.get_mode() != "AcDb3dPolyline" or entity.is_closed != expected["closed"]
                               or not all(vertex.is_3d_polyline_vertex for vertex in entity.vertices)):
        problems.append(f"{where}: a {entity.get_mode()}, closed {entity.is_closed}, not all 3D polyline vertices")
    points = POINTS[kind](entity)
    if len(points) != len(expected["points"]):
        return problems.append(f"{where}: {len(points)} points instead of {len(expected['points'])}")
    for index, (point, wanted) in enumerate(zip(points, expected["points"])):
        if not near(point, wanted, tolerance):
            problems.append(f"{where}: point {index} is {tuple(point)}, expected {tuple(wanted)}")


def check_file(expected, problems):
    path = expected["path"]
    try:
        doc = ezdxf.readfile(path)
    except Exception as error:  # the strict reader refuses the file
        return problems.append(f"{path}: not readable: {error}")
    auditor = doc.audit()
    problems += [f"{path}: audit error: {e.message}" for e in auditor.errors]
    problems += [f"{path}: audit had to fix: {fix.message}" for fix in auditor.fixes]
    for name in ("$EXTMIN", "$EXTMAX"):
        wanted = expected.get(name)
        if wanted is not None and not near(doc.header.get(name, (math.nan,) * 3), wanted, expected["tolerance"]):
            problems.append(f"{path}: {name} is {doc.header.get(name)}, expected {wanted}")
    entities = list(doc.modelspace())
    if len(entities) != len(expected["entities"]):
        return problems.append(f"{path}: {len(entities)} entities instead of {len(expected['entities'])}")
    for index, (entity, wanted) in enumerate(zip(entities, expected["entities"])):
        check_entity(f"{path}: entity {index}", entity, wanted, expected["tolerance"], problems)


def main():
    with open(sys.argv[1], encoding="utf-8") as source:
        files = json.load(source)
    problems = []
    for expected in files:
        check_file(expected, problems)
    print("\n".join(problems + [f"{len(files)} files checked, {len(problems)} problems"]))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
