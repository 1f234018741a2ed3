"""End-to-end runs of the formkit program: its files read by peers (ezdxf,
GDAL), its contour lines against the library's own contouring called through
the export, its exit codes and messages on bad input, and the example of
every --help run as pasted.

    cli_test.py FORMKIT LIBFORMKIT
"""
import ctypes
import os
import re
import shlex
import subprocess
import sys
import tempfile
import unittest

import ezdxf
import numpy
from osgeo import gdal

FORMKIT, LIBRARY = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
gdal.UseExceptions()


def run(*args, cwd=None):
    return subprocess.run([FORMKIT, *args], cwd=cwd, capture_output=True, text=True, timeout=120)


def write_grid(path, values, left=1000.0, top=2000.0, cell=10.0):
    rows, cols = values.shape
    dataset = gdal.GetDriverByName("GTiff").Create(path, cols, rows, 1, gdal.GDT_Float64)
    dataset.SetGeoTransform((left, cell, 0, top, 0, -cell))
    dataset.GetRasterBand(1).WriteArray(values)
    dataset = None


def library_segments(values, left, top, cell, levels):
    """The segments of the library's Contour over the grid, x east and y north."""
    rows, cols = values.shape
    library = ctypes.CDLL(LIBRARY)
    line_fn = ctypes.CFUNCTYPE(None, *[ctypes.c_double] * 5)
    segments = []
    keep = line_fn(lambda x1, y1, x2, y2, z: segments.append((x1, y1, x2, y2, z)))
    columns = [(ctypes.c_double * rows)(*values[::-1, i]) for i in range(cols)]
    d = (ctypes.POINTER(ctypes.c_double) * cols)(*[ctypes.cast(c, ctypes.POINTER(ctypes.c_double)) for c in columns])
    x = (ctypes.c_double * cols)(*[left + (i + 0.5) * cell for i in range(cols)])
    y = (ctypes.c_double * rows)(*[top - (rows - 1 - j + 0.5) * cell for j in range(rows)])
    z = (ctypes.c_double * len(levels))(*levels)
    library.Contour(d, 0, cols - 1, 0, rows - 1, x, y, len(levels), z, keep)
    return segments


class Contour(unittest.TestCase):
    def test_dxf_holds_exactly_the_librarys_segments_in_order(self):
        yy, xx = numpy.mgrid[0:37, 0:53]
        values = 100 + 30 * numpy.sin(xx / 7.0) * numpy.cos(yy / 5.0) + 0.37 * xx
        with tempfile.TemporaryDirectory() as folder:
            write_grid(os.path.join(folder, "g.tif"), values)
            for options, levels in ((["--interval", "10"], [80, 90, 100, 110, 120, 130, 140]),
                                    (["--levels", "125.5", "99", "101"], [99, 101, 125.5])):
                result = run("contour", "g.tif", "-o", "g.dxf", *options, cwd=folder)
                self.assertEqual(result.returncode, 0, result.stderr)
                doc = ezdxf.readfile(os.path.join(folder, "g.dxf"))
                self.assertEqual(len(doc.audit().errors), 0)
                written = [(e.dxf.start.x, e.dxf.start.y, e.dxf.end.x, e.dxf.end.y, e.dxf.start.z)
                           for e in doc.modelspace()]
                expected = library_segments(values, 1000.0, 2000.0, 10.0, levels)
                self.assertGreater(len(expected), 100)
                self.assertEqual(len(written), len(expected))
                for got, want in zip(written, expected):  # the file keeps six decimals
                    self.assertLessEqual(max(abs(g - w) for g, w in zip(got, want)), 1e-6, (got, want))
                self.assertIn(f"{len(expected)} segments at {len(levels)} levels", result.stdout)


