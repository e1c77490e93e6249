// SPDX-License-Identifier: MIT
#include "heightmodels/tin_model.h"

#include <cmath>
#include <limits>
#include <string>

#include "closedlib/long_tasks.h"
#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "solver/heapsort.h"
#include "solver/small_matrix.h"

namespace sylvomex {
namespace {

constexpr double kTileSide = 100;  // metres
constexpr double kBoxStart = 6'000'000'000;
constexpr double kLeastUsualX = 20;
constexpr std::size_t kLeastBytesOfATriangle = 6;  // of its line: three digits, two commas, the end
constexpr float kLargestFloat = std::numeric_limits<float>::max();

double Whole_Tiles(double coordinate) { return std::floor(coordinate / kTileSide) * kTileSide; }

void Set_Tile_Bounds(TinModel& model) {
  double min_X = model.Nodes.front().X, max_X = min_X;
  double min_Y = model.Nodes.front().Y, max_Y = min_Y;
  for (const TinNode& node : model.Nodes) {
    min_X = std::min(min_X, node.X);
    max_X = std::max(max_X, node.X);
    min_Y = std::min(min_Y, node.Y);
    max_Y = std::max(max_Y, node.Y);
  }
  model.TileMinX = Whole_Tiles(min_X);
  model.TileMinY = Whole_Tiles(min_Y);
  model.TileMaxX = Whole_Tiles(max_X) + kTileSide;
  model.TileMaxY = Whole_Tiles(max_Y) + kTileSide;
}

std::int32_t Read_Node_Number(ListReader& list, const TinModel& model) {
  const std::int32_t node = list.Read_Int32();
  if (node >= 0 && node < model.NodeCount) return node;
  throw RunTimeError(Failure::SubscriptOutOfRange, list.Where() + ": node " + Plain_Text(node) +
                                                       " is not in 0 to " +
                                                       Plain_Text(model.NodeCount - 1));
}

void Set_Box(TinTriangle& t) {
  t.MinX = t.MinY = kBoxStart;
  t.MaxX = t.MaxY = -kBoxStart;
  for (const MapPoint& corner : t.Corners) {
    t.MinX = std::min(t.MinX, corner.X);
    t.MinY = std::min(t.MinY, corner.Y);
    t.MaxX = std::max(t.MaxX, corner.X);
    t.MaxY = std::max(t.MaxY, corner.Y);
  }
}

using Matrix3 = Matrix<3, 3>;

double Determinant_With_Ones(Matrix3 m, int column) {
  for (int row = 1; row <= 3; ++row) m(row, column) = 1;
  return Determinant_3(m);
}

/// Cramer's rule for PlaneA x + PlaneB y + PlaneC Z = 1 at the three corners, in the frame of
/// the triangle's box: map coordinates would cost the determinants most of their digits.
bool Solve_Plane(TinTriangle& t) {
  const double Z[] = {t.Z1, t.Z2, t.Z3};
  Matrix3 m;
  for (int row = 1; row <= 3; ++row) {
    const auto corner = static_cast<std::size_t>(row - 1);
    m(row, 1) = t.MinX - t.Corners[corner].X;
    m(row, 2) = t.MinY - t.Corners[corner].Y;
    m(row, 3) = Z[corner];
  }
  const double determinant = Determinant_3(m);
  if (determinant == 0) return false;
  t.PlaneA = Determinant_With_Ones(m, 1) / determinant;
  t.PlaneB = Determinant_With_Ones(m, 2) / determinant;
  t.PlaneC = Determinant_With_Ones(m, 3) / determinant;
  return true;
}

struct ReadTriangle {
  TinTriangle triangle;
  bool has_plane = false;
};

ReadTriangle Read_Triangle(ListReader& list, const TinModel& model) {
  ReadTriangle read;
  TinTriangle& t = read.triangle;
  t.Node1 = Read_Node_Number(list, model);
  t.Node2 = Read_Node_Number(list, model);
  t.Node3 = Read_Node_Number(list, model);
  const auto node = [&model](std::int32_t n) { return model.Nodes[static_cast<std::size_t>(n)]; };
  read.has_plane = Fill_Tin_Triangle(node(t.Node1), node(t.Node2), node(t.Node3), t);
  if (std::abs(t.MinX) > kLargestFloat) {
    throw RunTimeError(Failure::Overflow, list.Where() + ": the least X of the triangle is " +
                                              Plain_Text(t.MinX) + ", too large to be sorted");
  }
  return read;
}

void Require_Room(const ListReader& list, const TinModel& model) {
  if (model.Triangles.size() < 2 * model.Nodes.size()) return;
  throw RunTimeError(
      Failure::SubscriptOutOfRange,
      list.Where() + ": " + Plain_Text(model.NodeCount) + " nodes have two triangles each at most");
}

/// For as many triangles as can come: growing would copy all of them again and again.
void Make_Room(const FilePath& file, TinModel& model) {
  const std::uint64_t most = PositionalFile(file).Size() / kLeastBytesOfATriangle + 1;
  model.Triangles.reserve(std::min<std::uint64_t>(most, 2 * model.Nodes.size()));
}

void Sort_Index(TinModel& model, const Report& report) {
  std::vector<float> keys;
  keys.reserve(model.Triangles.size());
  for (const TinTriangle& t : model.Triangles) keys.push_back(static_cast<float>(t.MinX));
  model.Index.resize(keys.size());
  Heapsort(model.TriangleCount, keys, model.Index, report);
  model.position_of.resize(model.Index.size());
  std::int32_t position = 0;
  for (const std::int32_t number : model.Index) {
    model.position_of[static_cast<std::size_t>(number - 1)] = ++position;
  }
}

}  // namespace

void Read_Tin_Nodes(const FilePath& file, double lift, TinModel& model) {
  ListReader list(file);
  while (!list.At_End()) {
    TinNode node;
    node.X = list.Read_Double();
    node.Y = list.Read_Double();
    node.Z = list.Read_Double() + lift;
    model.Nodes.push_back(node);
  }
  if (model.Nodes.empty()) {
    throw RunTimeError(Failure::InputPastEnd, file.name + ": no node", file.native);
  }
  model.NodeCount = static_cast<std::int32_t>(model.Nodes.size());
  Set_Tile_Bounds(model);
}

bool Fill_Tin_Triangle(const TinNode& a, const TinNode& b, const TinNode& c, TinTriangle& t) {
  t.X1 = a.X, t.Y1 = a.Y, t.Z1 = a.Z;
  t.X2 = b.X, t.Y2 = b.Y, t.Z2 = b.Z;
  t.X3 = c.X, t.Y3 = c.Y, t.Z3 = c.Z;
  t.Corners = {MapPoint{a.X, a.Y}, MapPoint{b.X, b.Y}, MapPoint{c.X, c.Y}};
  Set_Box(t);
  return Solve_Plane(t);
}

bool Read_Tin_Triangles(const FilePath& file, TinModel& model, const Report& report) {
  ListReader list(file);
  if (list.At_End()) {
    throw RunTimeError(Failure::InputPastEnd, file.name + ": no triangle", file.native);
  }
  Make_Room(file, model);
  while (!list.At_End()) {
    const ReadTriangle read = Read_Triangle(list, model);
    Require_Room(list, model);
    if (read.triangle.MinX < kLeastUsualX) report("!");
    if (!read.has_plane) {
      report("Cant divide with zero!");
      return false;
    }
    model.Triangles.push_back(read.triangle);
    ++model.TriangleCount;
  }
  return true;
}

void Index_Tin(TinModel& model, const Report& report) {
  std::string trouble;
  Run_Long_Tasks(3, [&](int task) {
    if (task == 0) {
      Sort_Index(model, [&trouble](std::string_view sentence) { trouble = sentence; });
    } else if (task == 1) {
      model.faces = Make_Tin_Faces(model.Triangles, model.NodeCount);
    } else {
      model.buckets = Make_Tin_Buckets(model.Triangles);
    }
  });
  if (model.buckets.columns == 0) model.faces = {};  // nothing is certain without the buckets
  if (!trouble.empty()) report(trouble);
}

}  // namespace sylvomex
