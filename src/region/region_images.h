// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "imageblock/image_record.h"
#include "platform/drive_map.h"
#include "region/plan_record.h"
#include "solver/camera_model.h"

namespace sylvomex {

/// An image that tasks may use.
struct RegionImage {
  std::string header;  // on the drives
  ImageRecord record;
  Camera camera;
};

/// Reads a header. RunTimeErrors of the list reader.
RegionImage Read_Region_Image(const DriveMap& drives, const std::string& header);

/// The images that a region names, each once. One whose raw file is missing or too short is left
/// out with a note. Refused, naming the pattern, the table or the header, for names that match
/// nothing and a header that cannot be read.
std::vector<RegionImage> Read_Images(const DriveMap& drives, const RegionOrder& order,
                                     std::vector<PlanNote>& notes);

/// The camera with pixels of the raw file in place of the full image's: columns from its first one,
/// rows upwards from its last one. The same camera for an image that is not cut.
Camera Raw_Camera(const RegionImage& image);

/// Whether a point in front of the camera falls on a pixel of the raw file.
bool Shows(const RegionImage& image, const Point3D& point);

/// A map rectangle that holds all ground between two heights that the raw file shows; the whole
/// plane where a ray of its border does not come down.
MapExtent Ground_Of(const RegionImage& image, double low, double high);

/// Horizontal distance from the projection centre, metres.
double Distance_From_Nadir(const RegionImage& image, double X, double Y);

}  // namespace sylvomex
