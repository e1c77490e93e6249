// SPDX-License-Identifier: MIT
#include "interchange/delaunay.h"

#include <CGAL/Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace sylvomex {
namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Vertex = CGAL::Triangulation_vertex_base_with_info_2<std::int32_t, Kernel>;
using Data = CGAL::Triangulation_data_structure_2<Vertex>;
using Triangulation = CGAL::Delaunay_triangulation_2<Kernel, Data>;

bool Before(const MapPoint& a, const MapPoint& b) {
  return std::pair(a.X, a.Y) < std::pair(b.X, b.Y);
}

/// The first points of all places.
std::vector<std::pair<Kernel::Point_2, std::int32_t>> Places(std::span<const MapPoint> points) {
  std::vector<std::int32_t> order(points.size());
  std::iota(order.begin(), order.end(), 0);
  const auto at = [&](std::int32_t i) -> const MapPoint& {
    return points[static_cast<std::size_t>(i)];
  };
  std::stable_sort(order.begin(), order.end(),
                   [&](std::int32_t a, std::int32_t b) { return Before(at(a), at(b)); });
  std::vector<std::pair<Kernel::Point_2, std::int32_t>> places;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i > 0 && !Before(at(order[i - 1]), at(order[i]))) continue;
    places.emplace_back(Kernel::Point_2(at(order[i]).X, at(order[i]).Y), order[i]);
  }
  return places;
}

}  // namespace

std::vector<PointTriangle> Delaunay_Triangles(std::span<const MapPoint> points) {
  const auto places = Places(points);
  const Triangulation triangulation(places.begin(), places.end());
  std::vector<PointTriangle> triangles;
  triangles.reserve(triangulation.number_of_faces());
  for (auto face = triangulation.finite_faces_begin(); face != triangulation.finite_faces_end();
       ++face) {
    triangles.push_back(
        {face->vertex(0)->info(), face->vertex(1)->info(), face->vertex(2)->info()});
  }
  return triangles;
}

}  // namespace sylvomex
