// SPDX-License-Identifier: MIT
#include "workspace/mode_words.h"

#include "state/workspace.h"

namespace sylvomex {
namespace {

std::string Polygon_Words(const Workspace& w) {
  const std::string what = w.Menu.Draw_XYZ_Polygon ? "XY-polygon" : "polygon";
  return "Drawing a " + what +
         (w.PolygonActive ? ": click adds a corner, Shift+right click closes it"
                          : ": right click begins it, other clicks do nothing");
}

std::string Crown_Words(const Workspace& w) {
  return w.Crown.CrownClickOne ? "Crown width: click the second end"
                               : "Crown width: click the first end";
}

}  // namespace

std::string Mode_Words(const Workspace& w) {
  std::string words;
  const auto add = [&words](const std::string& mode) {
    words += (words.empty() ? "" : "; ") + mode;
  };
  if (w.Menu.Measure_Tie_and_CP) add("Tie points: click measures one");
  if (w.Menu.Draw_Polygon) {
    add(Polygon_Words(w));
    return words;
  }
  if (w.Form1.MeasureDistancesCheckBox.Value == 1) {
    add(Crown_Words(w));
    return words;
  }
  if (w.Menu.Measure_Surface) add("Surface points (pair): a click in image 0 matches");
  if (w.Menu.Measure_Triplet) add("Surface points (triplet): a click in image 1 matches");
  if (w.Menu.Measure_tree_tops_By_Matching) add("Tree tops: every click matches");
  return words;
}

}  // namespace sylvomex
