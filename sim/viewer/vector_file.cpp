#include "vector_file.h"

#include <gdal.h>
#include <ogr_api.h>

#include <filesystem>

#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
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

namespace tv {

long CountTableRows(const std::string& path) {
  std::filesystem::path file(fk::Native(path));
  if (fk::EqualsNoCase(file.extension().string(), ".tab")) file.replace_extension(".gpkg");
  return CountVectorFeatures(file.string());
}

}  // namespace tv
