#!/usr/bin/env bash
# The tour of `make demo`: the formkit command line on the sample data, each
# product checked by a program that is not ours, and a table at the end.
#   run_demo.sh BUILD-FOLDER OUTPUT-FOLDER
# Runs with no display and no session bus; settings go to a private folder
# inside the output, so the user's own are never touched. Two runs write
# the same files.
set -uo pipefail
build=$(cd "${1:?usage: run_demo.sh BUILD-FOLDER OUTPUT-FOLDER}" && pwd)
out=${2:?usage: run_demo.sh BUILD-FOLDER OUTPUT-FOLDER}
rm -rf "$out" && mkdir -p "$out" && out=$(cd "$out" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
samples=$build/samples
formkit=$build/formkit
export FORMKIT_REGISTRY_DIR=$out/.home/registry XDG_CONFIG_HOME=$out/.home/config FORMKIT_UI=headless
export OGR_CURRENT_DATE=2000-01-01T00:00:00Z   # GeoPackages without the time they were written
unset DISPLAY WAYLAND_DISPLAY
mkdir -p "$FORMKIT_REGISTRY_DIR" "$XDG_CONFIG_HOME"
python=/usr/bin/python3
rows=()
failed=0

# step NAME OUTPUT PEER-CHECK-RESULT: one row of the closing table.
step() {
  local size=-
  [ -f "$2" ] && size=$(stat -c %s "$2")
  rows+=("$1|${2#"$out"/}|$size|$3")
  case $3 in ok*|-) ;; *) failed=1 ;; esac
}

say() { printf '\n== %s\n' "$*"; }

say "Open the sample tables in the host emulator; select the deep holes into a new table"
"$formkit" --data "$samples" host \
  -e 'NumTables()' -e 'TableInfo(collars, 8)' -e 'TableInfo(assays, 8)' \
  -c 'Select HoleID, East, North, MaxDepth From collars Where MaxDepth > 150 Into Deep' \
  -c "Commit Table Deep As \"$out/deep_holes.tab\"" -e 'TableInfo(Deep, 8)' | tee "$out/tables.txt"
deep=$(tail -n 1 "$out/tables.txt")
found=$(ogrinfo -ro -so -al "$out/deep_holes.gpkg" 2>/dev/null | sed -n 's/^Feature Count: //p')
step "tables: select and commit" "$out/deep_holes.gpkg" \
  "$([ -n "$found" ] && [ "$found" = "$deep" ] && echo "ok: ogrinfo reads $found rows" || echo "FAILED: ogrinfo read '$found' rows of $deep")"

say "Contour the sample DEM every 2 m into DXF"
"$formkit" contour "$samples/dem.tif" -o "$out/dem_contours.dxf" --interval 2 | tee "$out/contours.txt"
segments=$(sed -n 's/^\([0-9]*\) segments.*/\1/p' "$out/contours.txt")
features=$(ogrinfo -ro -so -al "$out/dem_contours.dxf" 2>/dev/null | sed -n 's/^Feature Count: //p')
audit=$("$python" -c 'import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1]); print(len(doc.audit().errors))' "$out/dem_contours.dxf" 2>&1 | tail -n 1)
step "contour: DEM to DXF" "$out/dem_contours.dxf" \
  "$([ -n "$segments" ] && [ "$features" = "$segments" ] && [ "$audit" = 0 ] \
     && echo "ok: ogrinfo reads $features lines, ezdxf audit clean" \
     || echo "FAILED: ogrinfo '$features' of '$segments' lines, ezdxf errors '$audit'")"

say "Register the shaded relief picture over the DEM's extent"
cp "$samples/hillshade.jpg" "$out/"
"$formkit" register-image "$out/hillshade.jpg" --bounds 255000 5925000 255400 5925400 \
  --coordsys 'Earth Projection 8, 116, "m", 147, 0, 0.9996, 500000, 10000000'
origin=$(gdalinfo "$out/hillshade.jpg" 2>/dev/null | sed -n 's/^Origin = //p')
step "register-image: picture table" "$out/hillshade.tab" \
  "$(case $origin in '(255000.0'*',5925400.0'*) echo "ok: gdalinfo places it at $origin" ;;
     *) echo "FAILED: gdalinfo origin '$origin'" ;; esac)"

