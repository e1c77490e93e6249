// SPDX-License-Identifier: MIT
#include "panes/pane_centring.h"

#include <algorithm>
#include <cmath>

#include "imageblock/bitmap_file.h"
#include "panes/pane_drawing.h"
#include "panes/pane_rendering.h"
#include "platform/guest_files.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr double kFarthest = 32000;  // largest distance of a centre in raw pixels, within 16 bits
constexpr double kScaleElevation = 160;  // metres, of the scale number on the panes

constexpr const char* kCentre = "the centre in raw pixels";

ViewWindow Fit_At_Present_Zoom(Workspace& w, int image, RawCentre centre) {
  PaneView& view = w.PaneViews(image);
  const ViewWindow window =
      Fit_View_Window(w, image, centre.raw_col, centre.raw_row,
                      View_Extent(w.PaneWidth, view.ZoomX), View_Extent(w.PaneHeight, view.ZoomY));
  view.ViewWidth = w.PaneWidth;
  view.ViewHeight = w.PaneHeight;
  return window;
}

void Render_And_Load(Workspace& w, int image, const ViewWindow& window) {
  Render_Scratch_Bitmap(w, image, window);
  Load_Scratch_Bitmap(w, image);
}

RawCentre Limited_Raw_Centre(const ImageRecord& record, double col, double row) {
  const double limited_col = std::clamp(col, -kFarthest, kFarthest);
  const double raw_row = (record.FullHeight - 1 - row) - record.SubRowOrigin;
  RawCentre centre;
  centre.raw_col = To_Int16(limited_col - record.SubColOrigin);
  centre.raw_row = std::abs(raw_row) > kFarthest ? 0 : To_Int16(raw_row);
  return centre;
}

void Mark_Solution_And_Scale(Workspace& w, int image, double col, double row) {
  const ImageRecord& record = w.ImageBlock(image);
  Picture& picture = w.Form1.Picture1(image);
  const PanePosition at = Full_Image_To_Pane(record, w.PaneViews(image), col, row);
  picture.DrawWidth = 3;
  Plot_Point(picture, at.px, at.py, kWhite);
  picture.font = {"Arial", 20, true};
  picture.ForeColor = kWhite;
  picture.CurrentX = kCornerText;
  picture.CurrentY = kCornerText;
  const double scale = Scale_Number(Camera_Of(w, image), kScaleElevation);
  Print_Text(picture, Plain_Text(record.ImageId) + "    1:" + Format(scale, "00000"));
}

}  // namespace

void Center_One_On_Target(Workspace& w, int image) {
  const auto [col, row] = Object_To_Pixel(w, image, w.CenterTarget);
  const RawCentre centre = About(w, kCentre, [&, col = col, row = row] {
    return Limited_Raw_Centre(w.ImageBlock(image), col, row);
  });
  Render_And_Load(w, image, Fit_At_Present_Zoom(w, image, centre));
  Mark_Solution_And_Scale(w, image, col, row);
  w.screen->Service_Events();
}

void Center_One_On_Pan_Center(Workspace& w, int image) {
  const ImageRecord& record = w.ImageBlock(image);
  const auto [col, row] = Object_To_Pixel(w, image, w.CenterTarget);
  const RawCentre centre = About(w, kCentre, [&, col = col, row = row] {
    return RawCentre{To_Int16(col - record.SubColOrigin),
                     To_Int16((record.FullHeight - 1 - row) - record.SubRowOrigin)};
  });
  const ViewWindow window = Fit_At_Present_Zoom(w, image, centre);
  // A grey pane keeps its old bitmap although its view has changed.
  if (record.ColorFlag == 1) Render_Scratch_Bitmap(w, image, window);
  Load_Scratch_Bitmap(w, image);
  Picture& picture = w.Form1.Picture1(image);
  picture.DrawWidth = 1;
  const PanePosition at = Full_Image_To_Pane(record, w.PaneViews(image), col, row);
  Plot_Block(picture, at.px, at.py, 1, kGreen);
}

void Center_One_On_Raw_Position(Workspace& w, int image, RawCentre centre) {
  const ViewWindow window = Fit_At_Present_Zoom(w, image, centre);
  Render_Scratch_Bitmap(w, image, window);
  if (w.ImageBlock(image).ColorFlag == 1 && Has_Pixels(w.ImageBlock(image))) {
    Rewrite_Bitmap_Header(Scratch_File(w.Drives, w.ScratchBmpName.Trimmed()), w.PaneWidth,
                          w.PaneHeight);
  }
  Load_Scratch_Bitmap(w, image);
  w.Form1.Picture1(image).DrawWidth = 1;
  w.screen->Service_Events();
}

}  // namespace sylvomex
