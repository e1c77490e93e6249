// SPDX-License-Identifier: MIT
#include "demo/scene/delaunay.h"

#include <boost/polygon/voronoi.hpp>
#include <cmath>
#include <set>
#include <utility>

namespace sylvomex::demo {
namespace {

using Site = boost::polygon::point_data<std::int32_t>;
using Diagram = boost::polygon::voronoi_diagram<double>;

constexpr double kUnitsPerMetre = 1000;

Site Site_Of(const MeshNode& node, const MeshNode& origin) {
  return {static_cast<std::int32_t>(std::lround((node.X - origin.X) * kUnitsPerMetre)),
          static_cast<std::int32_t>(std::lround((node.Y - origin.Y) * kUnitsPerMetre))};
}

/// Sites around a Voronoi vertex, anticlockwise.
std::vector<std::int32_t> Sites_Around(const Diagram::vertex_type& vertex) {
  std::vector<std::int32_t> sites;
  const auto* edge = vertex.incident_edge();
  do {
    sites.push_back(static_cast<std::int32_t>(edge->cell()->source_index()));
    edge = edge->rot_next();
  } while (edge != vertex.incident_edge());
  return sites;
}

}  // namespace

SurfaceMesh Triangulate(const std::vector<MeshNode>& nodes) {
  SurfaceMesh mesh;
  std::vector<Site> sites;
  std::set<std::pair<std::int32_t, std::int32_t>> taken;
  for (const MeshNode& node : nodes) {
    const Site site = Site_Of(node, nodes.front());
    if (!taken.emplace(site.x(), site.y()).second) continue;
    sites.push_back(site);
    mesh.nodes.push_back(node);
  }
  if (sites.size() < 3) return mesh;
  Diagram diagram;
  boost::polygon::construct_voronoi(sites.begin(), sites.end(), &diagram);
  // A vertex with more than three sites: they lie on one circle and give a fan of triangles.
  for (const auto& vertex : diagram.vertices()) {
    const std::vector<std::int32_t> around = Sites_Around(vertex);
    for (std::size_t k = 2; k < around.size(); ++k) {
      mesh.triangles.push_back({around[0], around[k - 1], around[k]});
    }
  }
  return mesh;
}

}  // namespace sylvomex::demo
