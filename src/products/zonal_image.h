// SPDX-License-Identifier: MIT
// Masks of circular zones in an image, for texture analysis.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/drive_map.h"
#include "platform/zeroed_array.h"
#include "solver/camera_model.h"

namespace sylvomex {

/// A horizontal circle on the ground.
struct GroundCircle {
  Point3D centre;       // metres
  std::uint8_t id = 0;  // what marks its pixels
  double radius = 0;    // metres
};

/// Lines of X, Y, Z, id and radius, the first 1000 of them. RunTimeErrors of the list reader name
/// file, line and item; an id that is no byte is RunTimeError(Overflow).
std::vector<GroundCircle> Read_Ground_Circles(const FilePath& file);

/// Some full-image pixels; row 0 of an area is its lowest full-image row.
struct PixelArea {
  std::int32_t first_col = 0, first_row = 0;
  std::int32_t columns = 0, rows = 0;

  [[nodiscard]] std::size_t Pixels() const {
    return static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
  }
};

/// From the lowest to the highest column and row of the circles' centres, each rounded, and 50
/// pixels beyond the highest. circles: at least one. RunTimeErrors of Object_To_Pixel,
/// RunTimeError(Overflow) for an area that 32 bits cannot count.
PixelArea Area_Of_Circles(const Camera& camera, std::span<const GroundCircle> circles);

/// The area's pixels, columns running fastest: the id of the last circle in whose radius the pixel
/// falls when it is taken to the ground at that circle's height, 0 for none. std::bad_alloc when
/// there is no room, RunTimeErrors of the camera model.
ZeroedArray<std::uint8_t> Zonal_Mask(const Camera& camera, const PixelArea& area,
                                     std::span<const GroundCircle> circles);

}  // namespace sylvomex
