// SPDX-License-Identifier: MIT
#include "panes/pane_zoom.h"

#include "panes/pane_rendering.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/sound_reads.h"
#include "state/box_numbers.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kZoomError =
    "Error in aZoom-function. Image observation missing? (xy-coords. Click a ref. point first)";

struct RawCentre {
  double raw_col = 0;
  double raw_row = 0;
};

// Raw-file position of the observation in the pane's text boxes.
RawCentre Observed_Centre(const Workspace& w, int image) {
  const auto [col, row] = Image_To_Pixel(w, image, Film_In_Boxes(w, image));
  const ImageRecord& record = w.ImageBlock(image);
  return {col - record.SubColOrigin, (record.FullHeight - 1) - row - record.SubRowOrigin};
}

void Append_View_To_Read_Out(Workspace& w, int image) {
  const PaneView& view = w.PaneViews(image);
  w.Form1.Label1(image).Caption += Format(view.ZoomX, "#.00") + " " + Format(view.ViewCol, "#") +
                                   " " + Format(view.ViewRow, "#");
}

void Render_At_Zoom(Workspace& w, int image, double zoom_x, double zoom_y) {
  const RawCentre centre = Observed_Centre(w, image);
  PaneView& view = w.PaneViews(image);
  view.ZoomX = zoom_x;
  view.ZoomY = zoom_y;
  view.ViewWidth = w.PaneWidth;
  view.ViewHeight = w.PaneHeight;
  const auto whole = [&w](double place) {
    return About(w, "the centre in raw pixels", [&] { return To_Int16(place); });
  };
  const ViewWindow window =
      Fit_View_Window(w, image, whole(centre.raw_col), whole(centre.raw_row),
                      View_Extent(w.PaneWidth, zoom_x), View_Extent(w.PaneHeight, zoom_y));
  Render_Scratch_Bitmap(w, image, window);
  Load_Scratch_Bitmap(w, image);
  Append_View_To_Read_Out(w, image);
  w.screen->Service_Events();
}

}  // namespace

void Set_Zoom(Workspace& w, int image, double zoom_x, double zoom_y) {
  if (w.ImageKinds(image) == 2) {
    Show_With_Cause(w, "Zoom not alowed for correlation images!", Name_Of_Image(w, image));
    return;
  }
  try {
    Render_At_Zoom(w, image, zoom_x, zoom_y);
  } catch (const RunTimeError& error) {
    Require_Sound_Reads();
    Show_With_Cause(w, kZoomError, error.At(Name_Of_Image(w, image), error.Native_Path()));
  }
}

void Zoom_All_Images(Workspace& w, double zoom) {
  for (int k = 0; k < w.ImageCount; ++k) {
    // Only the y box is tested, not the x box.
    if (w.Form1.Text1(2 * k + 1).Text.empty()) {
      w.screen->Message_Box("Image " + Plain_Text(std::int32_t{k}) +
                            " has no camera coordinates, skipping it");
      continue;
    }
    Set_Zoom(w, k, zoom, zoom);
  }
}

}  // namespace sylvomex
