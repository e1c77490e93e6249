// SPDX-License-Identifier: MIT
// Why an answer is certain. Call a triangle well-shaped when its size and shape keep rounding
// errors far below kClearOfEdge; all well-shaped triangles are oriented counter-clockwise. An edge
// that two of them share in opposite directions cancels; the remaining edges are the outline. The
// number of well-shaped triangles that cover a point equals the winding number of the outline
// round it. Cells near the outline or near a triangle that is not well-shaped are closed (start
// 0); of the others, those with winding number 1 are covered exactly once. A point of such a cell
// that is clear of the edges of the well-shaped triangle round it lies in no other triangle, also
// not by the rounding of the exact test.
#include "heightmodels/tin_faces.h"

#include <array>
#include <cmath>

#include "heightmodels/tin_sides.h"
#include "heightmodels/tin_walk.h"
#include "platform/many_steps.h"

namespace sylvomex {
namespace {

constexpr double kCellsATriangle = 3;
constexpr double kMostLines = 16384;
constexpr double kLargestCoordinate = 1e12;
constexpr double kLeastShape = 1e-3;  // least height / longest edge of a well-shaped triangle
// Least longest edge of a well-shaped triangle, as a fraction of the largest coordinate. The
// rounding of an origin, 2^-24 of the grid's side and so 2^-23 of the largest coordinate, is then
// at most twelve such edges, and the distances err by less than 8e-6.
constexpr double kLeastSize = 1e-8;
constexpr double kLeastEdge = 1e-9;  // metres
constexpr double kMostCover = 2;     // area of all triangles / area of the grid
constexpr std::int32_t kOpenCell = -1;
constexpr std::int32_t kClosedCell = 0;

using Corners = std::array<MapPoint, 3>;

struct Extent {
  double west = 0, south = 0, east = 0, north = 0;
  double largest = 0;  // absolute coordinate
};

Extent Extent_Of(std::span<const TinTriangle> triangles) {
  const MapPoint& any = triangles.front().Corners[0];
  Extent e{any.X, any.Y, any.X, any.Y, 0};
  for (const TinTriangle& t : triangles) {
    for (const MapPoint& p : t.Corners) {
      e.west = std::min(e.west, p.X);
      e.east = std::max(e.east, p.X);
      e.south = std::min(e.south, p.Y);
      e.north = std::max(e.north, p.Y);
    }
  }
  e.largest = std::max({std::abs(e.west), std::abs(e.east), std::abs(e.south), std::abs(e.north)});
  return e;
}

double Twice_Area(const Corners& c) {
  return (c[1].X - c[0].X) * (c[2].Y - c[0].Y) - (c[2].X - c[0].X) * (c[1].Y - c[0].Y);
}

double Longest_Edge(const Corners& c) {
  const auto squared = [&](std::size_t i, std::size_t j) {
    const double dx = c[j].X - c[i].X, dy = c[j].Y - c[i].Y;
    return dx * dx + dy * dy;
  };
  return std::sqrt(std::max({squared(0, 1), squared(1, 2), squared(2, 0)}));
}

struct OutlineEdge {
  MapPoint from, to;
  std::int32_t times = 1;
};

/// The corners or nodes of a triangle in counter-clockwise order: its edges run from 0 to 1,
/// 1 to 2 and 2 to 0.
template <class Corner>
std::array<Corner, 3> Turned(std::array<Corner, 3> corners, bool clockwise) {
  if (clockwise) std::swap(corners[1], corners[2]);
  return corners;
}

void Set_Distances(TinFace& face, const Corners& c, const MapPoint& corner, double longest) {
  const double origin_X = corner.X + face.origin[0], origin_Y = corner.Y + face.origin[1];
  for (std::size_t k = 0; k < 3; ++k) {
    const MapPoint& p = c[k];
    const MapPoint& q = c[(k + 1) % 3];
    const double dx = q.X - p.X, dy = q.Y - p.Y;
    const double scale = 1 / (longest * std::sqrt(dx * dx + dy * dy));
    const double a = -dy * scale, b = dx * scale;
    face.A[k] = static_cast<float>(a);
    face.B[k] = static_cast<float>(b);
    face.C[k] = static_cast<float>(-(a * (p.X - origin_X) + b * (p.Y - origin_Y)));
  }
}

class FaceMaker {
 public:
  FaceMaker(std::span<const TinTriangle> triangles, std::int32_t node_count)
      : triangles_(triangles), node_count_(node_count) {}