say "Export the sample objects, every kind, to a Datamine text file and a MineSight string file"
"$formkit" --data "$samples/objects.tab" export datamine objects -o "$out/objects.txt" --attributes Name | sed "s|$out/||"
step "export datamine: objects" "$out/objects.txt" \
  "$("$python" "$here/check_mining_files.py" datamine "$out/objects.txt" "$samples/objects.gpkg")"
"$formkit" --data "$samples/objects.tab" export minesight objects -o "$out/objects.srg" --flip-xy --multiply 2 1 1 | sed "s|$out/||"
step "export minesight: objects" "$out/objects.srg" \
  "$("$python" "$here/check_mining_files.py" minesight "$out/objects.srg" "$samples/objects.gpkg")"

say "Write a georeference file that places the shaded relief twice, west and east, and import it"
mkdir -p "$out/ogb"
cp "$samples/hillshade.jpg" "$out/ogb/WEST.JPG"
cp "$samples/hillshade.jpg" "$out/ogb/EAST.JPG"
printf '%s\r\n' 'GeoReferenceImage Begin' '  Image = "west.jpg"' '  TopLeft = 255000,5925400' \
  '  BottomRight = 255200,5925000' 'GeoReferenceImage End' 'ImageDefinition Begin' '  Image = east.jpg' \
  '  BottomRight = 255400,5925000' '  TopLeft = 255200,5925400' '  TransparentColour = RGB(255, 255, 255)' \
  'ObjectDefinition End' 'Projection = MGA94 Zone 55' > "$out/ogb/relief.ogb"
"$formkit" import ogb "$out/ogb/relief.ogb" \
  --coordsys 'Earth Projection 8, 116, "m", 147, 0, 0.9996, 500000, 10000000' | sed "s|$out/||"
west=$(gdalinfo "$out/ogb/WEST.JPG" 2>/dev/null | sed -n 's/^Origin = //p')
east=$(gdalinfo "$out/ogb/EAST.JPG" 2>/dev/null | sed -n 's/^Origin = //p')
step "import ogb: two raster tables" "$out/ogb/EAST.tab" \
  "$(case $west/$east in '(255000.0'*',5925400.0'*'/(255200.0'*',5925400.0'*) echo "ok: gdalinfo places them at $west and $east" ;;
     *) echo "FAILED: gdalinfo origins '$west' and '$east'" ;; esac)"

say "Rewrite the handheld hotlinks of the sample sites as desktop paths"
"$formkit" --data "$samples/sites.tab" hotlinks sites --fields Report Survey --directory 'C:\Surveys\' \
  -o "$out/sites_desktop.tab" | sed "s|$out/||"
reports=$(ogrinfo -ro -al -q "$out/sites_desktop.gpkg" 2>/dev/null | sed -n 's/^ *Report (String) = //p' | tr '\n' ' ')
step "hotlinks: desktop paths" "$out/sites_desktop.gpkg" \
  "$([ "$reports" = 'C:\Surveys\site01.doc C:\Surveys\site02.doc photos\site03.jpg ' ] \
     && echo "ok: ogrinfo reads the new paths" || echo "FAILED: ogrinfo reads '$reports'")"

say "Reproject two long/lat tables into UTM zone 55 as new tables with a suffix; one point of each before and after"
mkdir -p "$out/reproject" && cp "$samples/objects.tab" "$samples/objects.gpkg" "$out/reproject/"
# The second long/lat table: the sample sites, committed in longitude and latitude by the host.
"$formkit" --data "$samples/sites.tab" host \
  -c "Commit Table sites As \"$out/reproject/sites_ll.tab\" CoordSys Earth Projection 1, 104"
"$formkit" --data "$out/reproject/objects.tab" --data "$out/reproject/sites_ll.tab" reproject objects sites_ll \
  --to '8, 104, "m", 147, 0, 0.9996, 500000, 10000000' --projection-name 'UTM Zone 55 (WGS 84)' --suffix _utm \
  | sed "s|$out/||"
verdict=$("$python" "$here/check_reprojected.py" 32755 "$out/reproject/objects.gpkg" "$out/reproject/objects_utm.gpkg" \
  "$out/reproject/sites_ll.gpkg" "$out/reproject/sites_ll_utm.gpkg" 2>"$out/reproject/points.txt")
cat "$out/reproject/points.txt"
step "reproject: long/lat to UTM" "$out/reproject/sites_ll_utm.gpkg" "$verdict"

