#!/bin/sh
# libformkit-wx.so shows exactly its entry point, and asks libformkit.so for
# nothing (the core's names are hidden there).
#   check_plugin_exports.sh libformkit-wx.so
set -eu
plugin=$1
shown=$(nm -D --defined-only "$plugin" | awk '{print $3}' | sort | tr '\n' ' ')
if [ "$shown" != "fk_wx_backend " ]; then
  echo "libformkit-wx.so shows: $shown" >&2
  exit 1
fi
wanted=$(nm -D --undefined-only "$plugin" | awk '{print $2}' | grep -E '^_ZN(K)?2fk|^fk_' || true)
if [ -n "$wanted" ]; then
  echo "libformkit-wx.so needs names of the core: $wanted" >&2
  exit 1
fi
echo "libformkit-wx.so shows only fk_wx_backend"
