// SPDX-License-Identifier: MIT
#include "demo/scene/crown.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sylvomex::demo {
namespace {

constexpr double kLeastDepth = 1e-4;
constexpr double kRadiusTolerance = 1e-4;
constexpr int kMostSteps = 40;
constexpr double kPineWidestAt = 0.65;  // share of the crown length

/// Half ellipse: offset in -1 .. 1 from the widest place; half_length of that side.
OutlinePoint Half_Ellipse(double radius, double offset, double half_length) {
  const double root = std::sqrt(std::max(1 - offset * offset, 1e-9));
  return {radius * root, -radius * offset / (root * half_length)};
}

OutlinePoint Pine_Outline(const Tree& tree, double depth) {
  const double upper = kPineWidestAt * tree.crown_length;
  const double half_length = depth < upper ? upper : tree.crown_length - upper;
  return Half_Ellipse(tree.crown_radius, (depth - upper) / half_length, half_length);
}

struct Interval {
  double from = 0, to = 0;
};

/// The part of [from, to] in which the ray is between two heights; empty means from > to.
Interval Clip_To_Heights(const Ray& ray, double low, double high, Interval clipped) {
  constexpr Interval nothing{1, 0};
  if (ray.w == 0) return ray.z >= low && ray.z <= high ? clipped : nothing;
  double at_low = (low - ray.z) / ray.w, at_high = (high - ray.z) / ray.w;
  if (at_low > at_high) std::swap(at_low, at_high);
  return {std::max(clipped.from, at_low), std::min(clipped.to, at_high)};
}

/// The part of [from, to] within a distance of the tree's axis; empty means from > to.
Interval Clip_To_Cylinder(const Tree& tree, const Ray& ray, double radius, Interval clipped) {
  constexpr Interval nothing{1, 0};
  const double dx = ray.x - tree.X, dy = ray.y - tree.Y;
  const double a = ray.u * ray.u + ray.v * ray.v;
  const double across = dx * ray.v - dy * ray.u;
  const double square = a * radius * radius - across * across;
  if (a == 0) return dx * dx + dy * dy <= radius * radius ? clipped : nothing;
  if (square < 0) return nothing;
  const double middle = -(dx * ray.u + dy * ray.v) / a, half = std::sqrt(square) / a;
  return {std::max(clipped.from, middle - half), std::min(clipped.to, middle + half)};
}

}  // namespace

std::string_view Species_Name(Species species) {
  if (species == Species::Pine) return "pine";
  return species == Species::Spruce ? "spruce" : "birch";
}

OutlinePoint Crown_Outline(const Tree& tree, double depth) {
  depth = std::clamp(depth, kLeastDepth, tree.crown_length);
  if (tree.species == Species::Pine) return Pine_Outline(tree, depth);
  const double root = std::sqrt(depth / tree.crown_length);
  const bool spruce = tree.species == Species::Spruce;
  const double radius = tree.crown_radius * (spruce ? root * std::sqrt(root) : root);
  return {radius, (spruce ? 0.75 : 0.5) * radius / depth};
}

std::optional<double> Crown_Depth_At(const Tree& tree, double distance) {
  const double share = distance / tree.crown_radius;
  if (share > 1) return std::nullopt;
  if (tree.species == Species::Pine) {
    return kPineWidestAt * tree.crown_length * (1 - std::sqrt(1 - share * share));
  }
  if (tree.species == Species::Birch) return tree.crown_length * share * share;
  return tree.crown_length * share * std::cbrt(share);
}

std::optional<double> Intersect_Crown(const Tree& tree, const Ray& ray, double from, double to) {
  Interval part = Clip_To_Cylinder(tree, ray, tree.crown_radius, {from, to});
  if (part.from > part.to) return std::nullopt;
  part = Clip_To_Heights(ray, tree.TopZ - tree.crown_length, tree.TopZ, part);
  double t = part.from;
  for (int step = 0; step < kMostSteps && t <= part.to; ++step) {
    const double dx = ray.x + t * ray.u - tree.X, dy = ray.y + t * ray.v - tree.Y;
    const double distance = std::sqrt(dx * dx + dy * dy);
    const OutlinePoint outline = Crown_Outline(tree, tree.TopZ - ray.z - t * ray.w);
    const double outside = distance - outline.radius;
    if (outside <= kRadiusTolerance) return t;
    const double rate = (dx * ray.u + dy * ray.v) / distance + outline.slope * ray.w;
    if (rate >= 0) return std::nullopt;
    t -= outside / rate;
  }
  return std::nullopt;
}

std::optional<double> Leave_Crown(const Tree& tree, const Ray& ray, double from, double to) {
  const Ray backward{ray.x, ray.y, ray.z, -ray.u, -ray.v, -ray.w};
  const auto entry = Intersect_Crown(tree, backward, -to, -from);
  if (!entry) return std::nullopt;
  return -*entry;
}

std::optional<double> Intersect_Stem(const Tree& tree, const Ray& ray, double from, double to) {
  Interval part = Clip_To_Cylinder(tree, ray, tree.stem_radius, {from, to});
  part = Clip_To_Heights(ray, tree.GroundZ - 1, tree.TopZ - tree.crown_length, part);
  if (part.from > part.to) return std::nullopt;
  return part.from;
}

}  // namespace sylvomex::demo
