// SPDX-License-Identifier: MIT
// Intersection of rays with the scene. Camera rays point down (w = -1), sun rays up (w = 1), so t
// measures metres of height in both; rays from within the stand are unit vectors in any direction,
// and their t measures metres of distance.
#pragma once

#include <optional>

#include "demo/scene/scene.h"

namespace sylvomex::demo {

struct SurfaceHit {
  enum class Kind { Ground, Crown, Stem };
  Kind kind = Kind::Ground;
  int tree = -1;  // index in the stand, -1 for the ground
  double t = 0;
  double X = 0, Y = 0, Z = 0;
  Vector3 normal;  // unit vector outwards
};

/// Frayed crowns have gaps at their outlines for rays that graze the foliage away from the top.
/// Closed crowns are for geometric questions.
enum class Foliage { Frayed, Closed };

/// t at which a camera ray meets the ground, to 1 mm; guess: t of a neighbouring ray.
double Ground_Crossing(const Scene& scene, const Ray& ray, double guess);

/// The first surface on a camera ray; ground_t: t at which it meets the ground.
SurfaceHit Cast_Camera_Ray(const Scene& scene, const Ray& ray, double ground_t, Foliage foliage);

/// The first surface on a ray from within the stand, a unit vector in any direction; std::nullopt
/// where it meets the sky or goes farther than reach, metres. The start must lie above the ground.
std::optional<SurfaceHit> Cast_Stand_Ray(const Scene& scene, const Ray& ray, double reach,
                                         Foliage foliage);

/// A thin beam attenuated by foliage: it passes through crowns until their optical depth along its
/// path adds up to the given one, and ends there; otherwise on the first stem or on the ground. The
/// optical depth of a crown is its extinction times the path length in it (Ross 1981, The
/// Radiation Regime and Architecture of Plant Stands, section II.3); with depths drawn as -ln of
/// uniform numbers the beam ends are distributed as light is extinguished. ray and ground_t as in
/// Cast_Camera_Ray.
struct BeamEnd {
  SurfaceHit::Kind kind = SurfaceHit::Kind::Ground;
  int tree = -1;
  double t = 0;
};
BeamEnd Follow_Beam(const Scene& scene, const Ray& ray, double ground_t, double optical_depth);

/// Whether another tree stands between a point and the sun. own_tree: index in the stand of
/// the tree on which the point lies, -1 for none; convex crowns need no test against
/// themselves. shading_tree: the tree that shaded the previous point, -1 for none; it is tested
/// first and set to the one found. It only saves time and never changes the result.
bool Is_In_Shadow(const Scene& scene, double X, double Y, double Z, int own_tree,
                  int& shading_tree);

/// Whether the apex of a tree is visible from a point above: nothing lies between, except the tree
/// itself within the last 5 cm.
bool Is_Apex_Visible(const Scene& scene, std::size_t tree, double X0, double Y0, double Z0);

}  // namespace sylvomex::demo
