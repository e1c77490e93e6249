// SPDX-License-Identifier: MIT
// Why an answer is certain. Let the sound triangles be those whose size and shape keep rounding
// far below kClearOfEdge; all are turned counter-clockwise. Where two of them share an edge in
// opposite directions the edge cancels; the rest is the outline. How often a point is covered by
// sound triangles is then the outline's winding number round it. Cells that the outline or a
// triangle that is not sound comes near are closed (start 0); of the others, those with winding
// number 1 are covered once. A point of such a cell that is clear of the edges of the sound
// triangle round it lies in no other triangle, also not by the rounding of the exact test.
#include "heightmodels/tin_faces.h"

#include <array>
#include <cmath>

namespace sylvomex {
namespace {

constexpr double kCellsATriangle = 5;
constexpr double kMostLines = 16384;
constexpr double kLeastShape = 1e-3;  // height over the longest edge of a sound triangle
constexpr double kLeastSize = 1e-8;   // of a sound triangle, in largest coordinates
constexpr double kMostCover = 2;      // area of the triangles in areas of the grid
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

/// A triangle's edge as its lower node sees it.
struct HalfEdge {
  std::int32_t far_node = 0;
  std::int32_t number = 0;  // of the triangle
  std::int8_t edge = 0;     // of the face, 0 to 2
  bool outward = false;     // leads from the lower node to the far one
};

struct OutlineEdge {
  MapPoint from, to;
  std::int32_t times = 1;
};

/// Edges from corner 0 to 1, 1 to 2, 2 to 0 of a triangle that has been turned round when it
/// came clockwise.
struct TurnedTriangle {
  Corners corners;
  std::array<std::int32_t, 3> nodes{};
};

TurnedTriangle Turned(const TinTriangle& t, bool clockwise) {
  TurnedTriangle turned{t.Corners, {t.Node1, t.Node2, t.Node3}};
  if (clockwise) {
    std::swap(turned.corners[1], turned.corners[2]);
    std::swap(turned.nodes[1], turned.nodes[2]);
  }
  return turned;
}

void Set_Distances(TinFace& face, const Corners& c, double longest) {
  for (std::size_t k = 0; k < 3; ++k) {
    const MapPoint& p = c[k];
    const MapPoint& q = c[(k + 1) % 3];
    const double dx = q.X - p.X, dy = q.Y - p.Y;
    const double scale = 1 / (longest * std::sqrt(dx * dx + dy * dy));
    const double a = -dy * scale, b = dx * scale;
    face.A[k] = static_cast<float>(a);
    face.B[k] = static_cast<float>(b);
    face.C[k] = static_cast<float>(-(a * (p.X - face.MinX) + b * (p.Y - face.MinY)));
  }
}

class FaceMaker {
 public:
  FaceMaker(std::span<const TinTriangle> triangles, std::int32_t node_count)
      : triangles_(triangles), node_count_(static_cast<std::size_t>(node_count)) {}

  TinFaces Make() {
    if (triangles_.empty() || !Lay_Grid()) return {};
    if (!Make_Faces()) return {};
    Join_Faces();
    if (!Outline_Is_Short()) return {};
    Wind_Round_Outline();
    Close_Cells();
    for (std::size_t i = 0; i < triangles_.size(); ++i) {
      if (sound_[i] != 0) Start_Cells_At(i);
    }
    return std::move(f_);
  }

 private:
  bool Lay_Grid() {
    extent_ = Extent_Of(triangles_);
    const double width = extent_.east - extent_.west, height = extent_.north - extent_.south;
    if (!(extent_.largest <= 1e100 && width > 0 && height > 0)) return false;
    const double cells = kCellsATriangle * static_cast<double>(triangles_.size());
    f_.cells_per_metre =
        std::min({std::sqrt(cells / (width * height)), kMostLines / width, kMostLines / height});
    f_.west = extent_.west;
    f_.south = extent_.south;
    f_.columns = std::floor(width * f_.cells_per_metre) + 1;
    f_.rows = std::floor(height * f_.cells_per_metre) + 1;
    columns_ = static_cast<std::int32_t>(f_.columns);
    rows_ = static_cast<std::int32_t>(f_.rows);
    f_.starts.assign(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_), 0);
    return true;
  }

  /// False when the triangles cannot lie side by side in the grid.
  bool Make_Faces() {
    f_.faces.resize(triangles_.size());
    sound_.assign(triangles_.size(), 0);
    double cover = 0;
    for (std::size_t i = 0; i < triangles_.size(); ++i) {
      const TinTriangle& t = triangles_[i];
      TinFace& face = f_.faces[i];
      face.MinX = std::min({t.X1, t.X2, t.X3});
      face.MinY = std::min({t.Y1, t.Y2, t.Y3});
      const double area = Twice_Area(t.Corners), longest = Longest_Edge(t.Corners);
      const bool sound = std::abs(area) >= kLeastShape * longest * longest &&
                         longest >= kLeastSize * extent_.largest && longest > 0;
      if (!sound) continue;
      sound_[i] = area < 0 ? -1 : 1;
      cover += std::abs(area) / 2;
      Set_Distances(face, Turned(t, area < 0).corners, longest);
    }
    return cover <= kMostCover * f_.columns * f_.rows / (f_.cells_per_metre * f_.cells_per_metre);
  }

  [[nodiscard]] TurnedTriangle Turned_At(std::size_t i) const {
    return Turned(triangles_[i], sound_[i] < 0);
  }

