#include "vector_file.h"

#include <gdal.h>
#include <ogr_api.h>

#include "platform/paths/paths.h"
#include "scene.h"

namespace tv {

long CountVectorFeatures(const std::string& path) {
  GDALAllRegister();
  GDALDatasetH dataset =
      GDALOpenEx(fk::Native(path).c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, nullptr, nullptr, nullptr);
  if (!dataset) Fail("Cannot read the vector file " + path + ".");
  long count = 0;
  for (int i = 0; i < GDALDatasetGetLayerCount(dataset); ++i)
    count += static_cast<long>(OGR_L_GetFeatureCount(GDALDatasetGetLayer(dataset, i), TRUE));
  GDALClose(dataset);
  return count;
}

}  // namespace tv
