// SPDX-License-Identifier: MIT
#include "commands/surfaces/surface_inputs.h"

#include <string>

#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "services/solution.h"
#include "state/camera_access.h"

namespace sylvomex {
namespace {

constexpr double kTextRight = 15;  // pane units

void Require_Image(const Workspace& w, int image) {
  if (image < w.ImageCount) return;
  throw RunTimeError(Failure::SubscriptOutOfRange, "image " + std::to_string(image) +
                                                       " is needed, the block holds " +
                                                       std::to_string(w.ImageCount));
}

}  // namespace

void Require_Images(const Workspace& w, const SearchSettings& settings) {
  Require_Image(w, settings.fixed_image);
  for (const int image : settings.moving_images) Require_Image(w, image);
}

SurfaceImage Open_Surface_Image(Workspace& w, int image) {
  Require_Image(w, image);
  const ImageRecord& record = w.ImageBlock(image);
  const MappedFile& file = w.RawFiles.Open(w.Drives.Locate(record.RawFileName.Trimmed()));
  return {Make_Camera(record, w.RotationTable(image)), Make_Window_Raster(record, file.Bytes())};
}

std::vector<SurfaceImage> Open_Moving_Images(Workspace& w, const SearchSettings& settings) {
  std::vector<SurfaceImage> images;
  for (const int image : settings.moving_images) images.push_back(Open_Surface_Image(w, image));
  return images;
}

double Take_Surface_Point(Workspace& w, const SurfaceCandidate& found) {
  w.Solution3D = {found.X, found.Y, found.Z};
  Show_Solution(w, kHundredths);
  Record_Solution(w);
  const double ground = Get_Raster_Elevation(w, found.X, found.Y);
  w.Observation.DemZ = To_Single(ground);
  w.Observation.Rmse = To_Single(found.Correlation);
  return ground;
}

std::string Point_Text(const SurfaceCandidate& point) {
  return Plain_Text(point.X) + "," + Plain_Text(point.Y) + "," + Plain_Text(point.Z);
}

PanePosition Pane_Of_Surface_Point(const Workspace& w, int image, const SurfaceCandidate& point) {
  return Pane_Of_Point(w, image, {point.X, point.Y, point.Z});
}

std::string Score_Text(const SurfaceCandidate& found) {
  return Format(found.Correlation, "0.00") + " " + Format(found.Z, "#.0");
}

std::string Ground_Text(double ground) { return "DTM: " + Format(ground, "#.00 m"); }

void Print_Beside(Picture& picture, const PanePosition& place, double below,
                  const std::string& text) {
  picture.CurrentX = place.px + kTextRight;
  picture.CurrentY = place.py + below;
  Print_Text(picture, text);
}

}  // namespace sylvomex
