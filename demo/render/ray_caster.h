// SPDX-License-Identifier: MIT
// What a ray meets in the scene. Camera rays point down (w = -1), sun rays up (w = 1), so t
// counts metres of height in both.
#pragma once

#include "demo/scene/scene.h"

namespace sylvomex::demo {

struct SurfaceHit {
  enum class Kind { Ground, Crown, Stem };
  Kind kind = Kind::Ground;
  int tree = -1;  // position in the stand, -1 for the ground
  double t = 0;
  double X = 0, Y = 0, Z = 0;
  Vector3 normal;  // unit vector outwards
};

/// Crowns fray at their outlines: rays that graze the foliage away from the top find gaps there.
/// Closed crowns serve for questions of geometry.
enum class Foliage { Frayed, Closed };

/// t at which a camera ray meets the ground, to 1 mm; guess: t of a neighbouring ray.
double Ground_Crossing(const Scene& scene, const Ray& ray, double guess);

/// The first surface under a camera ray; ground_t: where it meets the ground.
SurfaceHit Cast_Camera_Ray(const Scene& scene, const Ray& ray, double ground_t, Foliage foliage);

/// Whether another tree stands between a point and the sun. own_tree: position in the stand of
/// the tree on which the point lies, -1 for none; convex crowns need no test against
/// themselves. shading_tree: the tree that shaded the last point, -1 for none; it is tried
/// first and left as the one found. It saves time and never changes the answer.
bool Is_In_Shadow(const Scene& scene, double X, double Y, double Z, int own_tree,
                  int& shading_tree);

/// Whether the apex of a tree can be seen from a point above: nothing but the tree itself
/// within the last 5 cm of the way lies in between.
bool Is_Apex_Visible(const Scene& scene, std::size_t tree, double X0, double Y0, double Z0);

}  // namespace sylvomex::demo
