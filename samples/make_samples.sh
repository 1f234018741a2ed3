#!/bin/sh
# Makes the sample tables from the text sources in samples/src with GDAL:
# each .tab head is copied, and its rows go into the GeoPackage beside it;
# the raster is made from its ASCII grid, with its registration table, and
# its shaded relief is the sample picture.
#   make_samples.sh OUTPUT-FOLDER
set -eu
src=$(cd "$(dirname "$0")/src" && pwd)
out=${1:?usage: make_samples.sh OUTPUT-FOLDER}
mkdir -p "$out"
# name and reference system (none for tables without objects)
for entry in collars:EPSG:28355 surveys: assays: lithology: objects:EPSG:4326 sites:EPSG:28355; do
  name=${entry%%:*}
  srs=${entry#*:}
  rm -f "$out/$name.gpkg"
  ogr2ogr -q -f GPKG "$out/$name.gpkg" "$src/$name.csv" -nln "$name" \
    -oo GEOM_POSSIBLE_NAMES=WKT -oo KEEP_GEOM_COLUMNS=NO ${srs:+-a_srs "$srs"}
  cp "$src/$name.tab" "$out/$name.tab"
done
gdal_translate -q -of GTiff -a_srs EPSG:28355 "$src/dem.asc" "$out/dem.tif"
cp "$src/dem.tab" "$out/dem.tab"
# A picture to register: the DEM's shaded relief as a plain JPEG (no
# georeferencing beside it: the registration table gives it).
rm -f "$out/hillshade.jpg"
gdaldem hillshade -q -compute_edges -of JPEG --config GDAL_PAM_ENABLED NO "$out/dem.tif" "$out/hillshade.jpg"
# The georeference file that places it.
cp "$src/hillshade.ogb" "$out/hillshade.ogb"
# Workspaces over the sample tables as the host writes them on Windows (CR LF,
# drive paths in any letter case): the drive C: of the reader's drive table
# stands for the folder that holds this output folder, named "samples".
workspace() {
  printf '%s\r\n' '!Workspace' '!Version 1000' '!Charset Neutral' "$@" > "$out/$name.wor"
}
name=bendigo
workspace 'Open Table "C:\Samples\COLLARS.TAB" As collars Interactive' \
  'Open Table "c:\samples\Assays.tab" As assays Interactive' \
  'Open Table "C:\SAMPLES\objects.TAB" As objects Interactive' \
  'Map From objects, collars' \
  '  Position (0.1,0.1) Units "in"' \
  '  Width 6 Units "in" Height 4 Units "in"' \
  'Set Map Layer 1 Editable' \
  'Browse * From assays'
name=bendigo_printer
title=$(printf 'Bendigo Creek drilling %.0s' 1 2 3 4 5 6 7 8 9 10 11 12)
workspace 'open table "C:\Samples\collars.tab" As collars' \
  'Open Table "C:\Samples\sites.tab" As sites Interactive' \
  'Map From collars, sites' \
  'Set Map Layer 1 Editable On' \
  '  Set Map Layer 2 Editable' \
  'Set Window FrontWindow() Printer' \
  '  Name "Plotter A0" Orientation Landscape' \
  '  Copies 1' \
  "Set Window FrontWindow() Title \"$title\""
name=bendigo_missing
workspace 'Open Table "C:\Samples\collars.tab" As collars Interactive' \
  'Open Table "C:\Samples\Old\drillholes_2019.tab" As drillholes_2019 Interactive' \
  'Open Table "C:\Samples\lithology.tab" As lithology Interactive' \
  'Map From collars, drillholes_2019'
