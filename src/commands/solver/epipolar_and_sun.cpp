// SPDX-License-Identifier: MIT
#include "commands/solver/epipolar_and_sun.h"

#include <string>

#include "closedlib/counted_loop.h"
#include "panes/pane_drawing.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "services/status_line.h"
#include "solver/ray_angles.h"
#include "state/box_numbers.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr Colour kCyan{0, 255, 255};
constexpr double kEpipolarStep = 0.1;  // metres of height
constexpr int kSunRayReach = 30;       // metres on either side of the solution

void Dot_In_All_Panes(Workspace& w, const Point3D& point) {
  for (int k = 0; k < w.ImageCount; ++k) {
    const PanePosition at = Pane_Of_Point(w, k, point);
    Picture& pane = w.Form1.Picture1(k);
    pane.DrawWidth = 1;
    Plot_Point(pane, at.px, at.py, w.ImageKinds(k) == 2 ? kGreen : kCyan);
  }
}

void Print_Sun_Angles(Workspace& w, int image) {
  const ImageRecord& record = w.ImageBlock(image);
  Picture& pane = w.Form1.Picture1(image);
  pane.CurrentX = 1;
  pane.CurrentY = 1;
  pane.font.size = 8;
  Print_Text(pane, "Elev: " + Format(record.SunElevation * kDegreesPerRadian, "0.0"));
  pane.CurrentX = 1;
  Print_Text(pane, "Azim: " + Format(record.SunAzimuth * kDegreesPerRadian, "0.0"));
}

// Draws a block at the point t metres from the solution towards the sun of an image.
void Block_On_Sun_Ray(Workspace& w, int image, int t) {
  const Vector3 sun = Sun_Vector(Sun_Of(w.ImageBlock(image)));
  const Point3D& foot = w.Solution3D;
  const PanePosition at =
      Pane_Of_Point(w, image, {foot.X + t * sun.x, foot.Y + t * sun.y, foot.Z + t * sun.z});
  Plot_Block(w.Form1.Picture1(image), at.px, at.py, 1, t % 2 == 0 ? kRed : kGreen);
}

std::string Angle_Line(const LightingAngles& angles) {
  constexpr const char* kPattern = "#.0";
  return Format(angles.sun_azimuth, kPattern) + "\t" + Format(angles.sun_elevation, kPattern) +
         "\t" + Format(angles.ray_azimuth, kPattern) + "\t" + Format(angles.difference, kPattern) +
         "\t" + angles.lighting + "\t" + Format(angles.off_nadir, kPattern) + "\n";
}

}  // namespace

void Draw_Epipolar_Line(Workspace& w) {
  if (w.CurrentImage == -1 || !w.SolutionValid) {
    Show_Status(w,
                "Cannot draw epipolar line, either solution is lacking or LastImageClicked = -1");
    return;
  }
  const FilmPosition film = Film_In_Boxes(w, w.CurrentImage);
  const Camera camera = Camera_Of(w, w.CurrentImage);
  const double first = w.Solution3D.Z - w.options.EpipolarZDepth;
  const double last = w.Solution3D.Z + w.options.EpipolarZDepth;
  const int passes = Loop_Passes(first, last, kEpipolarStep);
  for (int pass = 0; pass < passes; ++pass) {
    const double Z = first + pass * kEpipolarStep;
    // A horizontal ray has no intersection; it is drawn as the vertical line at X = Y = 0.
    Dot_In_All_Panes(w, Image_To_Object_At_Z(camera, Z, film).value_or(Point3D{0, 0, Z}));
  }
}

void Epipolar_line(Workspace& w) { Draw_Epipolar_Line(w); }

void Cast_sun_ray(Workspace& w) {
  if (!w.SolutionValid) {
    w.screen->Message_Box("Solution lacking!");
    return;
  }
  for (int k = 0; k < w.ImageCount; ++k) Print_Sun_Angles(w, k);
  for (int t = -kSunRayReach; t <= kSunRayReach; ++t) {
    for (int k = 0; k < w.ImageCount; ++k) Block_On_Sun_Ray(w, k, t);
  }
}

void Get_angles(Workspace& w) {
  if (!w.SolutionValid) return;
  std::string table;
  for (int k = 0; k < w.ImageCount; ++k) {
    table += Angle_Line(Lighting_At(Camera_Of(w, k), Sun_Of(w.ImageBlock(k)), w.Solution3D));
  }
  Write_Whole_File(w.Drives.Locate("c:\\data\\sun.txt"), table);
}

}  // namespace sylvomex
