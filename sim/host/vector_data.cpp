#include "vector_data.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cctype>
#include <filesystem>
#include <mutex>

#include "errors.h"
#include "ogr_geometry.h"
#include "text_util.h"

namespace sim {
namespace {

void RegisterDrivers() {
  static std::once_flag once;
  std::call_once(once, [] { GDALAllRegister(); });
}

struct DatasetCloser {
  void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};
using DatasetPtr = std::unique_ptr<GDALDataset, DatasetCloser>;

std::string CleanName(const std::string& name) {
  std::string clean;
  for (char c : name) clean += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  if (clean.empty() || std::isdigit(static_cast<unsigned char>(clean[0]))) clean = "_" + clean;
  return clean;
}

Column ColumnOfField(const OGRFieldDefn& field) {
  Column column;
  column.name = CleanName(field.GetNameRef());
  switch (field.GetType()) {
    case OFTInteger:
      column.type = field.GetSubType() == OFSTBoolean ? ColumnType::Logical
                    : field.GetSubType() == OFSTInt16 ? ColumnType::SmallInt
                                                      : ColumnType::Integer;
      break;
    case OFTInteger64: column.type = ColumnType::Integer; break;
    case OFTReal:
      if (field.GetWidth() > 0 && field.GetPrecision() > 0) {
        column.type = ColumnType::Decimal;
        column.width = field.GetWidth();
        column.decimals = field.GetPrecision();
      } else {
        column.type = ColumnType::Float;
      }
      break;
    default:
      column.type = ColumnType::Char;
      column.width = field.GetType() == OFTString && field.GetWidth() > 0 ? field.GetWidth() : 254;
  }
  return column;
}

// Gives `field` the type, width and precision of the column.
void DefineField(OGRFieldDefn& field, const Column& column) {
  switch (column.type) {
    case ColumnType::Char:
      field.SetType(OFTString);
      field.SetWidth(column.width);
      break;
    case ColumnType::Decimal:
      field.SetType(OFTReal);
      field.SetWidth(column.width);
      field.SetPrecision(column.decimals);
      break;
    case ColumnType::Integer: field.SetType(OFTInteger); break;
    case ColumnType::SmallInt:
      field.SetType(OFTInteger);
      field.SetSubType(OFSTInt16);
      break;
    case ColumnType::Logical:
      field.SetType(OFTInteger);
      field.SetSubType(OFSTBoolean);
      break;
    case ColumnType::Float: field.SetType(OFTReal); break;
    case ColumnType::Date: field.SetType(OFTString); break;
  }
}

Value ValueOfField(const OGRFeature& feature, int field, const Column& column) {
  if (!feature.IsFieldSetAndNotNull(field)) return Value();
  switch (column.type) {
    case ColumnType::Char:
    case ColumnType::Date: return Value(std::string(feature.GetFieldAsString(field)));
    case ColumnType::Logical: return Value(feature.GetFieldAsInteger(field) != 0);
    case ColumnType::Integer:
    case ColumnType::SmallInt: return Value(static_cast<double>(feature.GetFieldAsInteger64(field)));
    default: return Value(feature.GetFieldAsDouble(field));
  }
}

void SetField(OGRFeature& feature, int field, const Column& column, const Value& value) {
  if (value.IsNull()) return;
  switch (column.type) {
    case ColumnType::Char:
    case ColumnType::Date: feature.SetField(field, value.AsText().c_str()); break;
    case ColumnType::Logical: feature.SetField(field, value.AsBool() ? 1 : 0); break;
    case ColumnType::Integer:
    case ColumnType::SmallInt: feature.SetField(field, static_cast<GIntBig>(std::llround(value.AsNumber()))); break;
    default: feature.SetField(field, value.AsNumber());
  }
}

std::optional<CoordSys> CoordSysOfSrs(const OGRSpatialReference* srs) {
  if (!srs) return std::nullopt;
  const char* srsName = srs->GetName();
  if (srsName && std::string(srsName).find("Undefined") != std::string::npos) return std::nullopt;
  const char* datumName = srs->GetAttrValue("DATUM");
  const std::string datum = datumName ? Upper(datumName) : "";
  const int datumNumber = datum.find("AUSTRALIA_1994") != std::string::npos || datum.find("GDA94") != std::string::npos
                              ? 116
                          : datum.find("WGS") != std::string::npos && datum.find("84") != std::string::npos ? 104
                                                                                                            : 0;
  if (srs->IsGeographic() && datumNumber) return CoordSys::LongLat(datumNumber);
  if (srs->IsProjected() && datumNumber) {
    const char* projection = srs->GetAttrValue("PROJECTION");
    if (projection && EqualNoCase(projection, SRS_PT_TRANSVERSE_MERCATOR) && srs->GetLinearUnits() == 1.0)
      return CoordSys::TransverseMercator(
          datumNumber, "m",
          {srs->GetNormProjParm(SRS_PP_CENTRAL_MERIDIAN), srs->GetNormProjParm(SRS_PP_LATITUDE_OF_ORIGIN),
           srs->GetNormProjParm(SRS_PP_SCALE_FACTOR, 1.0), srs->GetNormProjParm(SRS_PP_FALSE_EASTING),
           srs->GetNormProjParm(SRS_PP_FALSE_NORTHING)});
  }
  if (srs->IsLocal() || srs->IsEmpty()) return CoordSys::NonEarth("m");
  throw HostError("The data's reference system is outside the supported coordinate systems");
}

std::optional<Object> ObjectOfFeature(const OGRFeature& feature, int descriptorField) {
  const OGRGeometry* geometry = feature.GetGeometryRef();
  std::optional<Object> nodes = geometry ? FromOgrGeometry(*geometry) : std::nullopt;
  // A row without a descriptor, or with an empty one, keeps what its geometry gives.
  const char* descriptor = descriptorField >= 0 && feature.IsFieldSetAndNotNull(descriptorField)
                               ? feature.GetFieldAsString(descriptorField)
                               : "";
  if (!*descriptor) return nodes;
  Object object = Object::FromDescriptor(descriptor);
  if (object.IsBoxed() && !object.parts.empty()) return object;  // the box corners are in the descriptor
  if (!nodes) return std::nullopt;
  object.parts = nodes->parts;
  if (object.kind == ObjectKind::Line && !object.parts.empty() && object.parts[0].size() != 2)
    object.kind = ObjectKind::Polyline;
  return object;
}

std::vector<int> FieldIndexes(OGRFeatureDefn& definition, std::vector<Column>& columns,
                              const std::vector<Column>* declared, const std::string& path) {
  std::vector<int> indexes;
  if (declared) {
    columns = *declared;
    for (const Column& column : columns) {
      const int index = definition.GetFieldIndex(column.name.c_str());
      if (index < 0) throw HostError("The data file " + path + " has no column " + column.name);
      indexes.push_back(index);
    }
    return indexes;
  }
  for (int i = 0; i < definition.GetFieldCount(); ++i) {
    const OGRFieldDefn& field = *definition.GetFieldDefn(i);
    if (EqualNoCase(field.GetNameRef(), kObjectColumn)) continue;
    columns.push_back(ColumnOfField(field));
    indexes.push_back(i);
  }
  return indexes;
}

}  // namespace

VectorData ReadVectorData(const std::string& path, const std::vector<Column>* declared) {
  RegisterDrivers();
  DatasetPtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
  if (!dataset) throw HostError("The file " + path + " can't be read as vector data");
  if (dataset->GetLayerCount() < 1) throw HostError("The file " + path + " holds no table");
  OGRLayer& layer = *dataset->GetLayer(0);
  OGRFeatureDefn& definition = *layer.GetLayerDefn();
  VectorData data;
  const std::vector<int> fields = FieldIndexes(definition, data.columns, declared, path);
  // A .tab names its own system; the data's is read only for other data.
  if (!declared) data.coordsys = CoordSysOfSrs(layer.GetSpatialRef());
  const int descriptorField = definition.GetFieldIndex(kObjectColumn);
  layer.ResetReading();
  while (std::unique_ptr<OGRFeature> feature{layer.GetNextFeature()}) {
    Row row;
    for (std::size_t i = 0; i < fields.size(); ++i)
      row.values.push_back(ValueOfField(*feature, fields[i], data.columns[i]));
    row.object = ObjectOfFeature(*feature, descriptorField);
    data.rows.push_back(std::move(row));
  }
  return data;
}

void WriteGeoPackage(const std::string& path, const std::string& layerName, const std::vector<Column>& columns,
                     const std::vector<Row>& rows, const CoordSys* coordsys) {
  RegisterDrivers();
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GPKG");
  if (!driver) throw HostError("GeoPackage files can't be written here");
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  DatasetPtr dataset(driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  if (!dataset) throw HostError("The file " + path + " can't be created");
  OGRSpatialReference srs;
  const std::string definition = coordsys ? coordsys->ProjDefinition() : std::string();
  const bool earth = !definition.empty() && srs.SetFromUserInput(definition.c_str()) == OGRERR_NONE;
  if (earth) srs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  OGRLayer* layer =
      dataset->CreateLayer(layerName.c_str(), earth ? &srs : nullptr, coordsys ? wkbUnknown : wkbNone, nullptr);
  if (!layer) throw HostError("The table " + layerName + " can't be written to " + path);
  for (const Column& column : columns) {
    OGRFieldDefn field(column.name.c_str(), OFTString);
    DefineField(field, column);
    if (layer->CreateField(&field) != OGRERR_NONE) throw HostError("Column " + column.name + " can't be written");
  }
  OGRFieldDefn descriptor(kObjectColumn, OFTString);
  layer->CreateField(&descriptor);
  dataset->StartTransaction();
  for (const Row& row : rows) {
    OGRFeature feature(layer->GetLayerDefn());
    for (std::size_t i = 0; i < columns.size() && i < row.values.size(); ++i)
      SetField(feature, static_cast<int>(i), columns[i], row.values[i]);
    if (row.object) {
      feature.SetField(static_cast<int>(columns.size()), row.object->Descriptor().c_str());
      if (auto geometry = ToOgrGeometry(*row.object)) feature.SetGeometryDirectly(geometry.release());
    }
    if (layer->CreateFeature(&feature) != OGRERR_NONE) throw HostError("A row can't be written to " + path);
  }
  dataset->CommitTransaction();
}

}  // namespace sim
