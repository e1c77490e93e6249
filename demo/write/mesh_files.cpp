// SPDX-License-Identifier: MIT
#include "demo/write/mesh_files.h"

#include <algorithm>
#include <cmath>

#include "demo/write/exact_text.h"
#include "demo/write/packed_bytes.h"
#include "platform/files.h"

namespace sylvomex::demo {
namespace {

constexpr double kTileSide = 100;  // metres

using Corners = std::array<MeshNode, 3>;

Corners Corners_Of(const SurfaceMesh& mesh, const std::array<std::int32_t, 3>& triangle) {
  const auto node = [&mesh](std::int32_t i) { return mesh.nodes[static_cast<std::size_t>(i)]; };
  return {node(triangle[0]), node(triangle[1]), node(triangle[2])};
}

struct Square {
  double west = 0, south = 0;  // side kTileSide
};

/// Whether the whole square lies strictly to the right of an edge of an anticlockwise triangle.
bool Is_Beyond_Edge(const MeshNode& from, const MeshNode& to, const Square& square) {
  const double dx = to.X - from.X, dy = to.Y - from.Y;
  // The corner of the square that lies farthest to the left of the edge.
  const double X = square.west + (dy < 0 ? kTileSide : 0);
  const double Y = square.south + (dx > 0 ? kTileSide : 0);
  return dx * (Y - from.Y) - dy * (X - from.X) < 0;
}

/// Separating axis test for the edges (Ericson 2005, Real-Time Collision Detection, section 5.2.1);
/// the triangle's box must already intersect the square.
bool Touches(const Corners& corners, const Square& square) {
  return !Is_Beyond_Edge(corners[0], corners[1], square) &&
         !Is_Beyond_Edge(corners[1], corners[2], square) &&
         !Is_Beyond_Edge(corners[2], corners[0], square);
}

struct TileRange {
  int first_column = 0, last_column = 0, first_row = 0, last_row = 0;
};

/// Squares that the triangle's box touches; a border belongs to the squares on both sides.
TileRange Tiles_Under(const Corners& corners, const Square& first) {
  const auto [least_x, most_x] = std::minmax({corners[0].X, corners[1].X, corners[2].X});
  const auto [least_y, most_y] = std::minmax({corners[0].Y, corners[1].Y, corners[2].Y});
  const auto before = [](double d) {
    return std::max(0, static_cast<int>(std::ceil(d / kTileSide)) - 1);
  };
  const auto at = [](double d) { return static_cast<int>(std::floor(d / kTileSide)); };
  return {before(least_x - first.west), at(most_x - first.west), before(least_y - first.south),
          at(most_y - first.south)};
}

Square First_Square(const SurfaceMesh& mesh) {
  Square first{1e30, 1e30};
  for (const MeshNode& node : mesh.nodes) {
    first.west = std::min(first.west, node.X);
    first.south = std::min(first.south, node.Y);
  }
  first.west = kTileSide * std::floor(first.west / kTileSide);
  first.south = kTileSide * std::floor(first.south / kTileSide);
  return first;
}

std::string Three_Digits(int value) {
  const std::string digits = std::to_string(value);
  return std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits;
}

using TileLists = std::map<std::string, std::vector<std::int32_t>>;

void Note_Triangle(const Corners& corners, std::int32_t number, const Square& first,
                   TileLists& lists) {
  const TileRange range = Tiles_Under(corners, first);
  for (int column = range.first_column; column <= range.last_column; ++column) {
    for (int row = range.first_row; row <= range.last_row; ++row) {
      const Square square{first.west + column * kTileSide, first.south + row * kTileSide};
      if (!Touches(corners, square)) continue;
      lists[Three_Digits(column) + Three_Digits(row) + ".bin"].push_back(number);
    }
  }
}

}  // namespace

std::string Node_Text(const SurfaceMesh& mesh) {
  std::string text;
  for (const MeshNode& node : mesh.nodes) {
    text += Fixed_Decimals(node.X, 2) + "," + Fixed_Decimals(node.Y, 2) + "," +
            Fixed_Decimals(node.Z, 3) + "\n";
  }
  return text;
}

std::string Triangle_Text(const SurfaceMesh& mesh) {
  std::string text;
  for (const auto& triangle : mesh.triangles) {
    text += std::to_string(triangle[0]) + "," + std::to_string(triangle[1]) + "," +
            std::to_string(triangle[2]) + "\n";
  }
  return text;
}

std::map<std::string, std::string> Mesh_Tiles(const SurfaceMesh& mesh) {
  const Square first = First_Square(mesh);
  TileLists lists;
  std::int32_t number = 0;
  for (const auto& triangle : mesh.triangles) {
    Note_Triangle(Corners_Of(mesh, triangle), ++number, first, lists);
  }
  std::map<std::string, std::string> tiles;
  for (const auto& [name, numbers] : lists) {
    std::string& bytes = tiles[name];
    Append_Bytes(bytes, static_cast<std::int32_t>(numbers.size()));
    for (const std::int32_t triangle : numbers) Append_Bytes(bytes, triangle);
  }
  return tiles;
}

void Write_Mesh(const SurfaceMesh& mesh, const std::string& name, const DriveMap& drives) {
  const std::string stem = "c:\\data\\demo\\" + name;
  Write_Whole_File(drives.Locate(stem + ".nod"), Node_Text(mesh));
  Write_Whole_File(drives.Locate(stem + ".tri"), Triangle_Text(mesh));
}

void Write_Mesh_Tiles(const SurfaceMesh& mesh, const DriveMap& drives) {
  for (const auto& [name, bytes] : Mesh_Tiles(mesh)) {
    Write_Whole_File(drives.Locate("c:\\data\\Tris\\" + name), bytes);
  }
}

}  // namespace sylvomex::demo
