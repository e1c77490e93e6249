// SPDX-License-Identifier: MIT
#include "interchange/point_export.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <fstream>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "interchange/coordinate_system.h"
#include "interchange/exported_file.h"
#include "interchange/failures.h"

namespace sylvomex {
namespace {

[[noreturn]] void Fail(const std::string& name) {
  throw FailedOnTheWay(name + ": it cannot be written: " + Gdal_Message("GDAL refuses"));
}

const char* Driver_Of(const std::filesystem::path& output) {
  static const std::map<std::string, const char*> kDrivers = {
      {".gpkg", "GPKG"}, {".geojson", "GeoJSON"}, {".json", "GeoJSON"}, {".csv", "CSV"}};
  const auto driver = kDrivers.find(Lower_Ending(output));
  if (driver != kDrivers.end()) return driver->second;
  throw Refused(output.string() + ": points are written as .gpkg, .geojson or .csv");
}

OGRFieldType Type_Of(ColumnKind kind) {
  if (kind == ColumnKind::Integer) return OFTInteger64;
  return kind == ColumnKind::Real ? OFTReal : OFTString;
}

OGRLayer& New_Layer(GDALDataset& file, const std::string& driver, const std::string& crs,
                    const std::string& layer, const std::string& name) {
  OGRSpatialReference system = Coordinate_System(crs);
  if (system.GetAuthorityCode(nullptr) == nullptr) system.AutoIdentifyEPSG();
  CPLStringList options;
  if (driver == "GeoJSON") options.SetNameValue("COORDINATE_PRECISION", "6");
  const bool is_table = driver == "CSV";
  if (is_table) options.SetNameValue("STRING_QUOTING", "IF_NEEDED");
  OGRLayer* const made = file.CreateLayer(layer.c_str(), is_table ? nullptr : &system,
                                          is_table ? wkbNone : wkbPoint25D, options.List());
  if (made == nullptr) Fail(name);
  return *made;
}

void Add_Row(const PointRow& row, const PointTable& table, OGRLayer& layer,
             const std::string& name) {
  OGRFeature feature(layer.GetLayerDefn());
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const int field = static_cast<int>(i);
    if (const double* number = std::get_if<double>(&row.cells[i])) {
      if (table.columns[i].kind == ColumnKind::Integer) {
        feature.SetField(field, static_cast<GIntBig>(*number));
      } else {
        feature.SetField(field, *number);
      }
    } else if (const std::string* text = std::get_if<std::string>(&row.cells[i])) {
      feature.SetField(field, text->c_str());
    }
  }
  if (layer.GetGeomType() != wkbNone) {
    const OGRPoint point(row.at.X, row.at.Y, row.at.Z);
    feature.SetGeometry(&point);
  }
  if (layer.CreateFeature(&feature) != OGRERR_NONE) Fail(name);
}

/// The system's WKT as the name in the "crs" member, where GDAL wrote none: it names systems by
/// their authority's code alone, but reads WKT.
void Name_System_Without_Code(const std::filesystem::path& written, const std::string& crs,
                              const std::string& name) {
  std::ostringstream content;
  content << std::ifstream(written, std::ios::binary).rdbuf();
  std::string text = content.str();
  const std::size_t features = text.find("\"features\":");
  if (features == std::string::npos || text.find("\"crs\":") < features) return;
  const std::string wkt = Wkt_Of(Coordinate_System(crs));
  const nlohmann::json member = {{"type", "name"}, {"properties", {{"name", wkt}}}};
  text.insert(features, "\"crs\": " + member.dump() + ",\n");
  std::ofstream file(written, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  if (!file) throw FailedOnTheWay(name + ": it was not written to its end; is the disk full?");
}

/// Some of GDAL's writers do not notice that the disk is full.
void Require_All_Rows(const std::filesystem::path& written, std::size_t rows,
                      const std::string& name) {
  const GDALDatasetUniquePtr file(GDALDataset::Open(written.c_str(), GDAL_OF_VECTOR));
  if (file == nullptr || file->GetLayerCount() == 0 ||
      file->GetLayer(0)->GetFeatureCount() != static_cast<GIntBig>(rows)) {
    throw FailedOnTheWay(name + ": it was not written to its end; is the disk full?");
  }
}

}  // namespace

void Export_Points(const PointTable& points, const std::string& crs, const std::string& layer,
                   const std::filesystem::path& output, const ExportRun& run) {
  Start_Gdal();
  const std::string driver = Driver_Of(output);
  ExportedFile exported(output, run.site);
  CPLErrorReset();
  GDALDatasetUniquePtr file(
      GetGDALDriverManager()
          ->GetDriverByName(driver.c_str())
          ->Create(exported.Partial().c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  if (file == nullptr) Fail(output.string());
  OGRLayer& made = New_Layer(*file, driver, crs, layer, output.string());
  for (const PointColumn& column : points.columns) {
    OGRFieldDefn field(column.name.c_str(), Type_Of(column.kind));
    if (made.CreateField(&field) != OGRERR_NONE) Fail(output.string());
  }
  const bool in_transaction = file->StartTransaction() == OGRERR_NONE;
  double done = 0;
  for (const PointRow& row : points.rows) {
    Add_Row(row, points, made, output.string());
    Tell_Share(run.told, ++done, static_cast<double>(points.rows.size()));
  }
  if (in_transaction && file->CommitTransaction() != OGRERR_NONE) Fail(output.string());
  CPLErrorReset();
  file.reset();
  if (CPLGetLastErrorType() == CE_Failure) Fail(output.string());
  if (driver == "GeoJSON") Name_System_Without_Code(exported.Partial(), crs, output.string());
  Require_All_Rows(exported.Partial(), points.rows.size(), output.string());
  exported.Commit();
}

}  // namespace sylvomex
