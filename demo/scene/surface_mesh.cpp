// SPDX-License-Identifier: MIT
#include "demo/scene/surface_mesh.h"

#include <cmath>

#include "demo/scene/counter_random.h"
#include "platform/rounding.h"

namespace sylvomex::demo {
namespace {

constexpr std::uint64_t kGroundStream = 10;
constexpr std::uint64_t kCanopyStream = 11;
constexpr double kLargestShift = 0.2;  // as a fraction of the spacing
constexpr double kCanopyLift = 0.3;    // metres, added by loading

struct Lattice {
  double margin = 0;   // metres around the forest
  double spacing = 0;  // metres
  std::uint64_t key = 0;

  [[nodiscard]] int Squares() const {
    return static_cast<int>((kForestSide + 2 * margin) / spacing);
  }
};

double To_Decimals(double value, double per_metre) {
  return Round_Half_Even(value * per_metre) / per_metre;
}

/// Position of lattice line i of an axis, displaced unless it is a border line.
double Shifted(const Lattice& lattice, double start, int i, double uniform) {
  const bool on_border = i == 0 || i == lattice.Squares();
  const double shift = on_border ? 0 : kLargestShift * (2 * uniform - 1);
  return To_Decimals(start + (i + shift) * lattice.spacing, 100);
}

template <class HeightAt>
void Add_Nodes(const Lattice& lattice, SurfaceMesh& mesh, HeightAt&& height_at) {
  RandomDraws draws{lattice.key};
  for (int j = 0; j <= lattice.Squares(); ++j) {
    for (int i = 0; i <= lattice.Squares(); ++i) {
      MeshNode node;
      node.X = Shifted(lattice, kForestWest - lattice.margin, i, draws.Uniform());
      node.Y = Shifted(lattice, kForestSouth - lattice.margin, j, draws.Uniform());
      node.Z = To_Decimals(height_at(node.X, node.Y), 1000);
      mesh.nodes.push_back(node);
    }
  }
}

double Distance(const MeshNode& a, const MeshNode& b) { return std::hypot(a.X - b.X, a.Y - b.Y); }

void Split_Square(SurfaceMesh& mesh, std::int32_t south_west, std::int32_t row) {
  const std::int32_t a = south_west, b = a + 1, c = a + row + 1, d = a + row;
  const auto node = [&mesh](std::int32_t i) { return mesh.nodes[static_cast<std::size_t>(i)]; };
  if (Distance(node(a), node(c)) <= Distance(node(b), node(d))) {
    mesh.triangles.push_back({a, b, c});
    mesh.triangles.push_back({a, c, d});
  } else {
    mesh.triangles.push_back({a, b, d});
    mesh.triangles.push_back({b, c, d});
  }
}

template <class HeightAt>
SurfaceMesh Make_Mesh(const Lattice& lattice, HeightAt&& height_at) {
  SurfaceMesh mesh;
  Add_Nodes(lattice, mesh, height_at);
  const int squares = lattice.Squares();
  for (int j = 0; j < squares; ++j) {
    for (int i = 0; i < squares; ++i) Split_Square(mesh, j * (squares + 1) + i, squares + 1);
  }
  return mesh;
}

}  // namespace

SurfaceMesh Make_Ground_Mesh(const Scene& scene) {
  return Make_Mesh({50, 5, Stream_Key(scene.settings.seed, kGroundStream)},
                   [&](double X, double Y) { return Ground_Height(scene, X, Y); });
}

SurfaceMesh Make_Canopy_Mesh(const Scene& scene) {
  return Make_Mesh({20, 2, Stream_Key(scene.settings.seed, kCanopyStream)},
                   [&](double X, double Y) { return Canopy_Height(scene, X, Y) - kCanopyLift; });
}

}  // namespace sylvomex::demo
