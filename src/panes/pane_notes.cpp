// SPDX-License-Identifier: MIT
#include "panes/pane_notes.h"

#include <algorithm>
#include <utility>

#include "panes/pane_drawing.h"
#include "panes/shown_raster.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"
#include "state/box_numbers.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

std::optional<NotedObservation> Noted(const Workspace& w, int image) {
  if (w.Form1.Text1(2 * image).Text.empty() || w.Form1.Text1(2 * image + 1).Text.empty()) {
    return std::nullopt;
  }
  try {
    const PixelPosition pixel = Image_To_Pixel(w, image, Film_In_Boxes(w, image));
    return NotedObservation{pixel, Pane_Of_Pixel(w, image, pixel)};
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

/// Inside the raster by its own view, and before the camera.
bool Holds_Point(Workspace& w, int image, const Point3D& point) {
  if (!(To_Camera_Axes(Camera_Of(w, image), point).q < 0)) return false;
  const PaneView& view = Shown_View(w, image);
  const ViewFrame frame = Shown_Frame(w, image);
  const PanePosition at = Pane_Of_Point(w, image, point);
  const double raw_col = view.ViewCol + at.px / view.ZoomX;
  const double raw_row = view.ViewRow + at.py / view.ZoomY;
  return raw_col >= 0 && raw_row >= 0 && raw_col < frame.sub_width && raw_row < frame.sub_height;
}

bool Lacks_Solution(Workspace& w, int image) {
  try {
    return w.SolutionValid && !Holds_Point(w, image, w.Solution3D);
  } catch (const RunTimeError&) {
    return true;
  }
}

bool Inside_Pane(const Workspace& w, const PanePosition& at) {
  return at.px >= 0 && at.py >= 0 && at.px < w.PaneWidth && at.py < w.PaneHeight;
}

}  // namespace

std::string Zoom_Text(double zoom) {
  if (zoom >= 1) return std::to_string(To_Int32(zoom)) + ":1";
  return "1:" + std::to_string(To_Int32(1 / zoom));
}

std::string Active_Mode(const Workspace& w) {
  if (w.Menu.Measure_Tie_and_CP) return "tie points";
  if (w.Menu.Draw_Polygon) return w.PolygonActive ? "polygon, begun" : "polygon";
  if (w.Form1.MeasureDistancesCheckBox.Value == 1) {
    return w.Crown.CrownClickOne ? "crown width, first end set" : "crown widths";
  }
  if (w.Menu.Measure_Surface) return "surface points (pair)";
  if (w.Menu.Measure_Triplet) return "surface points (triplet)";
  if (w.Menu.Measure_tree_tops_By_Matching) return "tree tops by matching";
  return "";
}

PaneNote Note_Of_Pane(Workspace& w, int image) {
  PaneNote note;
  note.image_id = w.ImageBlock(image).ImageId;
  note.zoom = Zoom_Text(Shown_View(w, image).ZoomX);
  note.mode = Active_Mode(w);
  if (Shows_Correlation(w, image)) note.mode += note.mode.empty() ? "correlation" : ", correlation";
  note.observation = Noted(w, image);
  note.ticked = w.Form1.Check1(image).Value == 1;
  note.clicked_last = w.CurrentImage == image;
  note.lacks_solution = Lacks_Solution(w, image);
  return note;
}

std::optional<PanePosition> Shown_Place(const Workspace& w, int image, const Point3D& point) {
  try {
    if (!(To_Camera_Axes(Camera_Of(w, image), point).q < 0)) return std::nullopt;
    const PanePosition at = Pane_Of_Point(w, image, point);
    return Inside_Pane(w, at) ? std::optional(at) : std::nullopt;
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

std::vector<ShownTop> Shown_Tops(const Workspace& w, int image) {
  const MatchingState& m = w.Matching;
  std::vector<std::pair<double, ShownTop>> tops;
  for (int i = 1; i <= m.ClusterCount; ++i) {
    const double weight = m.ClusterWeight(i);
    const int members = m.ClusterInfo(i).Members;
    if (weight == 0 || members == 0) continue;
    const Point3D& sum = m.ClusterSum(i);
    const PanePosition at =
        Pane_Of_Point(w, image, {sum.X / weight, sum.Y / weight, sum.Z / weight});
    if (Inside_Pane(w, at)) tops.push_back({weight, {i, weight / members, at}});
  }
  std::ranges::stable_sort(tops, std::greater{}, [](const auto& top) { return top.first; });
  std::vector<ShownTop> shown;
  shown.reserve(tops.size());
  for (const auto& top : tops) shown.push_back(top.second);
  return shown;
}

}  // namespace sylvomex
