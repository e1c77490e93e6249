// SPDX-License-Identifier: MIT
#include "panes/carried_marks.h"

#include <utility>

#include "panes/pane_centring.h"

namespace sylvomex {
namespace {

/// Pane positions of the new view from those of the old one, along one axis.
struct Axis {
  double scale = 1;
  double shift = 0;
  [[nodiscard]] double Moved(double position) const { return position * scale + shift; }
};

Axis Make_Axis(double start_before, double zoom_before, double start_after, double zoom_after) {
  return {zoom_after / zoom_before, (start_before - start_after) * zoom_after};
}

bool Is_Corner_Text(const Mark& mark) {
  return mark.kind == Mark::Kind::Text && mark.x1 == kCornerText && mark.y1 == kCornerText;
}

}  // namespace

void Load_Other_View(Picture& picture, std::shared_ptr<const PaneBitmap> bitmap,
                     const PaneView& before, const PaneView& after) {
  std::vector<Mark> marks = std::move(picture.marks);
  std::vector<MarkText> texts = std::move(picture.texts);
  Load_Picture(picture, std::move(bitmap));
  const Axis x = Make_Axis(before.ViewCol, before.ZoomX, after.ViewCol, after.ZoomX);
  const Axis y = Make_Axis(before.ViewRow, before.ZoomY, after.ViewRow, after.ZoomY);
  for (Mark& mark : marks) {
    if (Is_Corner_Text(mark)) continue;
    mark.x1 = x.Moved(mark.x1);
    mark.y1 = y.Moved(mark.y1);
    mark.x2 = x.Moved(mark.x2);
    mark.y2 = y.Moved(mark.y2);
  }
  picture.marks = std::move(marks);
  picture.texts = std::move(texts);
}

}  // namespace sylvomex
