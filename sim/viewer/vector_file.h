// Vector files the viewer opens: read with GDAL's reader, as the viewer
// would read them to draw them.
#pragma once

#include <string>

namespace tv {

// The number of features in all layers of the file; fails the call when
// the file can't be read as vector data.
long CountVectorFeatures(const std::string& path);

// The rows of a table file: a host table file (.tab) keeps them in the
// GeoPackage beside it; other vector data holds them itself.
long CountTableRows(const std::string& path);

}  // namespace tv
