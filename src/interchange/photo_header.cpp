// SPDX-License-Identifier: MIT
#include "interchange/photo_header.h"

#include <cmath>

#include "interchange/checksum.h"

namespace sylvomex {
namespace {

constexpr const char* kFolder = "c:\\data\\images\\";
constexpr std::size_t kLongestPath = 60;  // bytes
constexpr double kMillimetres = 1000;     // in a metre

/// Cuts a UTF-8 text to at most `bytes` without splitting a character.
std::string Cut(std::string text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0U) == 0x80U) --bytes;
  text.resize(bytes);
  return text;
}

}  // namespace

std::string Header_Name(const std::string& photo_name) {
  return kFolder + Photo_Name(photo_name) + ".hdr";
}

std::string Raw_Name(const std::string& photo_name) {
  const std::string name = Photo_Name(photo_name);
  std::string path = kFolder + name + ".raw";
  if (path.size() <= kLongestPath) return path;
  constexpr std::size_t kSumDigits = 8;
  const std::string sum = "_" + Text_Checksum(name).substr(0, kSumDigits) + ".raw";
  return kFolder + Cut(name, kLongestPath - std::string(kFolder).size() - sum.size()) + sum;
}

HeaderAngles Angles_Of(const RotationMatrix& m) {
  return {std::atan2(-m.m32, m.m33), std::atan2(m.m31, std::hypot(m.m32, m.m33)),
          std::atan2(-m.m21, m.m11)};
}

ImageRecord Header_Of(const OrientedPhoto& photo, const PixelWindow& window, std::int32_t image_id,
                      bool is_colour, double sun_azimuth, double sun_elevation) {
  ImageRecord header;
  header.ImageId = image_id;
  header.RawFileName = Raw_Name(photo.name);
  header.ColorFlag = is_colour ? 1 : 0;
  header.SubColOrigin = window.first_col;
  header.SubRowOrigin = window.first_row;
  header.SubWidth = window.width;
  header.SubHeight = window.height;
  header.FullWidth = static_cast<std::int16_t>(photo.width);
  header.FullHeight = static_cast<std::int16_t>(photo.height);
  header.StartCol = static_cast<std::int16_t>(window.width / 2);
  header.StartRow = static_cast<std::int16_t>(window.height / 2);
  header.PrincipalDistance = photo.f_mm / kMillimetres;
  header.AffineA1 = kMillimetres / photo.pixel_mm;
  header.AffineA0 = photo.width / 2.0 - 0.5 + photo.x0;
  header.AffineB2 = kMillimetres / photo.pixel_y_mm;
  header.AffineB0 = photo.height / 2.0 - 0.5 + photo.y0;
  const HeaderAngles angles = Angles_Of(photo.m);
  header.Omega = angles.omega;
  header.Phi = angles.phi;
  header.Kappa = angles.kappa;
  header.X0 = photo.centre.X;
  header.Y0 = photo.centre.Y;
  header.Z0 = photo.centre.Z;
  header.SunAzimuth = sun_azimuth;
  header.SunElevation = sun_elevation;
  header.ImageComment = Cut(photo.name, kLongestPath);
  return header;
}

}  // namespace sylvomex
