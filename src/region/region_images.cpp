// SPDX-License-Identifier: MIT
#include "region/region_images.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "imageblock/image_header.h"
#include "interchange/failures.h"
#include "platform/run_time_error.h"
#include "solver/camera_table.h"

namespace sylvomex {
namespace {

constexpr double kEverywhere = 1e12;  // metres

bool Is_Pattern(const std::string& name) { return name.find_first_of("*?") != std::string::npos; }

std::vector<std::string> Names_By_Patterns(const DriveMap& drives, const RegionOrder& order) {
  std::vector<std::string> names;
  for (const std::string& pattern : order.headers) {
    if (!Is_Pattern(pattern)) {
      names.push_back(pattern);
      continue;
    }
    const std::vector<FilePath> found = drives.Match(pattern);
    if (found.empty()) throw Refused(pattern + ": no image header has such a name");
    for (const FilePath& file : found) names.push_back(drives.Drive_Name(file.native));
  }
  return names;
}

std::vector<std::string> Names_By_Table(const DriveMap& drives, const std::string& table) {
  std::vector<std::string> names;
  CameraTableReader cameras(drives.Locate(table));
  while (const auto camera = cameras.Next()) names.push_back(camera->header);
  if (names.empty()) throw Refused(table + ": the table lists no camera");
  return names;
}

/// Why the raw file cannot be used, or the empty text.
std::string Fault_Of_Raw(const DriveMap& drives, const ImageRecord& record) {
  const FilePath raw = drives.Locate(record.RawFileName.Trimmed());
  std::error_code error;
  const auto bytes = static_cast<double>(std::filesystem::file_size(raw.native, error));
  if (error) return "its raster " + raw.name + " is missing";
  const double needed = record.SubWidth * record.SubHeight * (record.ColorFlag == 1 ? 3 : 1);
  if (bytes >= needed) return "";
  return "its raster " + raw.name + " is shorter than the header says";
}

/// Full-image row, from the bottom, of the raw file's last row.
double Last_Row(const ImageRecord& record) {
  return record.FullHeight - 1 - (record.SubHeight - 1 + record.SubRowOrigin);
}

void Widen(MapExtent& extent, const Point3D& point) {
  extent.west = std::min(extent.west, point.X);
  extent.east = std::max(extent.east, point.X);
  extent.south = std::min(extent.south, point.Y);
  extent.north = std::max(extent.north, point.Y);
}

}  // namespace

RegionImage Read_Region_Image(const DriveMap& drives, const std::string& header) {
  ListReader reader(drives.Locate(header));
  const ImageRecord record = Read_Image_Header(reader);
  return {header, record, Make_Camera(record)};
}

std::vector<RegionImage> Read_Images(const DriveMap& drives, const RegionOrder& order,
                                     std::vector<PlanNote>& notes) try {
  const std::vector<std::string> names = order.cameras.empty()
                                             ? Names_By_Patterns(drives, order)
                                             : Names_By_Table(drives, order.cameras);
  std::set<std::filesystem::path> seen;
  std::vector<RegionImage> images;
  for (const std::string& name : names) {
    if (!seen.insert(drives.Locate(name).native).second) continue;
    RegionImage image = Read_Region_Image(drives, name);
    const std::string fault = Fault_Of_Raw(drives, image.record);
    if (fault.empty()) {
      images.push_back(std::move(image));
    } else {
      notes.push_back({name, "the image is not used, " + fault});
    }
  }
  if (images.empty()) throw Refused("no image can be used: " + notes.front().cause);
  return images;
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

Camera Raw_Camera(const RegionImage& image) {
  Camera camera = image.camera;
  camera.A0 -= image.record.SubColOrigin;
  camera.B0 -= Last_Row(image.record);
  return camera;
}

bool Shows(const RegionImage& image, const Point3D& point) {
  if (!(To_Camera_Axes(image.camera, point).q < 0)) return false;
  const PixelPosition at = Object_To_Pixel(Raw_Camera(image), point);
  return at.col >= 0 && at.row >= 0 && at.col <= image.record.SubWidth - 1 &&
         at.row <= image.record.SubHeight - 1;
}

MapExtent Ground_Of(const RegionImage& image, double low, double high) {
  const double right = image.record.SubWidth - 1, upper = image.record.SubHeight - 1;
  const Camera camera = Raw_Camera(image);
  MapExtent extent{kEverywhere, kEverywhere, -kEverywhere, -kEverywhere};
  for (const double Z : {low, high}) {
    for (const PixelPosition& corner :
         {PixelPosition{0, 0}, {right, 0}, {0, upper}, {right, upper}}) {
      const auto ground = Image_To_Object_At_Z(camera, Z, Pixel_To_Image(camera, corner));
      if (!ground || !(To_Camera_Axes(camera, *ground).q < 0)) {
        return {-kEverywhere, -kEverywhere, kEverywhere, kEverywhere};
      }
      Widen(extent, *ground);
    }
  }
  return extent;
}

double Distance_From_Nadir(const RegionImage& image, double X, double Y) {
  return std::hypot(image.camera.centre.X - X, image.camera.centre.Y - Y);
}

}  // namespace sylvomex