  TinFaces Make() {
    if (triangles_.empty() || triangles_.size() > kMostJoinedTriangles) return {};
    WorkMeter stages(5);
    if (!Lay_Grid()) return {};
    stages.Task();
    if (!Make_Faces()) return {};
    stages.Task();
    Join_Faces();
    stages.Task();
    if (!Outline_Is_Short()) return {};
    Wind_Round_Outline();
    Close_Cells();
    Scatter_Starts();
    stages.Task();
    Find_Starts_At_Centres();
    return std::move(f_);
  }

 private:
  bool Lay_Grid() {
    extent_ = Extent_Of(triangles_);
    const double width = extent_.east - extent_.west, height = extent_.north - extent_.south;
    if (!(extent_.largest <= kLargestCoordinate && width > 0 && height > 0)) return false;
    const double cells = kCellsATriangle * static_cast<double>(triangles_.size());
    f_.cells_per_metre =
        std::min({std::sqrt(cells / (width * height)), kMostLines / width, kMostLines / height});
    least_edge_ = std::max(kLeastEdge, kLeastSize * extent_.largest);
    f_.west = extent_.west;
    f_.south = extent_.south;
    f_.columns = std::floor(width * f_.cells_per_metre) + 1;
    f_.rows = std::floor(height * f_.cells_per_metre) + 1;
    columns_ = static_cast<std::int32_t>(f_.columns);
    rows_ = static_cast<std::int32_t>(f_.rows);
    Make_Cells(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_) + 1);
    return true;
  }

  /// In pieces, since a machine whose memory is in small parts may take a second to find large
  /// pages.
  void Make_Cells(std::size_t count) {
    constexpr std::size_t kPiece = std::size_t{1} << 20;
    f_.starts.reserve(count);
    WorkMeter pieces(static_cast<double>(count) / kPiece);
    while (f_.starts.size() < count) {
      f_.starts.resize(std::min(count, f_.starts.size() + kPiece));
      pieces.Task();
    }
  }

  /// False when the triangles cannot lie side by side in the grid.
  bool Make_Faces() {
    f_.faces.reserve(triangles_.size() + 1);
    f_.faces.resize(1);
    well_shaped_.assign(triangles_.size(), 0);
    nodes_.resize(triangles_.size());
    centre_cells_.resize(triangles_.size());
    double cover = 0;
    ManySteps steps(static_cast<double>(triangles_.size()));
    for (std::size_t i = 0; i < triangles_.size(); ++i) {
      steps.Step();
      const TinTriangle& t = triangles_[i];
      TinFace& face = f_.faces.emplace_back();
      face.origin[0] = static_cast<float>(std::min({t.X1, t.X2, t.X3}) - f_.west);
      face.origin[1] = static_cast<float>(std::min({t.Y1, t.Y2, t.Y3}) - f_.south);
      nodes_[i][0] = -1;
      const double area = Twice_Area(t.Corners), longest = Longest_Edge(t.Corners);
      const bool is_well_shaped =
          std::abs(area) >= kLeastShape * longest * longest && longest >= least_edge_;
      if (!is_well_shaped) continue;
      well_shaped_[i] = area < 0 ? -1 : 1;
      face.beyond[3] = static_cast<std::int32_t>(i + 1);
      cover += std::abs(area) / 2;
      centre_cells_[i] = Centre_Cell(t.Corners);
      nodes_[i] = Turned(TurnedNodes{t.Node1, t.Node2, t.Node3}, area < 0);
      Set_Distances(face, Turned(t.Corners, area < 0), {f_.west, f_.south}, longest);
    }
    return cover <= kMostCover * f_.columns * f_.rows / (f_.cells_per_metre * f_.cells_per_metre);
  }

  [[nodiscard]] Corners Turned_At(std::size_t i) const {
    return Turned(triangles_[i].Corners, well_shaped_[i] < 0);
  }

  void Join_Faces() {
    for (const LooseSides& sides : Join_Sides(nodes_, node_count_, f_.faces)) {
      const Corners c = Turned_At(static_cast<std::size_t>(sides.first.number - 1));
      const auto k = static_cast<std::size_t>(sides.first.edge);
      outline_.push_back({c[k], c[(k + 1) % 3], sides.times});
    }
  }