class BadInput(unittest.TestCase):
    CASES = [  # arguments, exit code, words of the one line on standard error
        (["contour", "missing.tif", "-o", "a.dxf", "--interval", "1"], 2, "no such grid: missing.tif"),
        (["contour", "grid.tif", "-o", "a.dxf", "--interval", "0"], 2, "--interval must be a positive number"),
        (["contour", "grid.tif", "-o", "a.dxf"], 2, "give --interval STEP or --levels"),
        (["contour", "holes.tif", "-o", "a.dxf", "--interval", "1"], 1, "4 cells without data"),
        (["contour", "grid.tif", "-o", "notes.txt/a.dxf", "--interval", "1"], 1, "cannot write notes.txt/a.dxf"),
        (["contour", "notes.txt", "-o", "a.dxf", "--interval", "1"], 1, "cannot read grid notes.txt"),
        (["--data", "t.csv", "fields", "Holes"], 2, "no table named Holes is open"),
        (["--data", "t.csv", "fields", "t", "--select", "Depth"], 2, "table t has no column Depth"),
        (["--data", "nowhere", "host", "-e", "1"], 2, "no such file or folder: nowhere"),
        (["host", "-c", "Close Table Holes"], 1, "Table Holes is not open"),
        (["register-image", "grid.tif", "--bounds", "5", "0", "1", "1"], 2, "LEFT must be below RIGHT"),
        (["register-image", "notes.txt", "--bounds", "0", "0", "1", "1", "-o", "n.tab"], 1, "cannot read the size"),
        (["register-image", "grid.tif", "--bounds", "0", "0", "1", "1", "--transparent", "red"], 2, "--transparent"),
        (["--product", "Nope", "settings", "show"], 2, "Nope not in"),
        (["--data", "t.csv", "export", "datamine", "t", "-o", "t.txt"], 2, "no table of objects named t is open"),
        (["import", "ogb", "missing.ogb", "--coordsys", "1, 104"], 2, "no such georeference file: missing.ogb"),
        (["import", "ogb", "strip.ogb", "--coordsys", "1, 104"], 1, "Unsupported OGB Type(Quad Strip)"),
        (["viewer", "register", "nowhere.exe"], 2, "no program nowhere.exe"),
        (["viewer", "load", "a.dxf"], 1, "the viewer is not available (-2)"),
    ]

    def test_each_gives_its_exit_code_and_one_line_and_leaves_no_file(self):
        with tempfile.TemporaryDirectory() as folder:
            write_grid(os.path.join(folder, "grid.tif"), numpy.arange(20.0).reshape(4, 5))
            holes = numpy.arange(20.0).reshape(4, 5)
            holes[1, 1:3] = holes[2, 1:3] = numpy.nan
            write_grid(os.path.join(folder, "holes.tif"), holes)
            for name, text in (("notes.txt", "not a grid\n"), ("t.csv", "Hole,Depth2\nA,1\n"),
                               ("strip.ogb", "GeoReferenceImage Begin\nImage = a.jpg\nGeometry = Quad_Strip_H\n")):
                with open(os.path.join(folder, name), "w") as file:
                    file.write(text)
            before = sorted(os.listdir(folder))
            for args, code, words in self.CASES:
                with self.subTest(args=args):
                    result = run(*args, cwd=folder)
                    self.assertEqual(result.returncode, code, result.stderr)
                    self.assertIn(words, result.stderr)
                    self.assertNotIn("Traceback", result.stderr)
            self.assertEqual(sorted(os.listdir(folder)), before)


class Host(unittest.TestCase):
    def test_statements_and_expressions_run_in_the_order_given(self):
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "t.csv"), "w") as table:
                table.write("Hole,Depth\nA,1\n")
            result = run("--data", "t.csv", "host", "-e", "NumTables()", "-c", "Close Table t", "-e", "NumTables()",
                         cwd=folder)
            self.assertEqual(result.stdout.split(), ["1", "0"], result.stderr)


class Viewer(unittest.TestCase):
    VIEWER = os.path.join(os.path.dirname(FORMKIT), "viewer", "Terravik3D.exe")

    def test_a_temporary_load_is_deleted_when_the_program_ends_and_a_permanent_one_kept(self):
        with tempfile.TemporaryDirectory() as folder:
            env = dict(os.environ, FORMKIT_REGISTRY_DIR=folder, FORMKIT_UI="headless")
            files = {name: os.path.join(folder, name) for name in ("kept.ogb", "temporary.ogb")}
            for path in files.values():
                open(path, "w").close()
            steps = [["viewer", "register", self.VIEWER, "--timeout", "10000"], ["viewer", "start"],
                     ["viewer", "load", files["kept.ogb"]], ["viewer", "load", files["temporary.ogb"], "--temporary"],
                     ["viewer", "stop"]]
            script = " && ".join(" ".join(shlex.quote(word) for word in [FORMKIT, *step]) for step in steps)
            result = subprocess.run(["dbus-run-session", "--", "sh", "-c", script], env=env, capture_output=True,
                                    text=True, timeout=120)
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertTrue(os.path.exists(files["kept.ogb"]))
            self.assertFalse(os.path.exists(files["temporary.ogb"]), "deleted as the library's records end")


class Help(unittest.TestCase):
    def test_every_subcommand_is_listed_and_its_example_works_when_pasted(self):
        listing = run("--help").stdout
        commands = re.findall(r"^  ([a-z-]+) {2,}", listing.split("Subcommands:")[1], re.M)
        self.assertEqual(commands, ["host", "contour", "register-image", "fields", "settings", "export", "import",
                                    "hotlinks", "viewer", "series", "reproject", "color-objects", "section-plane",
                                    "window-list", "workspace", "drillholes", "trenches", "pen"])
        for command in commands:
            text = run(command, "--help").stdout
            example = text.split("Example:\n")[1].replace("\\\n", " ")
            with tempfile.TemporaryDirectory() as folder, self.subTest(command=command):
                for line in filter(str.strip, example.splitlines()):
                    result = subprocess.run(shlex.split(line), cwd=folder, capture_output=True, text=True,
                                            env=dict(os.environ, FORMKIT_REGISTRY_DIR=folder))
                    self.assertEqual(result.returncode, 0, line + "\n" + result.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
