#!/bin/sh
# The library shows exactly the names its version script lists, and every
# export name among them (all but the host C API's fk_ names) is one of the
# system's export names, spelled exactly. Given the core's archives, the
# names the code marks FK_API (global, default visibility, defined)
# are exactly those names too, so the code and the script say one thing.
#   check_exports.sh libformkit.so formkit.map export-names.txt [archive.a ...]
set -eu
lib=$1 map=$2 names=$3
shift 3
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

sed -n '/global:/,/local:/p' "$map" | sed 's,/\*.*\*/,,' | grep -oE '^[[:space:]]*[A-Za-z_][A-Za-z0-9_]*;' \
  | tr -d ' ;\t' | sort > "$tmp/listed"
nm -D --defined-only "$lib" | awk '$2 ~ /^[TDBRVWi]$/ {print $3}' | sed 's/@.*//' | sort -u > "$tmp/shown"

status=0
if ! diff -u "$tmp/listed" "$tmp/shown" > "$tmp/diff"; then
  echo "the library's dynamic symbols differ from the version script (- listed only, + shown only):"
  cat "$tmp/diff"
  status=1
fi
if [ -f "$names" ]; then
  tr -d '\r' < "$names" | sort > "$tmp/names"
  grep -v '^fk_' "$tmp/listed" | comm -23 - "$tmp/names" > "$tmp/unknown"
  if [ -s "$tmp/unknown" ]; then
    echo "exports that are not export names of the system:"
    cat "$tmp/unknown"
    status=1
  fi
fi
if [ $# -gt 0 ]; then
  readelf -sW "$@" | awk '$5 == "GLOBAL" && $6 == "DEFAULT" && $7 != "UND" {print $8}' | sort -u > "$tmp/marked"
  if ! diff -u "$tmp/listed" "$tmp/marked" > "$tmp/diff"; then
    echo "the names the code marks for export differ from the version script (- listed only, + marked only):"
    cat "$tmp/diff"
    status=1
  fi
fi
[ "$(wc -l < "$tmp/listed")" -gt 0 ] || { echo "the version script lists nothing"; status=1; }
exit $status
