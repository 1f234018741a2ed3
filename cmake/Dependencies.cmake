# Outside libraries. Only src/platform includes their headers; the list is
# linked into the library as a whole.
find_package(PkgConfig REQUIRED)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0)
find_package(SQLite3 REQUIRED)
find_package(fmt REQUIRED)

set(FORMKIT_PLATFORM_LIBS PkgConfig::GIO SQLite::SQLite3 fmt::fmt)

# The host emulator (sim/) alone: table files through GDAL/OGR, coordinate
# systems through PROJ. The library itself links neither.
find_package(GDAL CONFIG REQUIRED)
find_package(PROJ CONFIG REQUIRED)
set(FORMKIT_SIM_LIBS GDAL::GDAL PROJ::proj SQLite::SQLite3 PkgConfig::GIO)
