// SPDX-License-Identifier: MIT
#include "commands/solver/point_intersection.h"

#include <cmath>
#include <string>
#include <vector>

#include "commands/crowns/multi_size_check.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "services/solution.h"
#include "services/status_line.h"
#include "services/ticked_images.h"
#include "solver/space_intersection.h"
#include "state/box_numbers.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr Colour kGoodResult{10, 150, 20};
constexpr Colour kSuspectResult{255, 50, 30};

void Record_Images(Workspace& w, const std::vector<int>& images) {
  ObservationRecord& record = w.Observation;
  record.ImageSlots = {};
  record.ImageIds = {};
  int slot = 0;
  for (const int k : images) {
    record.ImageSlots(slot) = static_cast<std::uint8_t>(k);
    record.ImageIds(slot) = w.ImageBlock(k).ImageId;
    ++slot;
  }
}

FilmObservation Observation_Of(const Workspace& w, int image) {
  const FilmPosition film = Film_In_Boxes(w, image);
  return {Camera_Of(w, image), film};
}

// Reads the film observations from the text boxes and stores their pixels in the record.
void Take_Observations(Workspace& w, const std::vector<int>& images,
                       std::vector<FilmObservation>& observations) {
  observations.clear();
  int slot = 0;
  for (const int k : images) {
    const FilmObservation observation = Observation_Of(w, k);
    const PixelPosition pixel = Image_To_Pixel(observation.camera, observation.film);
    w.Observation.Cols(slot) = To_Single(pixel.col);
    w.Observation.Rows(slot) = To_Single(pixel.row);
    observations.push_back(observation);
    ++slot;
  }
  for (; slot <= 8; ++slot) w.Observation.Cols(slot) = w.Observation.Rows(slot) = 0;
}

IntersectionSettings Limits_Of(const Options& options) {
  IntersectionSettings settings;
  settings.stop_dx = options.IterationStopDX;
  settings.stop_dy = options.IterationStopDY;
  settings.stop_dz = options.IterationStopDZ;
  return settings;
}

// Events between the passes may change the boxes and the limits: both are read again.
IntersectionResult Solve(Workspace& w, const std::vector<int>& images) {
  const Point3D start{w.Solution3D.X, w.Solution3D.Y, w.Solution3D.Z - 0.03};
  IntersectionSettings settings = Limits_Of(w.options);
  std::vector<FilmObservation> observations;
  const auto read_boxes = [&]() -> std::span<const FilmObservation> {
    Take_Observations(w, images, observations);
    return observations;
  };
  const auto service_events = [&] {
    w.screen->Service_Events();
    settings = Limits_Of(w.options);
  };
  return Intersect_Rays(read_boxes, start, settings, service_events);
}

// A result that is not finite ends the command before the solution has changed.
void Require_Finite(const IntersectionResult& result) {
  for (const double value : {result.point.X, result.point.Y, result.point.Z, result.rmse_um,
                             result.std_x, result.std_y, result.std_z}) {
    if (!std::isfinite(value)) {
      throw RunTimeError(Failure::Overflow,
                         "the rays of the ticked images have no finite intersection");
    }
  }
}

// SolutionValid is left unchanged although the point is lost.
void Report_Singular(Workspace& w, const std::vector<int>& images) {
  std::string rays = "the rays of";
  for (const int k : images) rays += (k == images.front() ? " " : ", ") + Name_Of_Image(w, k);
  Show_With_Cause(w, "Iteration failed, determinant of Normal Matrix is too close to zero !",
                  rays + " do not fix a point");
  Show_Point(w, w.DefaultPanCenter, kPlainNumbers);
  w.screen->Message_Box("An error occurred in sub Calculate_Space_intersection_Click() ");
  w.Solution3D = {};
  Show_Status(w, "Could not compute ray intersection");
  w.Form1.Label3.Caption =
      "No point to start from: choose \"Reset (X,Y,Z) - solution\", then again";
}

void Warn_Of_Rmse(Workspace& w, double rmse) {
  if (!(rmse > w.options.RmseBeepOneLevel)) return;
  w.Form1.Label10.ForeColor = kSuspectResult;
  if (rmse > w.options.RmseBeepTwoLevel) {
    w.screen->Beep(w.options.RmseBeepTwoFrequency, w.options.RmseBeepTwoDuration);
  } else {
    w.screen->Beep(w.options.RmseBeepOneFrequency, w.options.RmseBeepOneDuration);
  }
}

void Show_Result(Workspace& w, const IntersectionResult& result) {
  Show_Point(w, result.point, kThousandths);
  w.Form1.Label10.ForeColor = kGoodResult;
  w.screen->Service_Events();
  Warn_Of_Rmse(w, result.rmse_um);
  Show_Status(w, "RMSE: " + Format(result.rmse_um, "#.0") + " um" +
                     " STDs: " + Format(result.std_x, "#.00 m") + ", " +
                     Format(result.std_y, "#.00 m") + ", " + Format(result.std_z, "#.00 m"));
}

void Record_Result(Workspace& w, const IntersectionResult& result) {
  w.Observation.Rmse = To_Single(result.rmse_um);
  w.Solution3D = result.point;
  Record_Solution(w);
  w.Observation.DemZ = To_Single(Get_Raster_Elevation(w, result.point.X, result.point.Y));
}

void Dot_Solution(Workspace& w) {
  for (int k = 0; k < w.ImageCount; ++k) {
    const PanePosition at = Pane_Of_Point(w, k, w.Solution3D);
    Picture& pane = w.Form1.Picture1(k);
    pane.DrawWidth = 1;
    Plot_Block(pane, at.px, at.py, 1, kGreen);
  }
}

// The object point at height Z for the film position in an image's text boxes; X and Y are 0 for a
// horizontal ray.
Point3D Cut_Ray_At(const Workspace& w, int image, double Z) {
  const FilmPosition film = Film_In_Boxes(w, image);
  return Image_To_Object_At_Z(w, image, Z, film).value_or(Point3D{0, 0, Z});
}

}  // namespace

void Point_Intersection(Workspace& w) {
  const std::vector<int> images = Ticked_Images(w);
  Record_Images(w, images);
  if (images.size() < 2) {
    w.screen->Message_Box("At least two images are needed for stereo restitution!");
    Show_Status(w, "Could not compute ray intersection for < 2 images");
    return;
  }
  w.Observation.ImageCount = static_cast<std::uint8_t>(images.size());
  const IntersectionResult result = Solve(w, images);
  if (result.singular) {
    Report_Singular(w, images);
    return;
  }
  Require_Finite(result);
  w.SolutionValid = true;
  Show_Result(w, result);
  Record_Result(w, result);
  Dot_Solution(w);
  Multi_Size_Check(w, 0, w.Solution3D);
}

void Single_Photo_intersection(Workspace& w) {
  try {
    const int image = w.CurrentImage;
    const std::string answer = w.screen
                                   ->Input_Box("Using image n:o" + Plain_Text(image) +
                                               ". Give elevation Z in meters, will solve X&Y!")
                                   .value_or("");
    w.Solution3D = Cut_Ray_At(w, image, Parse_Double(answer));
  } catch (const RunTimeError& error) {
    Show_With_Cause(w, "An error occurred in trying to solve X,Y from given Z,x,y!", error);
    return;
  }
  w.SolutionValid = true;
  Show_Solution(w, kHundredths);
  Record_Solution(w);
}

}  // namespace sylvomex
