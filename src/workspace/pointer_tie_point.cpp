// SPDX-License-Identifier: MIT
#include "workspace/pointer_tie_point.h"

#include "overlays/overlay_rows.h"
#include "panes/pane_drawing.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "services/file_names.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

void Mark_Tie_Point(Workspace& w, int image, double col, double row, std::int32_t point_id) {
  Picture& picture = w.Form1.Picture1(image);
  picture.DrawWidth = 3;
  picture.font.size = 12;
  const PanePosition at = Full_Image_To_Pane(w.ImageBlock(image), w.PaneViews(image), col, row);
  Plot_Point(picture, at.px, at.py, kRed);
  Print_Text(picture, Plain_Text(point_id));
  w.screen->Service_Events();
}

// The file's rows are flipped with the height of the clicked image.
void Show_Tie_Points(Workspace& w, int clicked_image, const FilePath& path) {
  ListReader file(path);
  while (!file.At_End()) {
    const TiePoint point = Read_Tie_Point(file);
    const double row = (w.ImageBlock(clicked_image).FullHeight - 1) - point.top_down_row;
    for (int j = 0; j < w.ImageCount; ++j) {
      if (w.ImageBlock(j).ImageId == point.image_id) {
        Mark_Tie_Point(w, j, point.col, row, point.point_id);
      }
    }
  }
}

}  // namespace

void Tie_Point_Click(Workspace& w, int pane, double px, double py) {
  const ImageRecord& image = w.ImageBlock(pane);
  const PaneView& view = w.PaneViews(pane);
  const double col = Pane_To_Full_Image(image, view, px, py).col;
  const double top_down_row = Pane_To_Top_Down_Row(image, view, py);
  if (w.TiePointFileLeftOpen) throw RunTimeError(Failure::FileAlreadyOpen, kTiePointFile);
  const FilePath path = w.Drives.Locate(kTiePointFile);
  Append_To_File(path, "");  // throws before the question when the file cannot be opened
  const auto answer = w.screen->Input_Box("Give Point Id");
  if (!answer) return;
  const std::int32_t point_id = Parse_Int32(*answer);
  if (point_id < 0) {
    // After a negative answer the file stays open, so the next tie point fails (required
    // behaviour).
    w.TiePointFileLeftOpen = true;
    return;
  }
  Append_To_File(path, Plain_Text(image.ImageId) + " " + Plain_Text(point_id) + " " +
                           Plain_Text(col) + " " + Plain_Text(top_down_row) + "\n");
  Show_Tie_Points(w, pane, path);
}

}  // namespace sylvomex