  [[nodiscard]] std::int32_t Column(double X) const {
    return static_cast<std::int32_t>(
        std::clamp(std::floor((X - f_.west) * f_.cells_per_metre), -2.0, f_.columns + 1));
  }
  [[nodiscard]] std::int32_t Row(double Y) const {
    return static_cast<std::int32_t>(
        std::clamp(std::floor((Y - f_.south) * f_.cells_per_metre), -2.0, f_.rows + 1));
  }
  [[nodiscard]] double Row_Centre(std::int32_t row) const {
    return f_.south + (row + 0.5) / f_.cells_per_metre;
  }
  [[nodiscard]] std::size_t Cell(std::int32_t column, std::int32_t row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
  }

  /// The cell of a triangle's centre, or one beside it.
  [[nodiscard]] std::uint32_t Centre_Cell(const Corners& c) const {
    const double X = (c[0].X + c[1].X + c[2].X) / 3, Y = (c[0].Y + c[1].Y + c[2].Y) / 3;
    return static_cast<std::uint32_t>(
        Cell(std::clamp(Column(X), 0, columns_ - 1), std::clamp(Row(Y), 0, rows_ - 1)));
  }

  /// Limits the work on input that is not a triangulation.
  [[nodiscard]] bool Outline_Is_Short() const {
    double rows = 0;
    const auto count = [&](double low, double high) {
      rows += std::abs(high - low) * f_.cells_per_metre + 3;
    };
    for (const OutlineEdge& edge : outline_) count(edge.from.Y, edge.to.Y);
    for (std::size_t i = 0; i < triangles_.size(); ++i) {
      if (well_shaped_[i] == 0) count(triangles_[i].MinY, triangles_[i].MaxY);
    }
    return rows <= 20 * static_cast<double>(triangles_.size()) + 1e5;
  }

  /// Opens the cells round which the outline winds once, seen from their row's centre line.
  void Wind_Round_Outline() {
    for (const OutlineEdge& edge : outline_) Add_Crossings(edge);
    for (std::int32_t row = 0; row < rows_; ++row) {
      std::int32_t winding = 0;
      for (std::int32_t column = 0; column < columns_; ++column) {
        std::int32_t& cell = f_.starts[Cell(column, row)];
        winding += cell;
        cell = winding == 1 ? kOpenCell : kClosedCell;
      }
    }
  }

  /// Going down an edge of a counter-clockwise outline the inside lies to the east.
  void Add_Crossings(const OutlineEdge& edge) {
    const double low = std::min(edge.from.Y, edge.to.Y), high = std::max(edge.from.Y, edge.to.Y);
    const std::int32_t sign = edge.from.Y > edge.to.Y ? edge.times : -edge.times;
    for (std::int32_t row = std::max(0, Row(low) - 1); row <= std::min(rows_ - 1, Row(high) + 1);
         ++row) {
      const double Y = Row_Centre(row);
      if (!(low < Y && Y <= high)) continue;
      const double share = (Y - edge.from.Y) / (edge.to.Y - edge.from.Y);
      const double X = edge.from.X + share * (edge.to.X - edge.from.X);
      f_.starts[Cell(std::clamp(Column(X), 0, columns_ - 1), row)] += sign;
    }
  }

  void Close_Cells() {
    for (const OutlineEdge& edge : outline_) Close_Near(std::array{edge.from, edge.to});
    for (std::size_t i = 0; i < triangles_.size(); ++i) {
      if (well_shaped_[i] == 0) Close_Near(triangles_[i].Corners);
    }
  }

  /// Closes the cells that a polygon touches, and one more on every side.
  void Close_Near(std::span<const MapPoint> polygon) {
    const auto [low, high] = std::ranges::minmax(polygon, {}, &MapPoint::Y);
    const std::int32_t last = std::min(rows_ - 1, Row(high.Y) + 1);
    for (std::int32_t row = std::max(0, Row(low.Y) - 1); row <= last; ++row) {
      const double side = 1 / f_.cells_per_metre;
      Close_In_Row(polygon, row, Row_Centre(row) - 1.5 * side, Row_Centre(row) + 1.5 * side);
    }
  }

