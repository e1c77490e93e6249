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

namespace sylvomex {
namespace {

constexpr Colour kCyan{0, 255, 255};
constexpr double kEpipolarStep = 0.1;  // metres of height
constexpr int kSunRayReach = 30;       // metres to either side

void Dot_In_All_Panes(Workspace& w, double X, double Y, double Z) {
  for (int k = 0; k < w.ImageCount; ++k) {
    double col = 0, row = 0;
    Object_To_Pixel(w, k, X, Y, Z, col, row);
    const PanePosition at = Pane_Of_Pixel(w, k, col, row);
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

// The point t metres from the solution towards the sun of an image.
void Block_On_Sun_Ray(Workspace& w, int image, int t) {
  const ImageRecord& record = w.ImageBlock(image);
  const Vector3 sun = Sun_Vector(record.SunAzimuth, record.SunElevation);
  const PanePosition at = Pane_Of_Point(w, image, w.Solution3D.X + t * sun.x,
                                        w.Solution3D.Y + t * sun.y, w.Solution3D.Z + t * sun.z);
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
  const int image = w.CurrentImage;
  const MeasuredFilm film = Film_In_Boxes(w, image);
  const double first = w.Solution3D.Z - w.options.EpipolarZDepth;
  const double last = w.Solution3D.Z + w.options.EpipolarZDepth;
  const int passes = Loop_Passes(first, last, kEpipolarStep);
  double X = 0, Y = 0;
  for (int pass = 0; pass < passes; ++pass) {
    const double Z = first + pass * kEpipolarStep;
    Image_To_Object_At_Z(w, image, Z, film.x, film.y, X, Y);
    Dot_In_All_Panes(w, X, Y, Z);
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
    table += Angle_Line(Lighting_At(w.ImageBlock(k), w.RotationTable(k), w.Solution3D));
  }
  Write_Whole_File(w.Drives.Locate("c:\\data\\sun.txt"), table);
}

}  // namespace sylvomex
