// SPDX-License-Identifier: MIT
#include "workspace/pointer_crown_width.h"

#include <cmath>

#include "panes/pane_drawing.h"
#include "platform/checked_arithmetic.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "solver/ray_angles.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr Colour kSecondEnd{125, 255, 50};

// Film distance of one pixel along a row, metres.
double Film_Per_Pixel(const ImageRecord& image) {
  return Quotient(1, image.AffineA1,
                  "image " + Plain_Text(image.ImageId) + ": the affine coefficient A1 is 0");
}

// Stores whose width is measured and returns the ground position of the pointer on the solution's
// horizontal plane; X and Y are 0 for a horizontal ray.
Point3D Identify_And_Locate(Workspace& w, int pane, double px, double py) {
  XYDistanceEntry& entry = w.XYDistanceEntries(pane);
  entry.Index = static_cast<std::uint8_t>(pane);
  entry.ImageCode = w.ImageBlock(pane).ImageId;
  const PixelPosition at = Pane_To_Full_Image(w.ImageBlock(pane), w.PaneViews(pane), px, py);
  const Camera camera = Camera_Of(w, pane);
  const double Z = w.Solution3D.Z;
  return Image_To_Object_At_Z(camera, Z, Pixel_To_Image(camera, at)).value_or(Point3D{0, 0, Z});
}

void Take_First_End(Workspace& w, int pane, double px, double py) {
  const ImageRecord& image = w.ImageBlock(pane);
  w.Crown.CrownPixelSize = Raw_Pixels_Per_Pane_Pixel(w.PaneViews(pane).ZoomX) *
                           Film_Per_Pixel(image) * Scale_Number(Camera_Of(w, pane), w.Solution3D.Z);
  w.Crown.CrownPointOneX = To_Single(px);
  w.Crown.CrownPointOneY = To_Single(py);
  w.Crown.CrownClickOne = true;
  Picture& picture = w.Form1.Picture1(pane);
  picture.DrawWidth = 3;
  Plot_Point(picture, px, py, kRed);
  picture.DrawWidth = 1;
  const Point3D ground = Identify_And_Locate(w, pane, px, py);
  w.XYDistanceEntries(pane).X0Obj = ground.X;
  w.XYDistanceEntries(pane).Y0Obj = ground.Y;
}

void Take_Second_End(Workspace& w, int pane, double px, double py) {
  w.Crown.CrownPointTwoX = To_Single(px);
  w.Crown.CrownPointTwoY = To_Single(py);
  w.Crown.CrownClickTwo = true;
  Picture& picture = w.Form1.Picture1(pane);
  picture.DrawWidth = 3;
  Plot_Point(picture, px, py, kSecondEnd);
  picture.DrawWidth = 1;
  Draw_Line(picture, w.Crown.CrownPointOneX, w.Crown.CrownPointOneY, px, py, kYellow);
  const Point3D ground = Identify_And_Locate(w, pane, px, py);
  w.XYDistanceEntries(pane).X1Obj = ground.X;
  w.XYDistanceEntries(pane).Y1Obj = ground.Y;
}

void Complete_Entry(Workspace& w, int pane, double distance) {
  const ImageRecord& image = w.ImageBlock(pane);
  XYDistanceEntry& entry = w.XYDistanceEntries(pane);
  entry.ObservedDistance = To_Single(distance);
  entry.ScaleAtZ = To_Single(Scale_Number(Camera_Of(w, pane), w.Solution3D.Z));
  entry.SunElevation = image.SunElevation * kDegreesPerRadian;
  entry.SunAzimuth = image.SunAzimuth * kDegreesPerRadian;
  if (const auto angles = Get_View_Angles(w, pane)) {
    entry.OffNadirAngle = angles->off_nadir;
    entry.AzimuthDifference = angles->azimuth_difference;
    entry.ObjCamRayAzimuth = angles->ray_azimuth;
  }
  entry.X = w.Solution3D.X;
  entry.Y = w.Solution3D.Y;
  entry.Z = w.Solution3D.Z;
}

void Complete_Pair(Workspace& w, int pane) {
  CrownClicks& crown = w.Crown;
  crown.CrownWidth = std::hypot(crown.CrownPointOneX - crown.CrownPointTwoX,
                                crown.CrownPointOneY - crown.CrownPointTwoY) *
                     crown.CrownPixelSize;
  const XYDistanceEntry& entry = w.XYDistanceEntries(pane);
  const double dx = entry.X0Obj - entry.X1Obj;
  const double dy = entry.Y0Obj - entry.Y1Obj;
  const double distance = std::sqrt(dx * dx + dy * dy);
  w.Form1.Text12(pane).Text = Format(distance, "#.0000");
  crown.CrownClickOne = false;
  crown.CrownClickTwo = false;
  Complete_Entry(w, pane, distance);
}

}  // namespace

void Crown_Width_Click(Workspace& w, int pane, double px, double py) {
  try {
    if (!w.Crown.CrownClickOne) {
      Take_First_End(w, pane, px, py);
    } else if (!w.Crown.CrownClickTwo) {
      Take_Second_End(w, pane, px, py);
      Complete_Pair(w, pane);
    }
  } catch (const RunTimeError&) {
    // The pair is complete: the next click is a first one again.
    w.Crown.CrownClickOne = false;
    w.Crown.CrownClickTwo = false;
    throw;
  }
}

}  // namespace sylvomex
