// SPDX-License-Identifier: MIT
// Which image of a photo archive covers each cell of a map, on flat ground.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "products/ortho_grid.h"
#include "solver/camera_model.h"

namespace sylvomex {

inline constexpr double kIndexGround = 160;  // metres, the height of the flat ground

/// West to east and south to north, metres.
struct GroundLimits {
  double west = 0, east = 0, south = 0, north = 0;
};

/// Where an image lies on the flat ground: the limits of the positions of its border pixels, all of
/// which are walked. Nothing when no border pixel looks down to the ground. RunTimeErrors of
/// Pixel_To_Image.
std::optional<GroundLimits> Limits_Of_Border(const ImageRecord& image, const Camera& camera);

/// The smallest limits around two.
GroundLimits Around_Both(const GroundLimits& a, const GroundLimits& b);

/// Cells from the south-west corner on. RunTimeErrors of Make_Ortho_Grid.
OrthoGrid Grid_Over(const GroundLimits& limits, double pixel);

/// What a cell without an image holds, in both grids.
inline constexpr std::uint8_t kNoImage = 0;

/// Gives the cells that an image covers its ImageId and its number, where no image before it has
/// them. A cell is covered when the pixel nearest to its projection is one of the image.
///
/// ids: one float a cell, numbers: one byte a cell. limits: of the image's border. number: from 1.
void Mark_Covered_Cells(const OrthoGrid& grid, const ImageRecord& image, const Camera& camera,
                        const GroundLimits& limits, std::uint8_t number, std::span<float> ids,
                        std::span<std::uint8_t> numbers);

/// How many cells the images can have at most: no more than those within their limits.
double Cells_Within(const OrthoGrid& grid, std::span<const GroundLimits> limits);

/// The byte of the image at a place of the archive's table, from 0: 1 to 255, then again from 1.
std::uint8_t Index_Number(std::size_t place);

}  // namespace sylvomex