  /// south, north: the part of the polygon that counts.
  void Close_In_Row(std::span<const MapPoint> polygon, std::int32_t row, double south,
                    double north) {
    double west = extent_.east, east = extent_.west;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
      const MapPoint& p = polygon[i];
      const MapPoint& q = polygon[(i + 1) % polygon.size()];
      const double rise = q.Y - p.Y;
      for (const double end : {south, north}) {
        const double Y = std::clamp(end, std::min(p.Y, q.Y), std::max(p.Y, q.Y));
        if (Y < south || Y > north) continue;
        const double share = rise == 0 ? 0 : (Y - p.Y) / rise;
        const double X = p.X + share * (q.X - p.X);
        west = std::min({west, X, rise == 0 ? q.X : X});
        east = std::max({east, X, rise == 0 ? q.X : X});
      }
    }
    const std::int32_t last = std::min(columns_ - 1, Column(east) + 1);
    for (std::int32_t column = std::max(0, Column(west) - 1); column <= last; ++column) {
      f_.starts[Cell(column, row)] = kClosedCell;
    }
  }

  /// Gives the open cell at the centre of each triangle its number.
  void Scatter_Starts() {
    for (std::size_t i = 0; i < triangles_.size(); ++i) {
      if (well_shaped_[i] == 0) continue;
      std::int32_t& start = f_.starts[centre_cells_[i]];
      if (start == kOpenCell) start = static_cast<std::int32_t>(i + 1);
    }
  }

  void Find_Starts_At_Centres() {
    WorkMeter meter(rows_);
    for (std::int32_t row = 0; row < rows_; ++row) {
      Guess_Starts(row);
      Walk_To_Centres(row);
      meter.Task();
    }
  }

  /// Gives the open cells that have none the number of a neighbour: of the row before, else in
  /// their own.
  void Guess_Starts(std::int32_t row) {
    const auto columns = static_cast<std::size_t>(columns_);
    std::int32_t* starts = &f_.starts[Cell(0, row)];
    const std::int32_t* before = row == 0 ? starts : starts - columns_;
    std::int32_t last = kOpenCell;
    for (std::size_t column = 0; column < columns; ++column) {
      const std::int32_t near = before[column] > 0 ? before[column] : last;
      starts[column] = starts[column] == kOpenCell ? near : starts[column];
      last = starts[column] > 0 ? starts[column] : last;
    }
    std::int32_t next = kClosedCell;
    for (std::size_t column = columns; column-- > 0 && last != kOpenCell;) {
      starts[column] = starts[column] == kOpenCell ? next : starts[column];
      next = starts[column] > 0 ? starts[column] : next;
    }
  }

  /// From its guess to the triangle at each cell's centre, where that is certain.
  void Walk_To_Centres(std::int32_t row) {
    const double side = 1 / f_.cells_per_metre;
    std::array<MapPoint, kMostWalkers> centres;
    std::array<std::int32_t, kMostWalkers> numbers;
    for (std::int32_t first = 0; first < columns_;
         first += static_cast<std::int32_t>(kMostWalkers)) {
      const std::size_t count = std::min(kMostWalkers, static_cast<std::size_t>(columns_ - first));
      std::int32_t* starts = &f_.starts[Cell(first, row)];
      for (std::size_t k = 0; k < count; ++k) {
        centres[k] = {f_.west + (first + static_cast<double>(k) + 0.5) * side, Row_Centre(row)};
        starts[k] = std::max(starts[k], kClosedCell);
        numbers[k] = starts[k];
      }
      Walk_To_Holders(f_, std::span(centres).first(count), numbers.data());
      for (std::size_t k = 0; k < count; ++k) starts[k] = numbers[k] > 0 ? numbers[k] : starts[k];
    }
  }

  std::span<const TinTriangle> triangles_;
  std::int32_t node_count_;
  Extent extent_;
  double least_edge_ = 0;  // least longest edge of a well-shaped triangle, metres
  std::int32_t columns_ = 0, rows_ = 0;
  std::vector<std::int8_t>
      well_shaped_;  // of each triangle: 1 or, given clockwise, -1; 0: not well-shaped
  std::vector<TurnedNodes> nodes_;
  std::vector<std::uint32_t> centre_cells_;  // of each well-shaped triangle
  std::vector<OutlineEdge> outline_;
  TinFaces f_;
};

}  // namespace

TinFaces Make_Tin_Faces(std::span<const TinTriangle> triangles, std::int32_t node_count) {
  return FaceMaker(triangles, node_count).Make();
}

}  // namespace sylvomex
