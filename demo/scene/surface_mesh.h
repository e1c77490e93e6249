// SPDX-License-Identifier: MIT
// Triangulated surfaces of the scene: a square lattice of nodes that are shifted a little, so
// that no two triangles are alike, each lattice square split along its shorter diagonal.
//
// The nodes of the border stay on the border, so that the triangles cover a square without gap
// or overlap; shifts of at most a fifth of the spacing keep every lattice square convex.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "demo/scene/scene.h"

namespace sylvomex::demo {

/// Metres, rounded to what the files hold: X and Y to 1 cm, Z to 1 mm.
struct MeshNode {
  double X = 0, Y = 0, Z = 0;
};

struct SurfaceMesh {
  std::vector<MeshNode> nodes;
  std::vector<std::array<std::int32_t, 3>> triangles;  // positions in nodes, from 0, anticlockwise
};

/// The ground over the forest and 50 m around it, nodes some 5 m apart.
SurfaceMesh Make_Ground_Mesh(const Scene& scene);

/// The canopy surface over the forest and 20 m around it, nodes some 2 m apart. Each node lies
/// 0.3 m below the surface, since that much is added when a canopy model is loaded.
SurfaceMesh Make_Canopy_Mesh(const Scene& scene);

}  // namespace sylvomex::demo
