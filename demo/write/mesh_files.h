// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

#include "demo/scene/surface_mesh.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

/// One line "X,Y,Z" per node, X and Y with two decimals, Z with three.
std::string Node_Text(const SurfaceMesh& mesh);

/// One line "a,b,c" per triangle, nodes counted from 0.
std::string Triangle_Text(const SurfaceMesh& mesh);

/// Tile files by name: one for each square of 100 m, counted from the smallest X and Y rounded down
/// to 100 m, that a triangle touches (a common border point suffices); the name is the square's
/// column and row with three digits each and ".bin". A file holds a little-endian 32-bit count
/// and the numbers of its triangles, ascending, counted from 1 in the mesh's order.
std::map<std::string, std::string> Mesh_Tiles(const SurfaceMesh& mesh);

/// Writes c:\data\demo\<name>.nod and .tri.
void Write_Mesh(const SurfaceMesh& mesh, const std::string& name, const DriveMap& drives);

/// Writes the tile files of the ground into c:\data\Tris.
void Write_Mesh_Tiles(const SurfaceMesh& mesh, const DriveMap& drives);

}  // namespace sylvomex::demo
