// SPDX-License-Identifier: MIT
#include "commands/crowns/multi_size_check.h"

#include "state/image_cause.h"
#include "state/workspace.h"

#include <algorithm>

#include "matching/image_template.h"
#include "matching/raw_band.h"
#include "matching/template_sizes.h"
#include "panes/pane_drawing.h"
#include "platform/rounding.h"
#include "state/camera_access.h"

namespace sylvomex {
namespace {

constexpr int kBandRows = 140;
constexpr int kBandRowsAbove = 70;  // above the point
constexpr int kReach = 4;           // shifts of the window, pixels

// A point of the image as the templates are laid over it: columns of the full image and rows
// from the top by the raw file's height.
struct TemplatePosition {
  double col = 0;
  double raw_row = 0;
};

double Best_Correlation(const RawBand& band, const TemplatePosition& at,
                        const ImageTemplate& pattern) {
  const std::int64_t col = To_Int32(at.col - pattern.reference_col);
  const std::int64_t band_row =
      std::int64_t{To_Int32(at.raw_row)} - band.first_row - pattern.reference_row;
  return Best_Correlation_Around(band, col, band_row, kReach, pattern);
}

// Whether the point is to be marked: false when a template is missing. best: the best correlation
// over all sizes; left alone where the band leaves the raster, as on sub-images it may.
bool Search_Sizes(const Workspace& w, int image, const Point3D& point, double& best) {
  if (!Has_Size_Template(w.Drives, image, 1)) return false;
  const ImageRecord& record = w.ImageBlock(image);
  const auto [col, row] = Object_To_Pixel(w, image, point);
  const TemplatePosition at{col, (record.SubHeight - 1) - row};
  const double first_row = Round_Half_Even(at.raw_row - kBandRowsAbove);
  if (!Is_Band_In_Raster(record, first_row, kBandRows)) return true;
  const RawBand band = Read_Band(w.Drives.Locate(record.RawFileName.Padded()), record.SubWidth,
                                 To_Int32(first_row), kBandRows);
  best = -1;
  for (int size = 1; size <= kTemplateSizeCount; ++size) {
    if (!Has_Size_Template(w.Drives, image, size)) return false;
    const ImageTemplate pattern = Read_Size_Template(w.Drives, image, size);
    best = std::max(best, Best_Correlation(band, at, pattern));
  }
  return true;
}

void Mark_In_All_Panes(Workspace& w, const Point3D& point) {
  for (int k = 0; k < w.ImageCount; ++k) {
    const PanePosition at = About_Image(w, k, ", the mark of the multi-size check",
                                        [&] { return Pane_Of_Point(w, k, point); });
    Picture& pane = w.Form1.Picture1(k);
    pane.DrawWidth = 3;
    pane.font.size = 8;
    Plot_Point(pane, at.px - 1, at.py - 1, kYellow);
    pane.DrawWidth = 2;
  }
}

}  // namespace

void Multi_Size_Check(Workspace& w, int image, const Point3D& point) {
  double best = 0;  // shown and kept nowhere: the mark alone tells that the search went through
  const bool is_found =
      About_Image(w, image, ", the pixel of the multi-size check or its templates",
                  [&] { return Search_Sizes(w, image, point, best); });
  if (is_found) Mark_In_All_Panes(w, point);
}

}  // namespace sylvomex
