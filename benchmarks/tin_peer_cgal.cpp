// SPDX-License-Identifier: MIT
#include <CGAL/Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Projection_traits_xy_3.h>
#include <CGAL/Spatial_sort_traits_adapter_2.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>
#include <CGAL/property_map.h>
#include <CGAL/spatial_sort.h>

#include <memory>
#include <numeric>
#include <utility>

#include "tin_peers.h"

namespace sylvomex::bench {
namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Traits = CGAL::Projection_traits_xy_3<Kernel>;
using Vertex = CGAL::Triangulation_vertex_base_with_info_2<std::int32_t, Traits>;
using Structure =
    CGAL::Triangulation_data_structure_2<Vertex, CGAL::Triangulation_face_base_2<Traits>>;
using Delaunay = CGAL::Delaunay_triangulation_2<Traits, Structure>;
using Point = Kernel::Point_3;

double Height_In(Delaunay::Face_handle face, const MapPoint& p) {
  const Point& a = face->vertex(0)->point();
  const Point& b = face->vertex(1)->point();
  const Point& c = face->vertex(2)->point();
  const double d = (b.x() - a.x()) * (c.y() - a.y()) - (c.x() - a.x()) * (b.y() - a.y());
  const double u = ((p.X - a.x()) * (c.y() - a.y()) - (c.x() - a.x()) * (p.Y - a.y())) / d;
  const double v = ((b.x() - a.x()) * (p.Y - a.y()) - (p.X - a.x()) * (b.y() - a.y())) / d;
  return a.z() + u * (b.z() - a.z()) + v * (c.z() - a.z());
}

/// Locates each point starting from the face of the previous one.
void From_Face_To_Face(const Delaunay& tin, std::span<const MapPoint> places,
                       std::span<double> heights) {
  Delaunay::Face_handle face;
  for (std::size_t i = 0; i < places.size(); ++i) {
    face = tin.locate(Point(places[i].X, places[i].Y, 0), face);
    heights[i] = Height_In(face, places[i]);
  }
}

/// The same in spatially sorted order; the sorting is included in the time.
void Sorted(const Delaunay& tin, std::span<const MapPoint> places, std::span<double> heights) {
  using Adapter =
      CGAL::Spatial_sort_traits_adapter_2<Traits, CGAL::Pointer_property_map<Point>::type>;
  std::vector<Point> points;
  for (const MapPoint& p : places) points.emplace_back(p.X, p.Y, 0);
  std::vector<std::size_t> order(points.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  CGAL::spatial_sort(order.begin(), order.end(), Adapter(CGAL::make_property_map(points)));
  Delaunay::Face_handle face;
  for (const std::size_t i : order) {
    face = tin.locate(points[i], face);
    heights[i] = Height_In(face, places[i]);
  }
}

}  // namespace

TinPeers Cgal_Tin(const std::vector<TinNode>& nodes) {
  std::vector<std::pair<Point, std::int32_t>> points;
  for (const TinNode& n : nodes) {
    points.emplace_back(Point(n.X, n.Y, n.Z), static_cast<std::int32_t>(points.size()));
  }
  const auto tin = std::make_shared<Delaunay>(points.begin(), points.end());
  TinPeers found;
  for (auto face = tin->finite_faces_begin(); face != tin->finite_faces_end(); ++face) {
    found.triples.push_back(
        {face->vertex(0)->info(), face->vertex(1)->info(), face->vertex(2)->info()});
  }
  TinPeer peer;
  peer.name = "cgal";
  peer.random = [tin](auto places, auto heights) { Sorted(*tin, places, heights); };
  peer.scan = [tin](auto places, auto heights) { From_Face_To_Face(*tin, places, heights); };
  found.peers.push_back(peer);
  return found;
}

}  // namespace sylvomex::bench