say "Store the colour of each sample object in three integer columns of a copy"
"$formkit" --data "$samples/objects.tab" color-objects objects --columns Blue Green Red --mode 2 \
  -o "$out/objects_colours.tab"
step "color-objects: colour bytes" "$out/objects_colours.gpkg" \
  "$("$python" "$here/check_colour_columns.py" "$out/objects_colours.gpkg" Blue Green Red)"

say "Mark a copy of the collars as a vertical section facing east, and read the plane back"
mkdir -p "$out/section" && cp "$samples/collars.tab" "$samples/collars.gpkg" "$out/section/"
"$formkit" --data "$out/section/collars.tab" section-plane collars --origin 255100 5925200 150 --bearing 90
"$formkit" --data "$out/section/collars.tab" section-plane collars | tee "$out/section/plane.txt"
keys=$("$python" -c 'import sys
block = open(sys.argv[1], newline="").read().split("begin_metadata\r\n")[1].splitlines()
keys = dict(line.split(" = ") for line in block)
print(all(keys.get("\"\\%s\\xsects\\%s\"" % (family, key)) == value for family in ("Terravik", "Zelvar3D")
          for key, value in (("type", "\"Section\""), ("xs_e", "\"255100.000000\""), ("xs_o", "\"1.570796\""))))' \
  "$out/section/collars.tab")
step "section-plane: metadata keys" "$out/section/collars.tab" \
  "$([ "$keys" = True ] && grep -q 'origin 255100.0 5925200.0 150.0, bearing 90.0' "$out/section/plane.txt" \
     && echo "ok: python reads both key families from the table file" || echo "FAILED: keys $keys")"

say "Choose the mappers to link in the Map Linking box"
"$formkit" window-list link 'Pit\tMGA Zone 55' 'Regional\tLong/Lat' 'Section' --tick 1 3 --fixed-scale \
  | tee "$out/linked.txt"
step "window-list: linked mappers" "$out/linked.txt" \
  "$([ "$(tr '\n' '|' < "$out/linked.txt")" = '[x] Pit\tMGA Zone 55|[ ] Regional\tLong/Lat|[x] Section|method: fixed scale|' ] \
     && echo "ok: the ticks and the method as chosen" || echo "FAILED")"

say "Check a workspace written on Windows with a missing table; mend it to relative paths and load it"
# The drive C: stands for the output folder, which holds the tables in Samples.
mkdir -p "$out/Samples" && cp "$samples"/{collars,lithology}.{tab,gpkg} "$samples/bendigo_missing.wor" "$out/Samples/"
export FORMKIT_DRIVE_C=$out
"$formkit" workspace check 'C:\SAMPLES\bendigo_missing.wor' | tee "$out/Samples/check.txt"
"$formkit" workspace fix 'C:\SAMPLES\bendigo_missing.wor' --relative --drop '.\Old\drillholes_2019.tab'
unset FORMKIT_DRIVE_C
(cd "$out/Samples" && "$formkit" workspace load bendigo_missing.wor --no-pause | tee load.txt)
opened=$("$python" -c 'import os, re, sys
folder = os.path.dirname(sys.argv[1])
paths = re.findall(r"Open Table \"([^\"]*)\"", open(sys.argv[1], newline="").read())
print(" ".join(p for p in paths if os.path.exists(os.path.join(folder, p.replace("\\", "/")))))' \
  "$out/Samples/bendigo_missing.wor")
step "workspace: check, fix, load" "$out/Samples/bendigo_missing.wor" \
  "$([ "$opened" = '.\collars.tab .\lithology.tab' ] && grep -q '^Missing .*drillholes_2019' "$out/Samples/check.txt" \
     && cmp -s "$out/Samples/bendigo_missing.wor.bak" "$samples/bendigo_missing.wor" \
     && [ "$(grep -c '^OK	- Open Table' "$out/Samples/load.txt")" = 2 ] && grep -q 'End of Workspace' "$out/Samples/load.txt" \
     && echo "ok: python finds each table the rewritten file opens, the loader opens both; the backup is the original" \
     || echo "FAILED: opened '$opened'")"

say "Choose two columns of the collars in the field selection dialog box"
"$formkit" --data "$samples/collars.tab" fields collars --select MaxDepth HoleID | tee "$out/fields.txt"
step "fields: field selection" "$out/fields.txt" \
  "$([ "$(tr '\n' ' ' < "$out/fields.txt")" = "HoleID MaxDepth " ] && echo "ok: in the table's order" || echo "FAILED")"

say "Keep a setting for the product, and read the product's registry values"
mkdir -p "$XDG_CONFIG_HOME/Orvex/Terravik"
"$formkit" settings set Demo Contours "$out/dem_contours.dxf" --file demo.ini
"$formkit" settings rss 14 >/dev/null
"$formkit" settings show | sed "s|$out/||" | tee "$out/settings.txt"
step "settings: files and registry" "$out/settings.txt" \
  "$(grep -q 'RSSDelay = "14"' "$out/settings.txt" && [ "$("$formkit" settings get Demo Contours --file demo.ini)" = "$out/dem_contours.dxf" ] \
     && echo "ok: read back" || echo "FAILED")"

say "Show the contour lines and the collars as points in the 3D viewer simulator; save a 3D state"
# The viewer talks on a session bus of its own for this step.
dbus-run-session -- bash -c '"$0" viewer register "$1/viewer/Terravik3D.exe" --timeout 10000 &&
  "$0" viewer start >/dev/null && "$0" viewer load "$2/dem_contours.dxf" && "$0" viewer status &&
  "$0" viewer series points Collars "$2/Samples/collars.tab" &&
  "$0" viewer save-state "$2/site.3ds"; "$0" viewer stop' "$formkit" "$build" "$out" 2>&1 \
  | grep -v '^dbus-daemon' | sed -E -e "s|$out/||" -e 's/^process: [0-9]+$/process: (its id)/' | tee "$out/viewer.txt"
shown=$("$python" -c 'import json, sys
session = json.load(open(sys.argv[1]))
print(sum(1 for o in session["objects"] if (o["kind"], o["name"]) in ((2, sys.argv[2]), (7, "Collars as Points"))))' \
  "$out/site.ogs" "$out/dem_contours.dxf" 2>/dev/null)
lines=$("$python" -c 'import sys; print(open(sys.argv[1], "rb").read().split(b"\r\n")[:3] == [b"VERSION 1.0", sys.argv[2].encode(), sys.argv[3].encode()])' \
  "$out/site.3ds" "$out/site.wor" "$out/site.ogs" 2>/dev/null)
step "viewer: DXF, series, state" "$out/site.3ds" \
  "$([ "$shown" = 2 ] && [ "$lines" = True ] && [ -s "$out/site.wor" ] \
     && echo "ok: python reads the state's lines and the viewer's JSON" || echo "FAILED: shown '$shown', lines '$lines'")"

say "Show selection boxes over three sample collars in the 3D viewer simulator, as deep as each hole"
dbus-run-session -- bash -c '"$0" viewer register "$1/viewer/Terravik3D.exe" --timeout 10000 >/dev/null &&
  "$0" --data "$2" viewer select-boxes --table collars --where "RowID In (1, 3, 5)" --z RL --height MaxDepth \
    --file "$3/selection.dxf" --permanent; "$0" viewer stop' "$formkit" "$build" "$samples" "$out" 2>&1 \
  | grep -v '^dbus-daemon'
"$formkit" viewer options | head -n 3
faces=$("$python" -c 'import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
kinds = set(e.dxftype() for e in doc.modelspace())
print(len(doc.modelspace()) if kinds == {"3DFACE"} and not doc.audit().errors else -1)' "$out/selection.dxf" 2>&1 | tail -n 1)
step "viewer: selection boxes" "$out/selection.dxf" \
  "$([ "$faces" = 36 ] && echo "ok: ezdxf reads 36 faces, twelve for each of 3 boxes" || echo "FAILED: faces '$faces'")"

say "Show three sample holes in the 3D viewer simulator as a subset of the drillhole tables"
mkdir -p "$out/holes"
dbus-run-session -- bash -c '"$0" viewer register "$1/viewer/Terravik3D.exe" --timeout 10000 &&
  "$0" --data "$2" drillholes collars surveys assays lithology --holes BD001 BD003 BD005 --permanent "$3/holes" &&
  "$0" viewer save-state "$3/holes/holes.3ds"; "$0" viewer stop' "$formkit" "$build" "$samples" "$out" 2>&1 \
  | grep -v '^dbus-daemon' | tee "$out/holes.txt"
# The series the viewer holds, from its saved state, each file's rows as GDAL reads them.
series=$("$python" -c 'import json, sys
from osgeo import ogr
session = json.load(open(sys.argv[1]))
datasets = dict((d["id"], d) for d in session["datasets"])
good = 0
for o in session["objects"]:
    if o["kind"] not in (4, 12):
        continue
    dataset = datasets[o["dataset"]]
    print("series %s (kind %d): rows %s of the collar table" % (json.dumps(o["name"]), o["kind"], o["values"]))
    read = []
    for file, rows in zip(dataset["files"], dataset["rows"]):
        path = file.replace(chr(92), "/")
        gpkg = ogr.Open(path[:-4] + ".gpkg")
        read.append(gpkg.GetLayer(0).GetFeatureCount() if gpkg else -1)
        print("  %-22s %3d rows, GDAL reads %d" % (path.rsplit("/", 1)[1], rows, read[-1]))
    good += o["values"] == [0, 1, 2] and read == dataset["rows"] and read[0] == 3
print("ok" if good == 1 else "FAILED")' "$out/holes/holes.ogs" 2>&1)
printf '%s\n' "$series" | sed '$d'
step "drillholes: subset in 3D" "$out/holes/holes.ogs" \
  "$([ "$(printf '%s\n' "$series" | tail -n 1)" = ok ] \
     && echo "ok: python reads one series of 3 holes, GDAL the rows of its 4 tables" || echo "FAILED: $series")"

say "Draw every line style of the sample pen file, at widths 1, 3 and 12, into one picture"
"$formkit" pen list "$samples/styles.pen" | head -n 4
"$formkit" pen sheet "$samples/styles.pen" -o "$out/pen_sheet.png"
# Each pen is a row of 50 pixels after a label column of 50; each width a cell of 220.
inked=$("$python" -c 'import sys; from osgeo import gdal
ds = gdal.Open(sys.argv[1]); rows = ds.RasterYSize // 50
ink = (255 - ds.GetRasterBand(1).ReadAsArray().astype(int))
print(sum(1 for r in range(rows) for c in range(3) if ink[r*50:(r+1)*50, 50+c*220:50+(c+1)*220].sum() > 0), rows * 3)' \
  "$out/pen_sheet.png" 2>&1 | tail -n 1)
step "pen: sheet of line styles" "$out/pen_sheet.png" \
  "$(set -- $inked; [ -n "${2:-}" ] && [ "$1" = "$2" ] && [ "$2" -gt 0 ] \
     && echo "ok: GDAL finds ink in all $2 cells" || echo "FAILED: inked cells '$inked'")"

say "Put two image parts into one composite in the 3D viewer simulator; list the links, switch one off, save the rest"
mkdir -p "$out/links"
for part in north south; do
  printf 'GeoreferenceImage Begin\r\n  Image = "%s.png"\r\nGeoreferenceImage End\r\n' "$part" > "$out/links/$part.ogb"
  printf 'picture of the %s part' "$part" > "$out/links/$part.png"
done
mkdir -p "$out/links/kept"
dbus-run-session -- bash -c '"$0" viewer register "$1/viewer/Terravik3D.exe" --timeout 10000 &&
  "$0" viewer links --composite "$2/links/site.ogb" "$2/links/north.ogb" "$2/links/south.ogb" --off south \
    --save "$2/links/kept/kept.ogb"; "$0" viewer stop' "$formkit" "$build" "$out" 2>&1 \
  | grep -v '^dbus-daemon' | sed -E -e "s|$out/||" | tee "$out/links.txt"
# The saved file holds the checked part alone, and its image lies beside it.
kept=$("$python" -c 'import sys, os
text = open(sys.argv[1], "rb").read().decode()
images = [line.split(chr(34))[1] for line in text.splitlines() if line.strip().startswith("Image = ")]
print(images == ["north.png"] and os.path.exists(os.path.join(os.path.dirname(sys.argv[1]), "north.png")))' \
  "$out/links/kept/kept.ogb" 2>&1 | tail -n 1)
step "viewer: link manager save" "$out/links/kept/kept.ogb" \
  "$([ "$kept" = True ] && echo "ok: python reads the checked part and finds its image" || echo "FAILED: '$kept'")"

printf '\n%-30s %-22s %8s  %s\n' step output bytes "checked by a peer"
for row in "${rows[@]}"; do
  IFS='|' read -r name file size check <<<"$row"
  printf '%-30s %-22s %8s  %s\n' "$name" "$file" "$size" "$check"
done
exit $failed
