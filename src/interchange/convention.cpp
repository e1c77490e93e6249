// SPDX-License-Identifier: MIT
#include "interchange/convention.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace sylvomex {
namespace {

using std::numbers::pi;

RotationMatrix Product(const RotationMatrix& a, const RotationMatrix& b) {
  return {
      a.m11 * b.m11 + a.m12 * b.m21 + a.m13 * b.m31, a.m11 * b.m12 + a.m12 * b.m22 + a.m13 * b.m32,
      a.m11 * b.m13 + a.m12 * b.m23 + a.m13 * b.m33, a.m21 * b.m11 + a.m22 * b.m21 + a.m23 * b.m31,
      a.m21 * b.m12 + a.m22 * b.m22 + a.m23 * b.m32, a.m21 * b.m13 + a.m22 * b.m23 + a.m23 * b.m33,
      a.m31 * b.m11 + a.m32 * b.m21 + a.m33 * b.m31, a.m31 * b.m12 + a.m32 * b.m22 + a.m33 * b.m32,
      a.m31 * b.m13 + a.m32 * b.m23 + a.m33 * b.m33};
}

RotationMatrix Transposed(const RotationMatrix& m) {
  return {m.m11, m.m21, m.m31, m.m12, m.m22, m.m32, m.m13, m.m23, m.m33};
}

double Radians_Per(AngleUnit unit) {
  switch (unit) {
    case AngleUnit::Degrees:
      return pi / 180;
    case AngleUnit::Gon:
      return pi / 200;
    case AngleUnit::Radians:
      break;
  }
  return 1;
}

RotationMatrix Of_Angles(const PhotoGiven& photo, const Convention& convention) {
  double angles[3] = {};
  for (std::size_t i = 0; i < 3; ++i) {
    angles[i] = photo.numbers[i] * Radians_Per(convention.unit) * (convention.negative[i] ? -1 : 1);
  }
  const auto [omega, phi, kappa] = angles;
  if (convention.order == AngleOrder::OmegaPhiKappa)
    return Build_Rotation_Matrix(omega, phi, kappa);
  const RotationMatrix first = Build_Rotation_Matrix(0, phi, 0);
  return Product(Build_Rotation_Matrix(0, 0, kappa),
                 Product(Build_Rotation_Matrix(omega, 0, 0), first));
}

/// Hamilton's w, x, y, z, normalised first.
RotationMatrix Of_Quaternion(const std::array<double, 4>& q) {
  const double length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
  const double w = q[0] / length;
  const double x = q[1] / length;
  const double y = q[2] / length;
  const double z = q[3] / length;
  return {1 - 2 * (y * y + z * z), 2 * (x * y - w * z),     2 * (x * z + w * y),
          2 * (x * y + w * z),     1 - 2 * (x * x + z * z), 2 * (y * z - w * x),
          2 * (x * z - w * y),     2 * (y * z + w * x),     1 - 2 * (x * x + y * y)};
}

/// An axis times the angle in radians, after Rodrigues.
RotationMatrix Of_Axis(const std::array<double, 4>& axis) {
  const double angle = std::hypot(axis[0], axis[1], axis[2]);
  if (angle == 0) return Of_Quaternion({1, 0, 0, 0});
  const double by = std::sin(angle / 2) / angle;
  return Of_Quaternion({std::cos(angle / 2), axis[0] * by, axis[1] * by, axis[2] * by});
}

RotationMatrix Given_Matrix(const PhotoGiven& photo, const Convention& convention) {
  switch (photo.rotation) {
    case RotationGiven::Angles:
      return Of_Angles(photo, convention);
    case RotationGiven::Quaternion:
      return Of_Quaternion(photo.numbers);
    case RotationGiven::AxisAngle:
      break;
  }
  return Of_Axis(photo.numbers);
}

/// Quarter turns of the camera's x and y axes, exact.
RotationMatrix Quarter_Turned(const RotationMatrix& m, int turns) {
  RotationMatrix turned = m;
  for (int i = 0; i < turns; ++i) {
    turned = {turned.m21,  turned.m22, turned.m23, -turned.m11, -turned.m12,
              -turned.m13, turned.m31, turned.m32, turned.m33};
  }
  return turned;
}

Point3D Centre_Of(const PhotoGiven& photo, const Convention& convention,
                  const RotationMatrix& ground_to_axes) {
  if (!convention.position_is_translation) return photo.position;
  const RotationMatrix r = Transposed(ground_to_axes);
  const Point3D& t = photo.position;
  return {-(r.m11 * t.X + r.m12 * t.Y + r.m13 * t.Z), -(r.m21 * t.X + r.m22 * t.Y + r.m23 * t.Z),
          -(r.m31 * t.X + r.m32 * t.Y + r.m33 * t.Z)};
}

void Set_Principal_Point(OrientedPhoto& photo, const CameraGiven& camera,
                         const Convention& convention) {
  double right = camera.pp_x;
  double up = camera.pp_y;
  if (convention.pp_from_corner) {
    const double middle = convention.pixel_centres ? 0.5 : 0;
    right = camera.pp_x + middle - camera.width / 2.0;
    up = camera.height / 2.0 - (camera.pp_y + middle);
  }
  photo.x0 = convention.pp_x_negative ? -right : right;
  photo.y0 = convention.pp_y_down ? -up : up;
}

}  // namespace

