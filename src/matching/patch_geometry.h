// SPDX-License-Identifier: MIT
// Position and size of the patch around the plot centre in an image.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "matching/raw_window.h"
#include "platform/report.h"
#include "solver/camera_model.h"
#include "solver/safe_sqrt.h"

namespace sylvomex {

/// Side of a pixel on the film in whole micrometres, from the affine's determinant; whole numbers
/// are required. Safe_Sqrt handles and reports a mirrored affine. RunTimeError(DivisionByZero) for
/// a singular affine, RunTimeError(Overflow) beyond 16 bits.
std::int16_t Pixel_Side_Micrometres(const ImageRecord& image, const Report& report);

/// Side of a pixel on the ground at height Z, metres. RunTimeError(DivisionByZero) for a camera
/// constant of 0.
double Ground_Pixel_Side(const ImageRecord& image, std::int16_t pixel_side, double Z);

/// Side of the patch in pixels: the first of 1, 101, 201, ..., 10001 that is not below
/// patch_size / ground_side rounded half to even; std::nullopt above 10001.
/// RunTimeError(DivisionByZero) for a ground_side of 0.
std::optional<int> Patch_Side(double patch_size, double ground_side);

struct PatchPlace {
  RawWindow window;
  bool fits = true;  // false: larger than the raw file; the window is then the whole file
};

/// The patch of side x side pixels around an object point, shifted to lie inside the raw file.
/// RunTimeError(Overflow) when the point's pixel exceeds 16 bits.
PatchPlace Place_Patch(const ImageRecord& image, const Camera& camera, const Point3D& centre,
                       int side);

/// The patch as an image record of its own, for panes and projection: its row origin is counted
/// from the bottom of the full image.
ImageRecord Correlation_Record(const ImageRecord& image, const RawWindow& window,
                               const std::string& raw_file_name);

}  // namespace sylvomex
