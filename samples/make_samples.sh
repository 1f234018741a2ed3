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