OrientedPhoto Understood(const PhotoGiven& photo, const Convention& convention) {
  OrientedPhoto oriented;
  oriented.name = photo.name;
  oriented.width = photo.camera.width;
  oriented.height = photo.camera.height;
  oriented.f_mm = photo.camera.f_mm;
  oriented.pixel_mm = photo.camera.pixel_mm;
  oriented.pixel_y_mm = photo.camera.pixel_y_mm;
  oriented.lens = photo.camera.lens;
  oriented.utc = photo.utc;
  Set_Principal_Point(oriented, photo.camera, convention);
  RotationMatrix m = Given_Matrix(photo, convention);
  if (convention.image_to_ground) m = Transposed(m);
  oriented.centre = Centre_Of(photo, convention, m);
  if (convention.y_down) {
    m = {m.m11, m.m12, m.m13, -m.m21, -m.m22, -m.m23, -m.m31, -m.m32, -m.m33};
  }
  oriented.m = Quarter_Turned(m, convention.quarter_turns);
  return oriented;
}

namespace {

std::string Angle_Words(const Convention& c) {
  static constexpr const char* kUnits[] = {"degrees", "gon", "radians"};
  std::string text = kUnits[static_cast<int>(c.unit)];
  text += c.order == AngleOrder::OmegaPhiKappa ? ", omega-phi-kappa" : ", phi-omega-kappa";
  text += ", signs ";
  for (const bool negative : c.negative) text += negative ? '-' : '+';
  return text + ", ";
}

}  // namespace

std::string Convention_Name(const Convention& c, RotationGiven rotation) {
  std::string text = rotation == RotationGiven::Angles       ? Angle_Words(c)
                     : rotation == RotationGiven::Quaternion ? "quaternion, "
                                                             : "axis and angle, ";
  text += c.image_to_ground ? "image to ground" : "ground to image";
  text += c.y_down ? ", camera y down" : ", camera y up";
  text += ", turned by " + std::to_string(90 * c.quarter_turns) + " degrees";
  if (c.position_is_translation) text += ", position is the translation";
  text +=
      c.pp_from_corner ? ", principal point from the corner" : ", principal point from the middle";
  text += c.pp_x_negative ? " -x" : " +x";
  text += c.pp_y_down ? " -y" : " +y";
  return text + (c.pixel_centres ? ", pixel centres" : ", pixel corners");
}

