// SPDX-License-Identifier: MIT
// How the numbers of an orientation table are to be understood. Each format states one convention;
// tables made by other hands often follow another one.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "interchange/photo_given.h"

namespace sylvomex {

enum class AngleUnit { Degrees, Gon, Radians };
enum class AngleOrder { OmegaPhiKappa, PhiOmegaKappa };

/// The rotation of a table, as matrix A: of angles, M_kappa M_phi M_omega or M_kappa M_omega M_phi;
/// of a quaternion or an axis, the matrix that it stands for. Ground to image it becomes
/// turn * axes * (A or its transpose).
struct Convention {
  AngleUnit unit = AngleUnit::Degrees;
  AngleOrder order = AngleOrder::OmegaPhiKappa;
  std::array<bool, 3> negative{};  // the sign of omega, phi, kappa is turned round
  bool image_to_ground = false;    // A turns camera axes to ground axes
  bool y_down = false;             // camera axes x right, y down, z along the view
  int quarter_turns = 0;           // the image is turned by these about the view, anticlockwise
  bool position_is_translation = false;  // t of R X + t instead of the projection centre
  bool pp_from_corner = false;  // principal point from the upper left corner, else from the middle
  bool pp_x_negative = false;   // counted to the left
  bool pp_y_down = false;       // counted downwards (from the corner: upwards)
  bool pixel_centres = false;   // (0, 0) is the middle of the first pixel, not its outer corner

  bool operator==(const Convention&) const = default;
};

/// A name that tells every choice; different conventions have different names. Angles have choices
/// of their own.
std::string Convention_Name(const Convention& convention, RotationGiven rotation);

/// How many choices differ.
int Choices_Between(const Convention& a, const Convention& b);

/// The plausible conventions of tables that hold such numbers, the stated one first. Those that
/// differ only in what the photographs do not have (a principal point of 0, 0) are left out.
std::vector<Convention> Plausible_Conventions(const Convention& stated,
                                              const std::vector<PhotoGiven>& photos);

/// The photograph under a convention.
OrientedPhoto Understood(const PhotoGiven& photo, const Convention& convention);

}  // namespace sylvomex
