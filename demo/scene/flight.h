// SPDX-License-Identifier: MIT
// The six photographs of the site: two strips flown in opposite directions, three frames each,
// about 70 % forward and 43 % side overlap, the last frame grey. Every frame shows the whole
// forest; its raw file holds only the part around it.
//
// The centre of raw pixel (raw_col, raw_row), raw_row from the top, is at full-image col =
// SubColOrigin + raw_col + 0.5 and row = FullHeight - 1 - (SubRowOrigin + raw_row + 0.5), row
// from the bottom: a raw pixel covers one unit of col and row, as shown by a pane at zoom 1.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "demo/scene/scene.h"
#include "imageblock/image_record.h"
#include "solver/camera_model.h"

namespace sylvomex::demo {

struct Photograph {
  ImageRecord image;
  Camera camera;            // from the header, once it is oriented
  std::string header_name;  // drive name, "c:\data\demo\im1.hdr"
  std::uint64_t grain = 0;  // number of its noise pattern, unique to the photograph
};

/// Index of the tree on whose top the panes are centred when a photograph is added.
std::size_t Start_Tree(const Scene& scene);

std::vector<Photograph> Fly_Over(const Scene& scene);

/// A part of the scene, metres.
struct SceneBox {
  double west = 0, south = 0, east = 0, north = 0;
  double low = 0, high = 0;  // least and largest Z
};

/// Reduces the raw file of an oriented photograph to the area that shows that part.
void Set_Raw_Area(Photograph& photo, const SceneBox& part);

/// The ray from the projection centre through a full-image position, pointing down: w = -1, so t
/// measures metres below the centre.
Ray Ray_Through_Pixel(const Photograph& photo, double col, double row);

/// Full-image position of the centre of a raw pixel.
struct RawPixelCentre {
  double col = 0;
  double row = 0;  // from the bottom
};
RawPixelCentre Centre_Of_Raw_Pixel(const ImageRecord& image, double raw_col, double raw_row);

/// Whether a full-image position lies on the raw file.
bool Is_On_Raw_File(const ImageRecord& image, double col, double row);

}  // namespace sylvomex::demo
