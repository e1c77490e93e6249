// SPDX-License-Identifier: MIT
#include "commands/surfaces/polygon_scan.h"

#include <algorithm>

#include "commands/surfaces/surface_inputs.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"
#include "platform/sound_reads.h"
#include "services/file_names.h"
#include "services/progress.h"
#include "services/status_line.h"
#include "state/box_numbers.h"
#include "state/camera_access.h"
#include "state/workspace.h"
#include "surfaces/image_grid.h"
#include "surfaces/image_polygon.h"
#include "surfaces/surface_scan.h"

namespace sylvomex {
namespace {

constexpr int kBytesPerPixel = 3;

/// Keeps grid points off the polygon's vertices.
double Shaken(Workspace& w, double film) {
  constexpr double kMostShake = 0.00001;  // metres of film
  return film + kMostShake * w.screen->Random();
}

FilmPosition Start_Place(Workspace& w, int image) {
  const FilmPosition boxes = Film_In_Boxes(w, image);
  const double x = Shaken(w, boxes.x);
  return {x, Shaken(w, boxes.y)};
}

RowRange Strip_At(double raw_row, Placing placing, std::int32_t image_id) {
  const double rows_above = placing == Placing::Centred ? kStripRows / 2 : 0;
  try {
    const std::int64_t first = To_Int32(raw_row - rows_above);
    return {first, first + kStripRows - 1};
  } catch (const RunTimeError& error) {
    throw error.At("image " + Plain_Text(image_id) + ", first row of the colour strip");
  }
}

std::int64_t Rows_Of_File(const WindowRaster& raster, const RowRange& strip) {
  const std::int64_t first = std::max<std::int64_t>(strip.first, 0);
  const std::int64_t last = std::min(strip.last, raster.rows - 1);
  return std::max<std::int64_t>(last - first + 1, 0);
}

}  // namespace

PolygonScan::PolygonScan(Workspace& w, const SurfaceSettings& settings)
    : w_(w), settings_(settings), centre_(w.Solution3D.Z) {
  const std::vector<MapPoint> polygon = Read_Image_Polygon(w.Drives.Locate(kFilmPolylineFile));
  Require_Images(w, settings.search);
  const int fixed = settings.search.fixed_image;
  const FilmPosition start = Start_Place(w, fixed);
  Lay_Strips(start);
  const double scale = Scale_Number(Camera_Of(w, fixed), centre_);
  places_ = Places_Inside(Grid_Positions(settings.grid, start, scale), polygon);
  followed_.push_back(std::make_unique<FollowedImage>(w, fixed));
  for (const int image : settings.search.moving_images) {
    followed_.push_back(std::make_unique<FollowedImage>(w, image));
  }
}

// The rows are not copied: the mapped files hold them, and a file that cannot be read tells so when
// a window needs it.
void PolygonScan::Lay_Strips(const FilmPosition& start) {
  const Camera fixed = Camera_Of(w_, settings_.search.fixed_image);
  const Point3D ground =
      Image_To_Object_At_Z(fixed, centre_, start).value_or(Point3D{0, 0, centre_});
  const auto lay = [&](int image) {
    const ImageRecord& record = w_.ImageBlock(image);
    if (record.ColorFlag != 1) return;
    const double row = Object_To_Pixel(Camera_Of(w_, image), ground).row;
    strips_(image) =
        Strip_At(Raw_Row(record.SubHeight, row), settings_.grid.placing, record.ImageId);
  };
  lay(settings_.search.fixed_image);
  for (const int image : settings_.search.moving_images) lay(image);
}

std::optional<double> PolygonScan::Strip_Bytes() {
  const int fixed = settings_.search.fixed_image;
  if (!strips_(fixed)) return std::nullopt;
  const WindowRaster raster = Open(fixed).raster;
  const auto images = static_cast<double>(settings_.search.moving_images.size() + 1);
  const auto rows = static_cast<double>(Rows_Of_File(raster, *strips_(fixed)));
  return rows * raster.sub_width * kBytesPerPixel * images;
}

SurfaceImage PolygonScan::Open(int image) {
  SurfaceImage opened = Open_Surface_Image(w_, image);
  opened.raster.strip = strips_(image);
  return opened;
}

std::vector<SurfaceImage> PolygonScan::Open_Moving() {
  std::vector<SurfaceImage> images;
  for (const int image : settings_.search.moving_images) images.push_back(Open(image));
  return images;
}

PolygonScan::Counts PolygonScan::Run(const Keep& keep) {
  Progress progress(w_);
  counts_.begun = !progress.Stop_Asked();
  const int fixed = settings_.search.fixed_image;
  WorkMeter meter(static_cast<double>(places_.size()));
  for (const FilmPosition& place : places_) {
    if (progress.Stop_Asked()) break;
    w_.Form1.Text1(2 * fixed).Text = Plain_Text(place.x);
    w_.Form1.Text1(2 * fixed + 1).Text = Plain_Text(place.y);
    progress.Report_Seldom([&] { return Progress_Text(progress.Seconds()); });
    Search_At_Boxes(keep);
    ++counts_.done;
    meter.Step();
  }
  Show_Status(w_, Counts_Text());
  return counts_;
}

// Events may have changed the boxes, the solution and the images.
void PolygonScan::Search_At_Boxes(const Keep& keep) {
  for (const auto& image : followed_) static_cast<void>(image->Index());
  if (!w_.SolutionValid) centre_ = kCentreWithoutSolution;
  const SearchSettings& search = settings_.search;
  const FilmPosition film = Film_In_Boxes(w_, search.fixed_image);
  const SurfaceImage fixed = Open(search.fixed_image);
  const auto found = Search_At_Place(
      search, fixed, [this] { return Open_Moving(); }, film, centre_);
  Require_Sound_Reads();
  if (!found) {
    ++counts_.without_texture;
    return;
  }
  Take(*found, keep);
}

void PolygonScan::Take(const SurfaceCandidate& found, const Keep& keep) {
  const double ground = Take_Surface_Point(w_, found);
  if (!(found.Correlation > settings_.search.acceptance)) return;
  ++counts_.accepted;
  if (settings_.follows_surface) centre_ = found.Z;
  keep(found, ground);
}

std::string PolygonScan::Counts_Text() const {
  return "Surface points: " + std::to_string(counts_.done) + " of " +
         std::to_string(places_.size()) + " done, " + std::to_string(counts_.accepted) +
         " accepted";
}

std::string PolygonScan::Progress_Text(double seconds) const {
  if (counts_.done == 0) return Counts_Text();
  const auto left = static_cast<double>(places_.size()) - counts_.done;
  return Counts_Text() + ", " + Format(seconds / counts_.done * left, "0 s") + " left";
}

}  // namespace sylvomex
