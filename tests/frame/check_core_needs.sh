#!/bin/sh
# The core library needs only what nearly every export needs: the heavy
# services (raster and projection libraries, the toolkit, drawing, image
# loaders) are loaded on first use and never named in its DT_NEEDED list.
#   check_core_needs.sh libformkit.so
set -eu
needed=$(readelf -d "$1" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
heavy=$(echo "$needed" | grep -iE 'gdal|proj|wx_|gtk|gdk|cairo|pango' || true)
if [ -n "$heavy" ]; then
  echo "the core library links heavy services directly:"
  echo "$heavy"
  exit 1
fi
echo "the core library needs: $(echo $needed)"
