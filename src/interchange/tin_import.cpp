// SPDX-License-Identifier: MIT
#include "interchange/tin_import.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <set>

#include "heightmodels/tin_model.h"
#include "interchange/delaunay.h"
#include "interchange/failures.h"
#include "interchange/site.h"
#include "interchange/tin_nodes.h"
#include "interchange/tin_squares.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostNodes = 2'000'000;
constexpr double kPerMetre = 1e4;                                   // steps of coordinates
constexpr double kTile = 100;                                       // metres
constexpr double kRead = 0.4, kTriangulated = 0.7, kWritten = 0.9;  // shares done then

double Rounded(double coordinate) { return std::round(coordinate * kPerMetre) / kPerMetre; }

MapExtent Extent_Of(const std::vector<Point3D>& nodes) {
  MapExtent extent{1e300, 1e300, -1e300, -1e300};
  for (const Point3D& at : nodes) {
    extent = {std::min(extent.west, at.X), std::min(extent.south, at.Y),
              std::max(extent.east, at.X), std::max(extent.north, at.Y)};
  }
  return extent;
}

struct Triangulated {
  std::vector<TinNode> nodes;  // working metres
  std::vector<PointTriangle> triangles;
};

Triangulated Triangulate(const std::vector<Point3D>& world, const Site& site) {
  Triangulated model;
  std::vector<MapPoint> places;
  for (const Point3D& at : world) {
    const Point3D working = site.Working(at);
    model.nodes.push_back({0, Rounded(working.X), Rounded(working.Y), Rounded(working.Z)});
    places.push_back({model.nodes.back().X, model.nodes.back().Y});
  }
  model.triangles = Delaunay_Triangles(places);
  return model;
}

/// A plane through height 0 at the corner of its triangle's box, such as the sea's, ends the
/// reading of a model; a node of it is lifted by a step. Returns the number of triangles that
/// needed it.
std::size_t Lift_Zero_Planes(Triangulated& model) {
  std::size_t lifted = 0;
  for (bool again = true; again;) {
    again = false;
    for (const PointTriangle& triangle : model.triangles) {
      std::array<TinNode*, 3> corners{};
      for (std::size_t i = 0; i < 3; ++i) {
        corners[i] = &model.nodes[static_cast<std::size_t>(triangle[i])];
      }
      TinTriangle filled;
      if (Fill_Tin_Triangle(*corners[0], *corners[1], *corners[2], filled)) continue;
      for (TinNode* corner : corners) corner->Z = Rounded(corner->Z + 1 / kPerMetre);
      ++lifted;
      again = true;
    }
  }
  return lifted;
}

void Append_Number(std::string& text, double value) {
  std::array<char, 400> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::fixed, 4);
  text.append(digits.data(), end.ptr);
}

std::string Node_Text(const std::vector<TinNode>& nodes) {
  std::string text;
  for (const TinNode& node : nodes) {
    Append_Number(text, node.X);
    text += ',';
    Append_Number(text, node.Y);
    text += ',';
    Append_Number(text, node.Z);
    text += '\n';
  }
  return text;
}

std::string Triangle_Text(const std::vector<PointTriangle>& triangles) {
  std::string text;
  for (const PointTriangle& t : triangles) {
    text += std::to_string(t[0]) + "," + std::to_string(t[1]) + "," + std::to_string(t[2]) + "\n";
  }
  return text;
}

std::string Square_Bytes(const std::vector<std::int32_t>& numbers) {
  const auto count = static_cast<std::int32_t>(numbers.size());
  std::string bytes(reinterpret_cast<const char*>(&count), sizeof count);
  return bytes.append(reinterpret_cast<const char*>(numbers.data()),
                      numbers.size() * sizeof(std::int32_t));
}

/// Tile files of an earlier model, which would name triangles that there are no more.
std::set<fs::path> Old_Tiles(const fs::path& folder) {
  std::set<fs::path> tiles;
  if (!fs::is_directory(folder)) return tiles;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".bin") tiles.insert(entry.path());
  }
  return tiles;
}

std::uint64_t Write_Squares(const Triangulated& model, ImportTransaction& transaction) {
  MapPoint corner{1e300, 1e300};
  for (const TinNode& node : model.nodes) {
    corner = {std::min(corner.X, node.X), std::min(corner.Y, node.Y)};
  }
  corner = {std::floor(corner.X / kTile) * kTile, std::floor(corner.Y / kTile) * kTile};
  const auto squares = Triangles_Of_Squares(model.nodes, model.triangles, corner);
  const fs::path folder = transaction.TheSite().Drives().Locate("c:\\data\\Tris").native;
  std::set<fs::path> old = Old_Tiles(folder);
  for (const auto& [square, numbers] : squares) {
    const fs::path file =
        folder / (Format(square.first, "000") + Format(square.second, "000") + ".bin");
    transaction.Write(file, Square_Bytes(numbers));
    old.erase(file);
  }
  for (const fs::path& file : old) transaction.Write(file, Square_Bytes({}));
  return squares.size();
}

}  // namespace

TinReport Import_Tin(ImportTransaction& transaction, const std::vector<fs::path>& files,
                     const ToldShare& told) {
  Site& site = transaction.TheSite();
  ImportEntry entry;
  entry.kind = "tin";
  entry.files = Source_Files(files);
  const TinNodes nodes = Read_Tin_Nodes_From(
      files, site.crs, kMostNodes,
      [&](const std::string& name) { return transaction.Scratch_File(name); },
      Part_Of(told, 0, kRead));
  Take_Extent(site, Extent_Of(nodes.nodes), files.front().string());
  Triangulated model = Triangulate(nodes.nodes, site);
  Tell_Share(told, kTriangulated, 1);
  if (model.triangles.empty()) {
    throw Refused(files.front().string() + ": its heights lie on one line and make no triangles");
  }
  TinReport report{model.nodes.size(), model.triangles.size(), 0, nodes.notes};
  if (const std::size_t lifted = Lift_Zero_Planes(model); lifted > 0) {
    report.notes.push_back(std::to_string(lifted) +
                           " triangles at height 0 are lifted by 0.1 mm or a few");
  }
  const DriveMap drives = site.Drives();
  transaction.Write(drives.Locate("c:\\data\\models\\tin.nod").native, Node_Text(model.nodes));
  transaction.Write(drives.Locate("c:\\data\\models\\tin.tri").native,
                    Triangle_Text(model.triangles));
  Tell_Share(told, kWritten, 1);
  report.tiles = Write_Squares(model, transaction);
  transaction.Commit(entry);
  return report;
}

}  // namespace sylvomex
