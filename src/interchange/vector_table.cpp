// SPDX-License-Identifier: MIT
#include "interchange/vector_table.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <memory>

#include "interchange/coordinate_system.h"
#include "interchange/csv_table.h"
#include "interchange/exported_file.h"
#include "interchange/failures.h"
#include "interchange/ordinary_file.h"

namespace sylvomex {
namespace {

VectorTable From_Text(const std::filesystem::path& file) {
  const std::string name = file.string();
  std::vector<TextRow> rows = Split_Rows(Read_Text_File(name), name);
  if (rows.empty()) throw Refused(name + ": the file is empty");
  VectorTable table{name, rows.front().cells, {}};
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const std::string where = name + ", line " + std::to_string(rows[i].line);
    if (rows[i].cells.size() != table.columns.size()) {
      throw Refused(where + ": " + std::to_string(rows[i].cells.size()) + " values for " +
                    std::to_string(table.columns.size()) + " columns");
    }
    table.rows.push_back({where, std::move(rows[i].cells), std::nullopt});
  }
  return table;
}

using Transformation = std::unique_ptr<OGRCoordinateTransformation>;

/// Brings points of a layer to the site; nothing for a layer without points.
Transformation To_Site(OGRLayer& layer, const std::string& site, const std::string& name) {
  if (layer.GetGeomType() == wkbNone) return nullptr;
  const OGRSpatialReference* const own = layer.GetSpatialRef();
  if (own == nullptr || own->IsEmpty() != 0) {
    throw Refused(name + ": its points have no coordinate system");
  }
  OGRSpatialReference from(*own);
  from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const OGRSpatialReference to = Coordinate_System(site);
  Transformation transform(OGRCreateCoordinateTransformation(&from, &to));
  if (transform == nullptr) {
    throw Refused(name + ": its points cannot be brought to the site's system");
  }
  return transform;
}

std::optional<Point3D> Place_Of(const OGRFeature& feature, OGRCoordinateTransformation* transform,
                                const std::string& where) {
  const OGRGeometry* const geometry = feature.GetGeometryRef();
  if (transform == nullptr || geometry == nullptr || geometry->IsEmpty() != 0) return std::nullopt;
  if (wkbFlatten(geometry->getGeometryType()) != wkbPoint) {
    throw Refused(where + ": it is no point");
  }
  const OGRPoint& point = *geometry->toPoint();
  double X = point.getX();
  double Y = point.getY();
  if (transform->Transform(1, &X, &Y) == 0) {
    throw Refused(where + ": the point cannot be brought to the site's system");
  }
  return Point3D{X, Y, point.getZ()};
}

VectorTable From_Layer(OGRLayer& layer, const std::string& site, const std::string& name) {
  VectorTable table{name, {}, {}};
  OGRFeatureDefn& definition = *layer.GetLayerDefn();
  for (int i = 0; i < definition.GetFieldCount(); ++i) {
    table.columns.emplace_back(definition.GetFieldDefn(i)->GetNameRef());
  }
  const Transformation transform = To_Site(layer, site, name);
  layer.ResetReading();
  while (const OGRFeatureUniquePtr feature{layer.GetNextFeature()}) {
    const std::string where = name + ", feature " + std::to_string(feature->GetFID());
    VectorTable::Row row{where, {}, Place_Of(*feature, transform.get(), where)};
    for (int i = 0; i < definition.GetFieldCount(); ++i) {
      row.values.emplace_back(feature->IsFieldSetAndNotNull(i) != 0 ? feature->GetFieldAsString(i)
                                                                    : "");
    }
    table.rows.push_back(std::move(row));
  }
  if (!table.rows.empty() && table.rows.front().at) {
    const Point3D& first = *table.rows.front().at;
    Refuse_Far_Away(Coordinate_System(site), first.X, first.Y, name);
  }
  return table;
}

}  // namespace

std::size_t VectorTable::Column(std::string_view wanted) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (Lower(columns[i]) == Lower(wanted)) return i;
  }
  throw Refused(name + ": there is no column \"" + std::string(wanted) + "\"");
}

VectorTable Read_Vector_Table(const std::filesystem::path& file, const std::string& site) {
  const std::string ending = Lower_Ending(file);
  if (ending == ".csv" || ending == ".txt") return From_Text(file);
  Start_Gdal();
  CPLErrorReset();
  const std::string name = file.string();
  Require_No_Device(file);
  const GDALDatasetUniquePtr vectors(
      GDALDataset::Open(name.c_str(), GDAL_OF_VECTOR | GDAL_OF_VERBOSE_ERROR));
  if (vectors == nullptr) {
    throw Refused(name + ": no table of points: " + Gdal_Message("it cannot be read"));
  }
  if (vectors->GetLayerCount() == 0) throw Refused(name + ": the file has no layers");
  return From_Layer(*vectors->GetLayer(0), site, name);
}

}  // namespace sylvomex
