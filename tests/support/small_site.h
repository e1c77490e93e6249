// SPDX-License-Identifier: MIT
// A site of a few small images in a temporary folder, with cameras that can be computed by hand.
#pragma once

#include <cmath>
#include <cstdio>
#include <functional>
#include <string>

#include "support/temporary_folder.h"

namespace sylvomex {

/// Contents of a small image's header. The defaults make a vertical photograph: c = 0.1 m,
/// 10 um pixels, 1000 m above the plane Z = 0, so that a pixel is 0.1 m on that plane; the
/// principal point is at full-image col 500, row 500.
struct SmallImage {
  int id = 1;
  int width = 1000, height = 1000;  // raw file
  int colour = 1;
  int start_col = 500, start_row = 500;
  double sub_col_origin = 0, sub_row_origin = 0;
  int full_width = 1000, full_height = 1001;
  double c = 0.1;
  double a1 = 100000, a2 = 0, a0 = 500, b1 = 0, b2 = 100000, b0 = 500;
  double omega = 0, phi = 0, kappa = 0;
  double X0 = 0, Y0 = 0, Z0 = 1000;
  double sun_azimuth = 3.0, sun_elevation = 0.6;
};

class SmallSite {
 public:
  SmallSite() { folder_.Make_Folder("c/data/Lehtomaa/Pistedata"); }

  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }
  [[nodiscard]] DriveMap Drives() const { return folder_.Drives(); }

  static std::string Header_Text(const SmallImage& image, const std::string& raw_name) {
    char text[2000];
    std::snprintf(text, sizeof text,
                  "%d\n%d\n%d\n\"%s\"\n%d\n%d\n%d\n%.17g\n%.17g\n%d\n%d\n%.17g\n"
                  "0,0,0,0,0,0,0,0\n%.17g,%.17g,%.17g,%.17g,%.17g,%.17g\n"
                  "%.17g %.17g %.17g\n%.17g %.17g %.17g\n%.17g\n%.17g\n\"a comment\"\n0\n",
                  image.id, image.width, image.height, raw_name.c_str(), image.colour,
                  image.start_col, image.start_row, image.sub_col_origin, image.sub_row_origin,
                  image.full_width, image.full_height, image.c, image.a1, image.a2, image.a0,
                  image.b1, image.b2, image.b0, image.omega, image.phi, image.kappa, image.X0,
                  image.Y0, image.Z0, image.sun_azimuth, image.sun_elevation);
    return text;
  }

  /// Red of raw pixel (col, row) is col mod 251, green row mod 241, blue 7; grey is the red.
  static std::string Raw_Bytes(const SmallImage& image) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(image.width) * image.height * 3);
    for (int row = 0; row < image.height; ++row) {
      for (int col = 0; col < image.width; ++col) {
        bytes += static_cast<char>(col % 251);
        if (image.colour == 1) {
          bytes += static_cast<char>(row % 241);
          bytes += static_cast<char>(7);
        }
      }
    }
    return bytes;
  }

  /// Writes "c:\data\<name>.hdr" and its raw file; returns the header's drive name.
  std::string Write_Image(const std::string& name, const SmallImage& image) const {
    const std::string raw = "c:\\data\\" + name + ".raw";
    folder_.Write("c/data/" + name + ".raw", Raw_Bytes(image));
    folder_.Write("c/data/" + name + ".hdr", Header_Text(image, raw));
    return "c:\\data\\" + name + ".hdr";
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace sylvomex
