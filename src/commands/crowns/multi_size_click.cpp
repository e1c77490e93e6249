// SPDX-License-Identifier: MIT
#include "commands/crowns/multi_size_click.h"

#include "state/cause.h"
#include "state/workspace.h"

#include <string>
#include <vector>

#include "closedlib/counted_loop.h"
#include "closedlib/window_correlation.h"
#include "commands/crowns/crown_inputs.h"
#include "commands/crowns/multi_size_check.h"
#include "matching/image_template.h"
#include "matching/raw_band.h"
#include "matching/template_sizes.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/work_meter.h"
#include "services/solution.h"
#include "services/status_line.h"
#include "services/ticked_images.h"
#include "state/box_numbers.h"
#include "state/camera_access.h"

namespace sylvomex {
namespace {

constexpr double kHeightReach = 9.0 / 2;  // metres, below and above the solution
constexpr double kHeightStep = 0.2;
constexpr int kMostCandidates = 200;
constexpr int kBandRows = 160;
constexpr int kBandRowsAbove = 80;  // above the point
constexpr std::int32_t kSpeciesRaster = 3;

// The points of the ray, from the lowest up; 1 to count are in use.
struct HeightCandidates {
  Table<Point3D, 1, kMostCandidates> point;
  int count = 0;
};

struct HeightSearch {
  std::vector<double> size_score;  // candidate by candidate of size 1, then of size 2 ...
  double best_score = -1.0;
  int best_row = 0;
};

// A ray parallel to the plane leaves X and Y at 0.
Point3D On_Ray(const Camera& camera, double Z, const FilmPosition& film) {
  return Image_To_Object_At_Z(camera, Z, film).value_or(Point3D{0, 0, Z});
}

HeightCandidates Candidates(const Camera& camera, const FilmPosition& film, double Z) {
  HeightCandidates candidates;
  candidates.count = Loop_Passes(Z - kHeightReach, Z + kHeightReach, kHeightStep);
  for (int n = 1; n <= candidates.count; ++n) {
    candidates.point(n) = On_Ray(camera, Z - kHeightReach + (n - 1) * kHeightStep, film);
  }
  return candidates;
}

RawBand Band_Around(const Workspace& w, int image, const Point3D& start) {
  const ImageRecord& record = w.ImageBlock(image);
  const std::string name = "image " + std::to_string(record.ImageId);
  if (record.ColorFlag != 1) {
    throw RunTimeError(Failure::BadContent,
                       name + " is grey: the multi-size measure takes images in colour");
  }
  const double row = Object_To_Pixel(Camera_Of(w, image), start).row;
  const double first = Round_Half_Even((record.SubHeight - 1) - (row + kBandRowsAbove));
  if (!Is_Band_In_Raster(record, first, kBandRows)) {
    throw RunTimeError(Failure::SubscriptOutOfRange, name + ": rows " + Plain_Text(first) + " to " +
                                                         Plain_Text(first + kBandRows - 1) +
                                                         " leave its raster of " +
                                                         Plain_Text(record.SubHeight) + " rows");
  }
  return Read_Band(w.Drives.Locate(record.RawFileName.Padded()), record.SubWidth, To_Int32(first),
                   kBandRows);
}

std::vector<PixelPosition> Pixels_Of(const Camera& camera, const HeightCandidates& candidates) {
  std::vector<PixelPosition> pixels;
  for (int n = 1; n <= candidates.count; ++n) {
    pixels.push_back(Object_To_Pixel(camera, candidates.point(n)));
  }
  return pixels;
}

// Correlations of one template size with one image, added to the scores of that size.
void Score_Size(const RawBand& band, double sub_height, const ImageTemplate& pattern,
                const std::vector<PixelPosition>& pixels, double* scores, HeightSearch& search) {
  std::vector<std::uint8_t> window;
  for (std::size_t n = 0; n < pixels.size(); ++n) {
    const std::int64_t col = To_Int32(pixels[n].col - pattern.reference_col);
    const std::int64_t band_row = std::int64_t{To_Int32((sub_height - 1) - pixels[n].row)} -
                                  band.first_row - pattern.reference_row;
    Cut_Window(band, col, band_row, pattern, window);
    scores[n] += MYFUNC_CCORB(window, pattern.pixels, MYFUNC_TEMPMEANSTD(window).mean);
    if (scores[n] > search.best_score) {
      search.best_score = scores[n];
      search.best_row = static_cast<int>(n) + 1;
    }
  }
}

void Score_Image(const Workspace& w, int image, const Point3D& start,
                 const HeightCandidates& candidates, HeightSearch& search) {
  const RawBand band = Band_Around(w, image, start);
  const std::vector<PixelPosition> pixels = Pixels_Of(Camera_Of(w, image), candidates);
  double* scores = search.size_score.data();
  for (int size = 1; size <= kTemplateSizeCount; ++size, scores += pixels.size()) {
    Look_At_Work();
    const ImageTemplate pattern = Read_Size_Template(w.Drives, image, size);
    Score_Size(band, w.ImageBlock(image).SubHeight, pattern, pixels, scores, search);
  }
}

HeightSearch Search_Heights(const Workspace& w, const Point3D& start,
                            const HeightCandidates& candidates) {
  HeightSearch search;
  search.size_score.assign(static_cast<std::size_t>(kTemplateSizeCount * candidates.count), 0);
  for (const int image : Ticked_Images(w)) {
    About(w, Name_Of_Image(w, image), [&] { Score_Image(w, image, start, candidates, search); });
  }
  if (search.best_row == 0) {
    throw RunTimeError(Failure::SubscriptOutOfRange,
                       "the multi-size measure has no best height: no image is ticked");
  }
  return search;
}

// The ticked species where an image's second related raster tells of species, else 0.
std::uint8_t Species_Code(const Workspace& w) {
  std::uint8_t code = 0;
  for (int k = 0; k < w.ImageCount; ++k) {
    const ImageRecord& image = w.ImageBlock(k);
    if (image.BandCount == 2 && image.BandType(1) == kSpeciesRaster) code = To_Byte(Get_Species(w));
  }
  return code;
}

}  // namespace

void Multi_Size_Click(Workspace& w, int pane) {
  const FilmPosition film = Film_In_Boxes(w, pane);
  const Camera camera = Camera_Of(w, pane);
  const Point3D start = On_Ray(camera, w.Solution3D.Z, film);
  const HeightCandidates candidates = Candidates(camera, film, w.Solution3D.Z);
  const HeightSearch search = Search_Heights(w, start, candidates);
  const Point3D top = candidates.point(search.best_row);
  Multi_Size_Check(w, 0, top);
  const double height = top.Z - Get_Raster_Elevation(w, top.X, top.Y);
  // The images that are not ticked and one more count in the mean as well.
  const std::string correlation = " r = " + Format(search.best_score / (w.ImageCount + 1), "0.00");
  Show_Status(w, "Height: " + Format(height, "0.00 m") + correlation);
  w.Solution3D = top;
  Show_Point(w, top, "0.00");
  w.screen->Service_Events();
  Show_Status(w,
              Plain_Text(int{Species_Code(w)}) + " H: " + Format(height, "0.00 m") + correlation);
}

}  // namespace sylvomex
