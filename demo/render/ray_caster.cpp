// SPDX-License-Identifier: MIT
#include "demo/render/ray_caster.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "demo/scene/value_noise.h"

namespace sylvomex::demo {
namespace {

constexpr std::uint64_t kGapKey = 0xA24BAED4963EE407U;

struct TreeHit {
  SurfaceHit::Kind kind = SurfaceHit::Kind::Crown;
  int tree = -1;
  double t = 1e30;
};

Vector3 Crown_Normal(const Tree& tree, double X, double Y, double Z) {
  const double dx = X - tree.X, dy = Y - tree.Y;
  const double distance = std::max(std::sqrt(dx * dx + dy * dy), 1e-6);
  const double slope = Crown_Outline(tree, tree.TopZ - Z).slope;
  const double scale = 1 / std::sqrt(1 + slope * slope);
  return {dx / distance * scale, dy / distance * scale, slope * scale};
}

/// Foliage is closed within 0.5 m of the top; below that, the share of gaps grows with grazing
/// incidence.
bool Is_Gap(const Tree& tree, const Ray& ray, double t) {
  constexpr double closed_top = 0.5, grazing = 0.6, lattice = 0.38;  // metres, cosine, metres
  const double Z = ray.z + t * ray.w;
  if (tree.TopZ - Z < closed_top) return false;
  const double X = ray.x + t * ray.u, Y = ray.y + t * ray.v;
  const Vector3 n = Crown_Normal(tree, X, Y, Z);
  const double length = std::sqrt(ray.u * ray.u + ray.v * ray.v + ray.w * ray.w);
  const double facing = std::abs(n.x * ray.u + n.y * ray.v + n.z * ray.w) / length;
  if (facing >= grazing) return false;
  const double noise =
      Value_Noise(kGapKey + static_cast<std::uint64_t>(tree.id), (X - tree.X) / lattice,
                  (Y - tree.Y) / lattice, (tree.TopZ - Z) / lattice);
  return noise > 0.3 + 0.6 * facing / grazing;
}

void Meet_Tree(const Scene& scene, int item, const Ray& ray, double from, double to,
               Foliage foliage, TreeHit& nearest) {
  const Tree& tree = scene.trees[static_cast<std::size_t>(item)];
  const double limit = std::min(to, nearest.t);
  const auto crown = Intersect_Crown(tree, ray, from, limit);
  if (crown && !(foliage == Foliage::Frayed && Is_Gap(tree, ray, *crown))) {
    nearest = {SurfaceHit::Kind::Crown, item, *crown};
    return;
  }
  const auto stem = Intersect_Stem(tree, ray, from, limit);
  if (stem) nearest = {SurfaceHit::Kind::Stem, item, *stem};
}

enum class Wanted { Nearest, Any };

/// The nearest tree on the ray between from and to, or any tree; the tree with index passed_over is
/// ignored.
TreeHit Find_Tree(const Scene& scene, const Ray& ray, double from, double to, int passed_over,
                  Foliage foliage, Wanted wanted) {
  TreeHit nearest;
  const double horizontal_square = ray.u * ray.u + ray.v * ray.v;
  Walk_Cells(scene.grid, ray, from, to, [&](int cell, double enter, double leave) {
    const double lowest = ray.z + ray.w * (ray.w < 0 ? leave : enter);
    if (lowest > scene.grid.cell_tops[static_cast<std::size_t>(cell)]) return false;
    for (const int item : Trees_Of_Cell(scene.grid, cell)) {
      const Tree& tree = scene.trees[static_cast<std::size_t>(item)];
      if (lowest > tree.TopZ || !Passes_Crown(tree, ray, horizontal_square)) continue;
      if (item == passed_over) continue;
      Meet_Tree(scene, item, ray, from, to, foliage, nearest);
      if (wanted == Wanted::Any && nearest.tree >= 0) return true;
    }
    return nearest.t <= leave;
  });
  return nearest;
}

/// Above this height over the ground point of a ray, the ray cannot touch a tree: the ground under
/// neighbouring trees rises at most with the steepest slope.
double Canopy_Reach(const Scene& scene, const Ray& ray) {
  const double rise = scene.ground.steepest * std::sqrt(ray.u * ray.u + ray.v * ray.v);
  constexpr double widest_crown = 5;  // metres, above every crown radius
  const double tall = scene.grid.tallest + scene.ground.steepest * widest_crown;
  return rise < 0.9 ? tall / (1 - rise) : 1e4;
}

SurfaceHit Ground_Hit(const Scene& scene, const Ray& ray, double t) {
  SurfaceHit hit;
  hit.t = t;
  hit.X = ray.x + t * ray.u;
  hit.Y = ray.y + t * ray.v;
  const GroundSample sample = Sample_Ground(scene.ground, hit.X, hit.Y);
  hit.Z = sample.Z;
  const double scale =
      1 / std::sqrt(1 + sample.slope_x * sample.slope_x + sample.slope_y * sample.slope_y);
  hit.normal = {-sample.slope_x * scale, -sample.slope_y * scale, scale};
  return hit;
}

SurfaceHit Hit_On_Tree(const Scene& scene, const Ray& ray, const TreeHit& met) {
  const Tree& tree = scene.trees[static_cast<std::size_t>(met.tree)];
  SurfaceHit hit{met.kind,
                 met.tree,
                 met.t,
                 ray.x + met.t * ray.u,
                 ray.y + met.t * ray.v,
                 ray.z + met.t * ray.w,
                 {}};
  if (met.kind == SurfaceHit::Kind::Crown) {
    hit.normal = Crown_Normal(tree, hit.X, hit.Y, hit.Z);
  } else {
    hit.normal = {hit.X - tree.X, hit.Y - tree.Y, 0};
    Normalize_Vector(hit.normal);
  }
  return hit;
}

/// Distance at which a unit ray meets the ground. A step never overshoots: the ground rises at most
/// with the steepest slope (Hart 1996, "Sphere tracing").
std::optional<double> Distance_To_Ground(const Scene& scene, const Ray& ray, double reach) {
  constexpr double tolerance = 1e-3, slack = 1.1;  // metres; slopes across a lattice square
  constexpr int most_steps = 2000;
  const double horizontal = std::sqrt(ray.u * ray.u + ray.v * ray.v);
  const double approach = slack * scene.ground.steepest * horizontal - ray.w;
  if (approach <= 0) return std::nullopt;
  double t = 0;
  for (int step = 0; step < most_steps && t <= reach; ++step) {
    const double above =
        ray.z + t * ray.w - Ground_Height(scene, ray.x + t * ray.u, ray.y + t * ray.v);
    if (above < tolerance) return t;
    t += above / approach;
  }
  return std::nullopt;
}

double Extinction(Species species) {
  if (species == Species::Spruce) return 0.60;  // per metre
  return species == Species::Pine ? 0.50 : 0.55;
}

struct CrownPass {
  int tree = -1;
  double enter = 0, leave = 0;
};

/// What a beam crosses on its way down: crowns, unordered, and the first stem.
struct BeamPath {
  std::array<CrownPass, 16> crowns;
  std::size_t count = 0;
  int stem_tree = -1;
  double stem_t = 1e30;
};

void Note_Tree(const Scene& scene, int item, const Ray& ray, double from, double to,
               BeamPath& path) {
  for (std::size_t i = 0; i < path.count; ++i) {
    if (path.crowns[i].tree == item) return;
  }
  const Tree& tree = scene.trees[static_cast<std::size_t>(item)];
  const auto stem = Intersect_Stem(tree, ray, from, to);
  if (stem && *stem < path.stem_t) {
    path.stem_tree = item;
    path.stem_t = *stem;
  }
  const auto enter = Intersect_Crown(tree, ray, from, to);
  if (!enter || path.count == path.crowns.size()) return;
  path.crowns[path.count++] = {item, *enter, Leave_Crown(tree, ray, *enter, to).value_or(*enter)};
}

BeamPath Path_Of_Beam(const Scene& scene, const Ray& ray, double ground_t) {
  BeamPath path;
  const double from = std::max(ray.z - scene.grid.highest_top, ground_t - Canopy_Reach(scene, ray));
  const double horizontal_square = ray.u * ray.u + ray.v * ray.v;
  Walk_Cells(scene.grid, ray, from, ground_t, [&](int cell, double, double) {
    for (const int item : Trees_Of_Cell(scene.grid, cell)) {
      const Tree& tree = scene.trees[static_cast<std::size_t>(item)];
      if (Passes_Crown(tree, ray, horizontal_square)) {
        Note_Tree(scene, item, ray, from, ground_t, path);
      }
    }
    return false;
  });
  std::sort(path.crowns.begin(), path.crowns.begin() + static_cast<std::ptrdiff_t>(path.count),
            [](const CrownPass& a, const CrownPass& b) { return a.enter < b.enter; });
  return path;
}

}  // namespace

std::optional<SurfaceHit> Cast_Stand_Ray(const Scene& scene, const Ray& ray, double reach,
                                         Foliage foliage) {
  const auto ground_t = Distance_To_Ground(scene, ray, reach);
  const TreeHit met =
      Find_Tree(scene, ray, 0, ground_t.value_or(reach), -1, foliage, Wanted::Nearest);
  if (met.tree >= 0) return Hit_On_Tree(scene, ray, met);
  if (ground_t) return Ground_Hit(scene, ray, *ground_t);
  return std::nullopt;
}

BeamEnd Follow_Beam(const Scene& scene, const Ray& ray, double ground_t, double optical_depth) {
  const BeamPath path = Path_Of_Beam(scene, ray, ground_t);
  const double metres_per_t = std::sqrt(ray.u * ray.u + ray.v * ray.v + ray.w * ray.w);
  for (std::size_t i = 0; i < path.count; ++i) {
    const CrownPass& pass = path.crowns[i];
    if (path.stem_t <= pass.enter) break;
    const double extinction =
        metres_per_t * Extinction(scene.trees[static_cast<std::size_t>(pass.tree)].species);
    const double length = optical_depth / extinction;
    if (length <= pass.leave - pass.enter) {
      return {SurfaceHit::Kind::Crown, pass.tree, pass.enter + length};
    }
    optical_depth -= (pass.leave - pass.enter) * extinction;
  }
  if (path.stem_tree >= 0) return {SurfaceHit::Kind::Stem, path.stem_tree, path.stem_t};
  return {SurfaceHit::Kind::Ground, -1, ground_t};
}

double Ground_Crossing(const Scene& scene, const Ray& ray, double guess) {
  double t = guess;
  for (int step = 0; step < 20; ++step) {
    const GroundSample at = Sample_Ground(scene.ground, ray.x + t * ray.u, ray.y + t * ray.v);
    const double above = ray.z - t - at.Z;
    t += above / (1 + at.slope_x * ray.u + at.slope_y * ray.v);
    if (std::abs(above) < 1e-3) break;
  }
  return t;
}

SurfaceHit Cast_Camera_Ray(const Scene& scene, const Ray& ray, double ground_t, Foliage foliage) {
  const double from = std::max(ray.z - scene.grid.highest_top, ground_t - Canopy_Reach(scene, ray));
  const TreeHit met = Find_Tree(scene, ray, from, ground_t, -1, foliage, Wanted::Nearest);
  return met.tree < 0 ? Ground_Hit(scene, ray, ground_t) : Hit_On_Tree(scene, ray, met);
}

bool Is_In_Shadow(const Scene& scene, double X, double Y, double Z, int own_tree,
                  int& shading_tree) {
  const Ray ray{X, Y, Z, scene.sun.x / scene.sun.z, scene.sun.y / scene.sun.z, 1};
  const double to = std::min(scene.grid.highest_top - Z, Canopy_Reach(scene, ray));
  if (shading_tree >= 0 && shading_tree != own_tree) {
    TreeHit met;
    Meet_Tree(scene, shading_tree, ray, 0, to, Foliage::Frayed, met);
    if (met.tree >= 0) return true;
  }
  shading_tree = Find_Tree(scene, ray, 0, to, own_tree, Foliage::Frayed, Wanted::Any).tree;
  return shading_tree >= 0;
}

bool Is_Apex_Visible(const Scene& scene, std::size_t tree, double X0, double Y0, double Z0) {
  constexpr double tolerance = 0.05;  // metres
  const Tree& seen = scene.trees[tree];
  const double drop = Z0 - seen.TopZ;
  if (drop <= 0) return false;
  const Ray ray{X0, Y0, Z0, (seen.X - X0) / drop, (seen.Y - Y0) / drop, -1};
  if (Ground_Crossing(scene, ray, drop) < drop) return false;
  const double from = std::max(0.0, Z0 - scene.grid.highest_top);
  return Find_Tree(scene, ray, from, drop - tolerance, static_cast<int>(tree), Foliage::Closed,
                   Wanted::Any)
             .tree < 0;
}

}  // namespace sylvomex::demo
