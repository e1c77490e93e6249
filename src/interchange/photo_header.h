// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "imageblock/image_record.h"
#include "interchange/circle_window.h"
#include "interchange/photo_given.h"
#include "interchange/site_record.h"

namespace sylvomex {

/// The drive name of an image's header, "c:\data\images\NAME.hdr", and of its raw file, whose name
/// is shortened where the path would be longer than the 60 characters that a header holds.
std::string Header_Name(const std::string& photo_name);
std::string Raw_Name(const std::string& photo_name);

/// Angles with Build_Rotation_Matrix(omega, phi, kappa) = m, radians.
struct HeaderAngles {
  double omega = 0, phi = 0, kappa = 0;
};
HeaderAngles Angles_Of(const RotationMatrix& m);

/// The header of an oriented photograph whose raw file holds a window of it. Headers count the
/// middles of pixels as whole numbers, rows from the bottom. The photograph's centre is given in
/// working coordinates. Sun angles 0 stand for unknown ones.
ImageRecord Header_Of(const OrientedPhoto& photo, const PixelWindow& window, std::int32_t image_id,
                      bool is_colour, double sun_azimuth, double sun_elevation);

}  // namespace sylvomex
