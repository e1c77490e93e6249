// SPDX-License-Identifier: MIT
// Surfaces that polygon searches found, as triangulations: sessions that load them and compare them
// with true heights.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/scene.h"
#include "platform/point3d.h"

namespace sylvomex::demo {

struct ComparedSurface {
  std::string name;            // of its files and its session
  std::vector<Point3D> truth;  // on a grid of 2 m over its polygon
};

/// The heath by the pair and by the triplet against the ground, the forest's middle against the
/// canopy.
std::vector<ComparedSurface> Compared_Surfaces(const Scene& scene);

/// "X Y Z" a line.
std::string True_Point_List(const ComparedSurface& surface);

/// Drive name of the list of its true points.
std::string True_Point_File(const ComparedSurface& surface);

/// Loads c:\temp\<name>.nod and .tri and leaves the comparison in c:\data\dem_tin_res.txt.
std::string Tin_Session(const ComparedSurface& surface);

}  // namespace sylvomex::demo
