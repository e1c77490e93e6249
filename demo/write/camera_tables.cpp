// SPDX-License-Identifier: MIT
#include "demo/write/camera_tables.h"

#include "demo/write/exact_text.h"

namespace sylvomex::demo {
namespace {

std::string Table_Line(const Photograph& photo, const std::string& second, const char* first) {
  const ImageRecord& image = photo.image;
  std::string line = std::to_string(image.ImageId) + ",1";
  for (const double value : {image.PrincipalDistance, image.Omega, image.Phi, image.Kappa, image.X0,
                             image.Y0, image.Z0}) {
    line += ',';
    line += Exact_Text(value);
  }
  return line + "," + second + "," + photo.header_name + "," + first + "\n";
}

/// A distant exposure of a camera with another principal distance.
Photograph Far_Photograph(Photograph photo, int number, double principal_distance, double east) {
  photo.image.ImageId = 1990 + number;
  photo.image.PrincipalDistance = principal_distance;
  photo.image.X0 += east;
  photo.camera = Make_Camera(photo.image);
  photo.header_name = "c:\\data\\demo\\far" + std::to_string(number) + ".hdr";
  return photo;
}

}  // namespace

std::string Aerial_Camera_Table(const std::vector<Photograph>& photos) {
  std::string table;
  for (const Photograph& photo : photos) {
    table += Table_Line(photo, std::to_string(photo.image.ImageId), "demo");
  }
  // One film camera, and two digital cameras with smaller frames.
  table += Table_Line(Far_Photograph(photos[0], 1, 0.15297, 5200), "1991", "far");
  table += Table_Line(Far_Photograph(photos[1], 2, 0.2045, -4800), "1992", "far");
  table += Table_Line(Far_Photograph(photos[2], 3, 0.105, 3900), "1993", "far");
  return table;
}

std::string Stand_Camera_Table(const std::vector<Photograph>& photos) {
  std::string table;
  for (const Photograph& photo : photos) {
    table += Table_Line(photo, std::to_string(photo.image.ImageId), "stand");
  }
  if (photos.empty()) return table;
  Photograph other = photos[0];
  other.image.ImageId = 690;
  other.image.PrincipalDistance = 0.0124;
  other.header_name = "c:\\data\\demo\\terr90.hdr";
  return table + Table_Line(other, "690", "other");
}

}  // namespace sylvomex::demo
