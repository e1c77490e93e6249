// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/table.h"
#include "state/followed_image.h"
#include "surfaces/search_settings.h"
#include "surfaces/vertical_line_search.h"

namespace sylvomex {

struct Workspace;

/// A surface search at every grid point inside the polygon that was drawn in the fixed image. The
/// operator watches the points in the fixed image's boxes and stops the run with Check4.
class PolygonScan {
 public:
  struct Counts {
    bool begun = false;  // false: stopped before the first grid point
    int done = 0;
    int accepted = 0;
    int without_texture = 0;
  };

  /// Writes an accepted point down and marks it; ground: raster elevation there.
  using Keep = std::function<void(const SurfaceCandidate& found, double ground)>;

  /// Reads the polygon, takes the start point from the fixed image's boxes and lays out the grid
  /// and the colour strips. RunTimeError of the boxes, the files and the geometry.
  PolygonScan(Workspace& w, const SurfaceSettings& settings);

  /// Bytes of the colour strips of as many images as the search has; nothing for a grey fixed
  /// image.
  [[nodiscard]] std::optional<double> Strip_Bytes();

  /// A failure leaves everything kept before it.
  Counts Run(const Keep& keep);

 private:
  void Lay_Strips(const FilmPosition& start);
  SurfaceImage Open(int image);
  std::vector<SurfaceImage> Open_Moving();
  void Search_At_Boxes(const Keep& keep);
  void Take(const SurfaceCandidate& found, const Keep& keep);
  [[nodiscard]] std::string Counts_Text() const;
  [[nodiscard]] std::string Progress_Text(double seconds) const;

  Workspace& w_;
  const SurfaceSettings& settings_;
  std::vector<std::unique_ptr<FollowedImage>> followed_;  // the search's images
  std::vector<FilmPosition> places_;             // inside the polygon, in the order of the scan
  Table<std::optional<RowRange>, 0, 2> strips_;  // by image, of colour images only
  double centre_ = 0;                            // of the next search, metres
  Counts counts_;
};

}  // namespace sylvomex