int Choices_Between(const Convention& a, const Convention& b) {
  int count = 0;
  for (std::size_t i = 0; i < 3; ++i) count += a.negative[i] != b.negative[i] ? 1 : 0;
  for (const bool differs :
       {a.unit != b.unit, a.order != b.order, a.image_to_ground != b.image_to_ground,
        a.y_down != b.y_down, a.quarter_turns != b.quarter_turns,
        a.position_is_translation != b.position_is_translation,
        a.pp_from_corner != b.pp_from_corner, a.pp_x_negative != b.pp_x_negative,
        a.pp_y_down != b.pp_y_down, a.pixel_centres != b.pixel_centres}) {
    count += differs ? 1 : 0;
  }
  return count;
}

namespace {

/// Replaces a list of conventions by one with every value of a choice.
template <class Field, class Values>
void Vary(std::vector<Convention>& conventions, Field field, const Values& values) {
  std::vector<Convention> varied;
  varied.reserve(conventions.size() * std::size(values));
  for (const Convention& convention : conventions) {
    for (const auto& value : values) {
      varied.push_back(convention);
      field(varied.back()) = value;
    }
  }
  conventions = std::move(varied);
}

constexpr bool kBoth[] = {false, true};

void Vary_Angles(std::vector<Convention>& conventions) {
  constexpr AngleUnit kUnits[] = {AngleUnit::Degrees, AngleUnit::Gon, AngleUnit::Radians};
  constexpr AngleOrder kOrders[] = {AngleOrder::OmegaPhiKappa, AngleOrder::PhiOmegaKappa};
  Vary(
      conventions, [](Convention & c) -> auto& { return c.unit; }, kUnits);
  Vary(
      conventions, [](Convention & c) -> auto& { return c.order; }, kOrders);
  for (std::size_t i = 0; i < 3; ++i) {
    Vary(
        conventions, [i](Convention & c) -> auto& { return c.negative[i]; }, kBoth);
  }
}

void Vary_Principal_Point(std::vector<Convention>& conventions) {
  Vary(
      conventions, [](Convention & c) -> auto& { return c.pp_from_corner; }, kBoth);
  Vary(
      conventions, [](Convention & c) -> auto& { return c.pp_x_negative; }, kBoth);
  Vary(
      conventions, [](Convention & c) -> auto& { return c.pp_y_down; }, kBoth);
}

}  // namespace

std::vector<Convention> Plausible_Conventions(const Convention& stated,
                                              const std::vector<PhotoGiven>& photos) {
  std::vector<Convention> conventions{stated};
  const auto any = [&](auto condition) {
    return std::any_of(photos.begin(), photos.end(), condition);
  };
  if (any([](const PhotoGiven& photo) { return photo.rotation == RotationGiven::Angles; })) {
    Vary_Angles(conventions);
  }
  constexpr int kTurns[] = {0, 1, 2, 3};
  Vary(
      conventions, [](Convention & c) -> auto& { return c.image_to_ground; }, kBoth);
  Vary(
      conventions, [](Convention & c) -> auto& { return c.y_down; }, kBoth);
  Vary(
      conventions, [](Convention & c) -> auto& { return c.quarter_turns; }, kTurns);
  if (any([](const PhotoGiven& photo) { return photo.rotation != RotationGiven::Angles; })) {
    Vary(
        conventions, [](Convention & c) -> auto& { return c.position_is_translation; }, kBoth);
  }
  if (any([](const PhotoGiven& photo) {
        return photo.camera.pp_x != 0 || photo.camera.pp_y != 0;
      })) {
    Vary_Principal_Point(conventions);
  }
  Vary(
      conventions, [](Convention & c) -> auto& { return c.pixel_centres; }, kBoth);
  std::stable_sort(conventions.begin(), conventions.end(), [&](const auto& a, const auto& b) {
    return Choices_Between(a, stated) < Choices_Between(b, stated);
  });
  return conventions;
}

}  // namespace sylvomex
