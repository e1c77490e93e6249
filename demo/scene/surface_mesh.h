// SPDX-License-Identifier: MIT
// Triangulated surfaces of the scene: a square lattice of slightly displaced nodes, so that no two
// triangles are equal, each lattice square split along its shorter diagonal.
//
// The border nodes stay on the border, so that the triangles cover a square without gap or overlap;
// displacements of at most a fifth of the spacing keep every lattice square convex.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "demo/scene/scene.h"

namespace sylvomex::demo {

/// Metres, rounded to the precision of the files: X and Y to 1 cm, Z to 1 mm.
struct MeshNode {
  double X = 0, Y = 0, Z = 0;
};

struct SurfaceMesh {
  std::vector<MeshNode> nodes;
  std::vector<std::array<std::int32_t, 3>> triangles;  // indices into nodes, from 0, anticlockwise
};

/// The ground over the forest and 50 m around it, nodes about 5 m apart.
SurfaceMesh Make_Ground_Mesh(const Scene& scene);

/// The canopy surface over the forest and 20 m around it, nodes about 2 m apart. Each node lies 0.3
/// m below the surface, because loading a canopy model adds that much.
SurfaceMesh Make_Canopy_Mesh(const Scene& scene);

}  // namespace sylvomex::demo
