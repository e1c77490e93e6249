// SPDX-License-Identifier: MIT
// Trees as solids: a crown of revolution around a vertical axis, closed by a flat base, on a
// thin stem. The crown's outline is its radius by depth below the top; the outlines are
// concave, so every crown is convex.
//
// Outlines follow crown curves used for these species (Rautiainen and Stenberg 2005, "Simplified
// tree crown model using standard forest mensuration data for Scots pine").
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace sylvomex::demo {

enum class Species : std::uint8_t { Pine, Spruce, Birch };

std::string_view Species_Name(Species species);

struct Tree {
  int id = 0;  // from 1
  Species species = Species::Pine;
  double X = 0, Y = 0;  // axis, metres
  double GroundZ = 0;   // ground at the axis
  double TopZ = 0;      // apex
  double crown_radius = 0;
  double crown_length = 0;  // from the top down to the crown base
  double stem_radius = 0;

  [[nodiscard]] double Height() const { return TopZ - GroundZ; }
};

struct OutlinePoint {
  double radius = 0;
  double slope = 0;  // derivative of the radius with respect to depth
};

/// Radius at a depth below the top: pine, two half ellipses that meet at 0.65 of the crown
/// length; spruce, radius x (depth / length)^0.75; birch, radius x (depth / length)^0.5.
/// Depths are clamped to 0.1 mm .. crown length, so that the slope stays finite.
OutlinePoint Crown_Outline(const Tree& tree, double depth);

/// Depth of the crown's upper surface at a distance from the axis; std::nullopt beyond the crown
/// radius.
std::optional<double> Crown_Depth_At(const Tree& tree, double distance);

/// A ray: points (x + t u, y + t v, z + t w), metres.
struct Ray {
  double x = 0, y = 0, z = 0;
  double u = 0, v = 0, w = 0;
};

/// Whether the ray's line, in plan, comes within the crown radius of the tree's axis: a cheap test
/// before the two below. horizontal_square: u^2 + v^2 of the ray.
inline bool Passes_Crown(const Tree& tree, const Ray& ray, double horizontal_square) {
  const double dx = ray.x - tree.X, dy = ray.y - tree.Y;
  const double across = dx * ray.v - dy * ray.u;
  const double reach = horizontal_square > 0 ? horizontal_square : 1;
  const double distance = horizontal_square > 0 ? across * across : dx * dx + dy * dy;
  return distance <= reach * tree.crown_radius * tree.crown_radius;
}

/// First t in [from, to] at which the ray is in the crown, to 0.1 mm of radius; std::nullopt when
/// it misses. The distance to the axis is convex and the outline concave along any line, so
/// Newton steps from outside never overshoot the first crossing.
std::optional<double> Intersect_Crown(const Tree& tree, const Ray& ray, double from, double to);

/// Last t in [from, to] at which the ray is in the crown; same accuracy.
std::optional<double> Leave_Crown(const Tree& tree, const Ray& ray, double from, double to);

/// First t in [from, to] on the stem below the crown base.
std::optional<double> Intersect_Stem(const Tree& tree, const Ray& ray, double from, double to);

}  // namespace sylvomex::demo
