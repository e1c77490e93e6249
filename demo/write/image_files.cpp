// SPDX-License-Identifier: MIT
#include "demo/write/image_files.h"

#include <initializer_list>

#include "demo/write/exact_text.h"
#include "platform/files.h"

namespace sylvomex::demo {
namespace {

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

std::string Line_Of(std::initializer_list<double> values) {
  std::string line;
  for (const double value : values) line += (line.empty() ? "" : ", ") + Exact_Text(value);
  return line + "\n";
}

std::string Reserved_Line(const ImageRecord& image) {
  std::string line;
  for (const double value : image.CameraReserved) {
    line += (line.empty() ? "" : ", ") + Exact_Text(value);
  }
  return line + "\n";
}

}  // namespace

std::string Image_Header_Text(const ImageRecord& image) {
  return Line_Of({static_cast<double>(image.ImageId)}) +
         Line_Of({image.SubWidth, image.SubHeight}) + Quoted(image.RawFileName.Trimmed()) + "\n" +
         Line_Of({static_cast<double>(image.ColorFlag)}) +
         Line_Of({static_cast<double>(image.StartCol), static_cast<double>(image.StartRow)}) +
         Line_Of({image.SubColOrigin, image.SubRowOrigin}) +
         Line_Of({static_cast<double>(image.FullWidth), static_cast<double>(image.FullHeight)}) +
         Line_Of({image.PrincipalDistance}) + Reserved_Line(image) +
         Line_Of({image.AffineA1, image.AffineA2, image.AffineA0}) +
         Line_Of({image.AffineB1, image.AffineB2, image.AffineB0}) +
         Line_Of({image.Omega, image.Phi, image.Kappa}) + Line_Of({image.X0, image.Y0, image.Z0}) +
         Line_Of({image.SunAzimuth, image.SunElevation}) + Quoted(image.ImageComment.Trimmed()) +
         "\n" + "0\n";
}

void Write_Photograph(const Photograph& photo, const std::vector<std::uint8_t>& pixels,
                      const DriveMap& drives) {
  Write_Whole_File(drives.Locate(photo.image.RawFileName.Trimmed()),
                   std::span<const std::uint8_t>(pixels));
  Write_Whole_File(drives.Locate(photo.header_name), Image_Header_Text(photo.image));
}

}  // namespace sylvomex::demo
