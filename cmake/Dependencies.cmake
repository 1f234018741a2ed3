# Outside libraries. Only src/platform includes their headers; the list is
# linked into the library as a whole.
find_package(PkgConfig REQUIRED)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0)
find_package(SQLite3 REQUIRED)
find_package(fmt REQUIRED)

set(FORMKIT_PLATFORM_LIBS PkgConfig::GIO SQLite::SQLite3 fmt::fmt)

# Picture sizes: the platform's image loader first, then the raster library.
pkg_check_modules(GDKPIXBUF REQUIRED IMPORTED_TARGET gdk-pixbuf-2.0)
pkg_check_modules(GDAL REQUIRED IMPORTED_TARGET gdal)
list(APPEND FORMKIT_PLATFORM_LIBS PkgConfig::GDKPIXBUF PkgConfig::GDAL)

# SimpleIni (libsimpleini-dev): the settings files. Header only as used
# here: its implementation is compiled in, with no text conversion.
find_path(SIMPLEINI_INCLUDE_DIR SimpleIni.h REQUIRED)
