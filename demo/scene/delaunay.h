// SPDX-License-Identifier: MIT
#pragma once

#include "demo/scene/surface_mesh.h"

namespace sylvomex::demo {

/// The Delaunay triangulation of nodes in plan, anticlockwise triangles, as the dual of their
/// Voronoi diagram (de Berg et al. 2008, Computational Geometry, section 9.2). Nodes are compared
/// with a resolution of 1 mm within 2000 km of the first one; of equal nodes the first is kept.
/// Fewer than three nodes, or collinear nodes, give no triangles.
SurfaceMesh Triangulate(const std::vector<MeshNode>& nodes);

}  // namespace sylvomex::demo
