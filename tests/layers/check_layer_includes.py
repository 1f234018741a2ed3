#!/usr/bin/env python3
"""The layers hold: compiled with the very command the build uses for a file
of the system's logic (src/host/) or of the frame (src/frame/), an include of
an outside library's header fails, while the platform's own headers compile.
A file of the platform, by contrast, reaches GLib, which shows that the
probe can tell the two apart.

    check_layer_includes.py compile_commands.json source-dir
"""
import json
import os
import shlex
import subprocess
import sys
import tempfile

# Outside libraries whose headers live off the compiler's default path, so
# only a target that links them can reach them.
OUTSIDE_HEADERS = ["glib.h", "gio/gio.h", "gdal.h", "gdk-pixbuf/gdk-pixbuf.h", "wx/wx.h", "cairo.h"]
PLATFORM_HEADER = '"platform/paths/paths.h"'
ABOVE_PLATFORM = ["src/host/cartoma.cpp", "src/frame/exports_session.cpp"]
IN_PLATFORM = "src/platform/process/process.cpp"


def command_for(commands, source_dir, relative):
    path = os.path.join(source_dir, relative)
    for entry in commands:
        if os.path.realpath(entry["file"]) == os.path.realpath(path):
            return entry
    sys.exit(f"{relative} is not in the compilation database")


def probe_command(entry, probe):
    """The file's own compiler and flags, checking `probe` for syntax only."""
    args = shlex.split(entry["command"]) if "command" in entry else list(entry["arguments"])
    kept, skip = [], False
    for arg in args:
        if skip:
            skip = False
        elif arg in ("-o", "-MF", "-MT", "-c"):
            skip = True
        elif arg not in ("-MD", "-MMD") and os.path.realpath(os.path.join(entry["directory"], arg)) != \
                os.path.realpath(entry["file"]):
            kept.append(arg)
    return kept + ["-fsyntax-only", probe]


def compiles(entry, include, folder):
    probe = os.path.join(folder, "probe.cpp")
    with open(probe, "w") as out:
        out.write(f"#include {include}\n")
    result = subprocess.run(probe_command(entry, probe), cwd=entry["directory"], capture_output=True, text=True)
    return result.returncode == 0


def main():
    commands = json.load(open(sys.argv[1]))
    source_dir = sys.argv[2]
    faults = []
    with tempfile.TemporaryDirectory() as folder:
        for relative in ABOVE_PLATFORM:
            entry = command_for(commands, source_dir, relative)
            if not compiles(entry, PLATFORM_HEADER, folder):
                faults.append(f"{relative}: the platform's header {PLATFORM_HEADER} does not compile")
            for header in OUTSIDE_HEADERS:
                if compiles(entry, f"<{header}>", folder):
                    faults.append(f"{relative}: <{header}> compiles above the platform")
        if not compiles(command_for(commands, source_dir, IN_PLATFORM), "<glib.h>", folder):
            faults.append(f"{IN_PLATFORM}: <glib.h> does not compile in the platform")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
