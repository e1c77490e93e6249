// SPDX-License-Identifier: MIT
// What an operator wants to know of a pane and its marks do not tell once they are gone.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "imageblock/pane_view.h"
#include "imageblock/pixel_position.h"
#include "platform/point3d.h"

namespace sylvomex {

struct Workspace;

/// An observation in the boxes of an image: in the full image, and where the pane shows it.
struct NotedObservation {
  PixelPosition pixel;
  PanePosition at;
};

struct PaneNote {
  int image_id = 0;
  std::string zoom;                             // "2:1", "1:3"
  std::string mode;                             // what a click does, empty for measuring
  std::optional<NotedObservation> observation;  // std::nullopt for empty or unreadable boxes
  bool ticked = false;
  bool clicked_last = false;
  bool lacks_solution = false;  // there is a solution, and the raster shown does not hold it
};

/// For a pane that shows an image.
PaneNote Note_Of_Pane(Workspace& w, int image);

/// The zoom as a ratio of whole numbers.
std::string Zoom_Text(double zoom);

/// The mode that takes clicks, in the order in which they are dispatched; empty for plain
/// measuring.
std::string Active_Mode(const Workspace& w);

/// Where a pane shows a point; std::nullopt outside the pane and behind the camera.
std::optional<PanePosition> Shown_Place(const Workspace& w, int image, const Point3D& point);

/// A tree top of the last cluster search as a pane shows it.
struct ShownTop {
  int number = 0;    // as in the node file
  double score = 0;  // mean of S - 1 over the points of the cluster
  PanePosition at;
};

/// Those inside a pane that shows an image, the heaviest cluster first.
std::vector<ShownTop> Shown_Tops(const Workspace& w, int image);

}  // namespace sylvomex
