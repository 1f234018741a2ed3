# Outside libraries. Only src/platform includes their headers. The core
# library links only what nearly every export needs; heavy services are
# libraries of their own, loaded on first use.
find_package(PkgConfig REQUIRED)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0)
find_package(SQLite3 REQUIRED)
find_package(fmt REQUIRED)

set(FORMKIT_PLATFORM_LIBS PkgConfig::GIO SQLite::SQLite3 fmt::fmt)

# Picture sizes: the platform's image loader first, then the raster library,
# each in a decoder library of its own (libformkit-pixbuf.so, libformkit-gdal.so).
pkg_check_modules(GDKPIXBUF REQUIRED IMPORTED_TARGET gdk-pixbuf-2.0)
find_package(GDAL CONFIG REQUIRED)

# Pictures of line styles and text metrics: Cairo and Pango, in a library of
# their own (libformkit-cairo.so; Debian: libcairo2-dev, libpango1.0-dev).
pkg_check_modules(PANGOCAIRO REQUIRED IMPORTED_TARGET pangocairo cairo-svg cairo-pdf cairo-png)

# SimpleIni (libsimpleini-dev): the settings files. Header only as used
# here: its implementation is compiled in, with no text conversion.
find_path(SIMPLEINI_INCLUDE_DIR SimpleIni.h REQUIRED)

# The toolkit of the dialog backend (libformkit-wx.so only, never the core
# library): wxWidgets 3.2 over GTK 3, with its XRC and XML libraries
# (Debian: libwxgtk3.2-dev). Its tests run on Xvfb (Debian: xvfb, xauth).
find_package(wxWidgets 3.2 REQUIRED COMPONENTS xrc xml core base)
add_library(formkit_toolkit INTERFACE)
target_include_directories(formkit_toolkit SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
target_compile_definitions(formkit_toolkit INTERFACE ${wxWidgets_DEFINITIONS})
separate_arguments(FORMKIT_TOOLKIT_FLAGS UNIX_COMMAND "${wxWidgets_CXX_FLAGS}")
target_compile_options(formkit_toolkit INTERFACE ${FORMKIT_TOOLKIT_FLAGS})
target_link_libraries(formkit_toolkit INTERFACE ${wxWidgets_LIBRARIES})
# GTK 3 itself, under the toolkit, for what it doesn't reach (window groups;
# Debian: libgtk-3-dev).
pkg_check_modules(GTK3 REQUIRED IMPORTED_TARGET gtk+-3.0)

# The host emulator (sim/): table files through GDAL/OGR, coordinate systems
# through PROJ (the library itself uses GDAL for picture sizes only).
find_package(PROJ CONFIG REQUIRED)
set(FORMKIT_SIM_LIBS GDAL::GDAL PROJ::proj SQLite::SQLite3 PkgConfig::GIO)
