// Vector files the viewer opens: read with GDAL's reader, as the viewer
// would read them to draw them.
#pragma once

#include <string>

namespace tv {

// The number of features in all layers of the file; fails the call when
// the file can't be read as vector data.
long CountVectorFeatures(const std::string& path);

}  // namespace tv
