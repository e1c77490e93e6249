// SPDX-License-Identifier: MIT
#include "panes/shown_raster.h"

#include "imageblock/bitmap_file.h"
#include "matching/image_template.h"
#include "panes/pane_rendering.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

/// The patch is grey, so the order of its colours does not matter.
PaneBitmap Render_Patch(Workspace& w, int image, const RenderRequest& request) {
  const FilePath file = Correlation_Picture_File(w.Drives, image);
  const PaneBitmap patch = Load_Bitmap(file);
  PaneBitmap shown;
  Render_Colour({patch.bgr, double(patch.width), double(patch.height), &file}, request, shown);
  return shown;
}

}  // namespace

bool Shows_Correlation(const Workspace& w, int image) { return w.ImageKinds(image) == 2; }

PaneView& Shown_View(Workspace& w, int image) {
  return Shows_Correlation(w, image) ? w.CorrelationPaneViews(image) : w.PaneViews(image);
}

ViewFrame Shown_Frame(const Workspace& w, int image) {
  const ImageRecord& record =
      Shows_Correlation(w, image) ? w.CorrelationRecords(image) : w.ImageBlock(image);
  return {record.SubWidth, record.SubHeight, w.PaneWidth, w.PaneHeight};
}

bool Shows_Image(Workspace& w, int image) {
  const ImageRecord& record = w.ImageBlock(image);
  return image < w.ImageCount && Shown_View(w, image).ZoomX > 0 && Has_Pixels(record) &&
         record.ColorFlag <= 1;
}

PaneBitmap Render_Shown(Workspace& w, int image, const RenderRequest& request) {
  return Shows_Correlation(w, image) ? Render_Patch(w, image, request)
                                     : Render_Photograph(w, image, request);
}

}  // namespace sylvomex
