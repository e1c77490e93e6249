// SPDX-License-Identifier: MIT
#include "interchange/tin_export.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <array>
#include <cstring>
#include <memory>
#include <vector>

#include "interchange/coordinate_system.h"
#include "interchange/exported_file.h"
#include "interchange/failures.h"
#include "interchange/output_file.h"
#include "interchange/record_fields.h"
#include "interchange/record_lines.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr double kRead = 0.2;  // share of the whole that is done then

using Corners = std::array<std::int32_t, 3>;

struct WorldTin {
  std::vector<Point3D> nodes;
  std::vector<Corners> triangles;
};

WorldTin Read_Tin(const fs::path& nodes, const Site& site) {
  WorldTin tin;
  For_Each_Line({nodes.string(), nodes}, [&](std::string_view line, const std::string& where) {
    RecordFields fields(line, where, true);
    const double X = fields.Required_Number();
    const double Y = fields.Required_Number();
    tin.nodes.push_back(site.World({X, Y, fields.Required_Number()}));
  });
  const fs::path file = fs::path(nodes).replace_extension(".tri");
  For_Each_Line({file.string(), file}, [&](std::string_view line, const std::string& where) {
    RecordFields fields(line, where, true);
    Corners corners{};
    for (std::int32_t& corner : corners) {
      const double number = fields.Required_Number();
      if (!(number >= 0 && number < static_cast<double>(tin.nodes.size()))) {
        fields.Refuse("there is no such node");
      }
      corner = static_cast<std::int32_t>(number);
    }
    tin.triangles.push_back(corners);
  });
  return tin;
}

template <class Value>
void Put(std::string& bytes, Value value) {
  bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

/// The Stanford triangle format (Turk, G., 1994: The PLY polygon file format).
void Write_Ply(const WorldTin& tin, const fs::path& path, const std::string& name) {
  OutputFile file(path, name);
  std::string bytes = "ply\nformat binary_little_endian 1.0\nelement vertex " +
                      std::to_string(tin.nodes.size()) +
                      "\nproperty double x\nproperty double y\nproperty double z\nelement face " +
                      std::to_string(tin.triangles.size()) +
                      "\nproperty list uchar int vertex_indices\nend_header\n";
  for (const Point3D& node : tin.nodes) Put(bytes, node);
  for (const Corners& corners : tin.triangles) {
    Put(bytes, std::uint8_t{3});
    Put(bytes, corners);
  }
  file.Write(bytes);
  file.Close();
}

[[noreturn]] void Fail(const std::string& name) {
  throw FailedOnTheWay(name + ": it cannot be written: " + Gdal_Message("GDAL refuses"));
}

void Add_Triangle(const WorldTin& tin, std::size_t index, OGRLayer& layer,
                  const std::string& name) {
  const Corners& corners = tin.triangles[index];
  OGRFeature feature(layer.GetLayerDefn());
  OGRLinearRing ring;
  for (std::size_t i = 0; i <= 3; ++i) {
    const Point3D& at = tin.nodes[static_cast<std::size_t>(corners[i % 3])];
    ring.addPoint(at.X, at.Y, at.Z);
    if (i < 3) feature.SetField(static_cast<int>(i), corners[i]);
  }
  OGRPolygon polygon;
  polygon.addRing(&ring);
  feature.SetGeometry(&polygon);
  if (layer.CreateFeature(&feature) != OGRERR_NONE) Fail(name);
}

void Write_Gpkg(const WorldTin& tin, const std::string& crs, const fs::path& path,
                const std::string& name, const ToldShare& told) {
  Start_Gdal();
  CPLErrorReset();
  GDALDatasetUniquePtr file(GetGDALDriverManager()->GetDriverByName("GPKG")->Create(
      path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  if (file == nullptr) Fail(name);
  OGRSpatialReference system = Coordinate_System(crs);
  OGRLayer* const layer = file->CreateLayer("triangles", &system, wkbPolygon25D, nullptr);
  if (layer == nullptr) Fail(name);
  for (const char* field : {"Node1", "Node2", "Node3"}) {
    OGRFieldDefn definition(field, OFTInteger);
    if (layer->CreateField(&definition) != OGRERR_NONE) Fail(name);
  }
  if (file->StartTransaction() != OGRERR_NONE) Fail(name);
  for (std::size_t i = 0; i < tin.triangles.size(); ++i) {
    Add_Triangle(tin, i, *layer, name);
    Tell_Share(told, static_cast<double>(i + 1), static_cast<double>(tin.triangles.size()));
  }
  if (file->CommitTransaction() != OGRERR_NONE) Fail(name);
  CPLErrorReset();
  file.reset();
  if (CPLGetLastErrorType() == CE_Failure) Fail(name);
}

}  // namespace

void Export_Tin(const fs::path& nodes, const Site& site, const fs::path& output,
                const ToldShare& told) {
  const std::string ending = Lower_Ending(output);
  if (ending != ".ply" && ending != ".gpkg") {
    throw Refused(output.string() + ": triangles are written as .ply or .gpkg");
  }
  const WorldTin tin = Read_Tin(nodes, site);
  Tell_Share(told, kRead, 1);
  ExportedFile exported(output, site.folder);
  if (ending == ".ply") {
    Write_Ply(tin, exported.Partial(), output.string());
  } else {
    Write_Gpkg(tin, site.crs, exported.Partial(), output.string(), Part_Of(told, kRead, 1));
  }
  exported.Commit();
}

}  // namespace sylvomex
