// SPDX-License-Identifier: MIT
#include "demo/scene/surface_photographs.h"

#include <string>

#include "platform/rounding.h"

namespace sylvomex::demo {
namespace {

constexpr std::size_t kStrip = 3;          // photographs of the first strip
constexpr double kSideRoom = 40;           // metres that the raw files reach beyond the heath
constexpr double kSouthRoom = 12;          // likewise
constexpr double kNorthRoom = 35;          // likewise; with it a pane at 1:4 fits into the raw file
constexpr double kLow = 140, kHigh = 180;  // metres, beyond all ground
constexpr std::uint64_t kHeathGrain = 5000;

Photograph Heath_Photograph(const Photograph& photo, const std::string& name) {
  Photograph heath = photo;
  Set_Raw_Area(
      heath,
      {kForestWest + kHeathWest - kSideRoom, kForestSouth + kHeathSouth - kSouthRoom,
       kForestWest + kHeathEast + kSideRoom, kForestSouth + kHeathNorth + kNorthRoom, kLow, kHigh});
  Call_Raw_File_Whole(heath);
  heath.image.RawFileName = name + ".raw";
  heath.image.StartCol = To_Int16(heath.image.SubWidth / 2);
  heath.image.StartRow = To_Int16(heath.image.SubHeight / 2);
  heath.header_name = name + ".hdr";
  heath.grain += kHeathGrain;
  return heath;
}

std::string Numbered(const char* name, std::size_t k) {
  return std::string("c:\\data\\demo\\") + name + std::to_string(k + 1);
}

}  // namespace

void Call_Raw_File_Whole(Photograph& photo) {
  ImageRecord& image = photo.image;
  image.AffineA0 -= image.SubColOrigin;
  image.AffineB0 -= image.FullHeight - image.SubHeight - image.SubRowOrigin;
  image.FullWidth = To_Int16(image.SubWidth);
  image.FullHeight = To_Int16(image.SubHeight);
  image.SubColOrigin = image.SubRowOrigin = 0;
  photo.camera = Make_Camera(image);
}

std::vector<Photograph> Heath_Photographs(const std::vector<Photograph>& photos) {
  std::vector<Photograph> heath;
  for (std::size_t k = 0; k < kStrip && k < photos.size(); ++k) {
    heath.push_back(Heath_Photograph(photos[k], Numbered("heath", k)));
  }
  return heath;
}

std::vector<Photograph> Whole_Image_Photographs(const std::vector<Photograph>& photos) {
  std::vector<Photograph> whole;
  for (std::size_t k = 0; k < kStrip && k < photos.size(); ++k) {
    whole.push_back(photos[k]);
    Call_Raw_File_Whole(whole.back());
    whole.back().header_name = Numbered("surface", k) + ".hdr";
  }
  return whole;
}

}  // namespace sylvomex::demo