  template <class Visit>
  void For_Each_Half_Edge(Visit&& visit) const {
    for (std::size_t i = 0; i < triangles_.size(); ++i) {
      if (sound_[i] == 0) continue;
      const auto [corners, nodes] = Turned_At(i);
      for (std::size_t k = 0; k < 3; ++k) {
        const std::int32_t from = nodes[k], to = nodes[(k + 1) % 3];
        visit(std::min(from, to), HalfEdge{std::max(from, to), static_cast<std::int32_t>(i + 1),
                                           static_cast<std::int8_t>(k), from < to});
      }
    }
  }

  /// Half edges by their lower node, then pairs of each into neighbours.
  void Join_Faces() {
    std::vector<std::uint32_t> first(node_count_ + 1);
    For_Each_Half_Edge(
        [&](std::int32_t node, const HalfEdge&) { ++first[static_cast<std::size_t>(node) + 1]; });
    for (std::size_t node = 0; node < node_count_; ++node) first[node + 1] += first[node];
    std::vector<HalfEdge> edges(first.back());
    std::vector<std::uint32_t> next(first.begin(), first.end() - 1);
    For_Each_Half_Edge([&](std::int32_t node, const HalfEdge& edge) {
      edges[next[static_cast<std::size_t>(node)]++] = edge;
    });
    for (std::size_t node = 0; node < node_count_; ++node) {
      Join_At_Node(std::span(edges).subspan(first[node], first[node + 1] - first[node]));
    }
  }

  void Join_At_Node(std::span<HalfEdge> edges) {
    std::ranges::sort(edges, {}, &HalfEdge::far_node);
    for (std::size_t i = 0; i < edges.size();) {
      std::size_t end = i + 1;
      while (end < edges.size() && edges[end].far_node == edges[i].far_node) ++end;
      Join(edges.subspan(i, end - i));
      i = end;
    }
  }

  /// Everything that lies on one edge.
  void Join(std::span<const HalfEdge> group) {
    if (group.size() == 2 && group[0].outward != group[1].outward) {
      Neighbour(group[0]) = group[1].number;
      Neighbour(group[1]) = group[0].number;
      return;
    }
    std::int32_t times = 0;
    for (const HalfEdge& edge : group) times += edge.outward == group[0].outward ? 1 : -1;
    if (times == 0) return;
    const Corners corners = Turned_At(static_cast<std::size_t>(group[0].number - 1)).corners;
    const auto k = static_cast<std::size_t>(group[0].edge);
    outline_.push_back({corners[k], corners[(k + 1) % 3], times});
  }

  std::int32_t& Neighbour(const HalfEdge& edge) {
    return f_.faces[static_cast<std::size_t>(edge.number - 1)].neighbour[edge.edge];
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

  /// Bounds the work on models that are no triangulation.
  [[nodiscard]] bool Outline_Is_Short() const {
    double rows = 0;
    const auto count = [&](double low, double high) {
      rows += std::abs(high - low) * f_.cells_per_metre + 3;
    };
    for (const OutlineEdge& edge : outline_) count(edge.from.Y, edge.to.Y);
    for (std::size_t i = 0; i < triangles_.size(); ++i) {
      if (sound_[i] == 0) count(triangles_[i].MinY, triangles_[i].MaxY);
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
      if (sound_[i] == 0) Close_Near(triangles_[i].Corners);
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

  /// Gives the open cells whose centres lie in a triangle its number.
  void Start_Cells_At(std::size_t i) {
    Corners c = triangles_[i].Corners;
    for (MapPoint& p : c) {  // in cells, from the centre of the first one
      p.X = (p.X - f_.west) * f_.cells_per_metre - 0.5;
      p.Y = (p.Y - f_.south) * f_.cells_per_metre - 0.5;
    }
    std::ranges::sort(c, {}, &MapPoint::Y);
    const double whole_slope = (c[2].X - c[0].X) / (c[2].Y - c[0].Y);
    const double low_slope = (c[1].X - c[0].X) / (c[1].Y - c[0].Y);
    const double high_slope = (c[2].X - c[1].X) / (c[2].Y - c[1].Y);
    const std::int32_t last_row =
        std::min(rows_ - 1, static_cast<std::int32_t>(std::floor(c[2].Y)));
    for (auto row = static_cast<std::int32_t>(std::max(0.0, std::ceil(c[0].Y))); row <= last_row;
         ++row) {
      const double one_end = c[0].X + (row - c[0].Y) * whole_slope;
      const double other_end =
          row < c[1].Y ? c[0].X + (row - c[0].Y) * low_slope : c[2].X + (row - c[2].Y) * high_slope;
      Start_Cells_Between(one_end, other_end, row, static_cast<std::int32_t>(i + 1));
    }
  }

  void Start_Cells_Between(double one_end, double other_end, std::int32_t row,
                           std::int32_t number) {
    const double west = std::ceil(std::min(one_end, other_end));
    const double east = std::floor(std::max(one_end, other_end));
    if (!(west <= east)) return;
    const auto last = static_cast<std::int32_t>(std::min(east, f_.columns - 1));
    for (auto column = static_cast<std::int32_t>(std::max(west, 0.0)); column <= last; ++column) {
      std::int32_t& start = f_.starts[Cell(column, row)];
      if (start == kOpenCell) start = number;
    }
  }

  std::span<const TinTriangle> triangles_;
  std::size_t node_count_;
  Extent extent_;
  std::int32_t columns_ = 0, rows_ = 0;
  std::vector<std::int8_t> sound_;  // of each triangle: 1, -1 came clockwise, 0 is not sound
  std::vector<OutlineEdge> outline_;
  TinFaces f_;
};

}  // namespace

TinFaces Make_Tin_Faces(std::span<const TinTriangle> triangles, std::int32_t node_count) {
  return FaceMaker(triangles, node_count).Make();
}

}  // namespace sylvomex
