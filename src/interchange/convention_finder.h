// SPDX-License-Identifier: MIT
// Finds how the numbers of an orientation table are meant from points seen in its photographs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "interchange/convention.h"
#include "interchange/orientation_table.h"

namespace sylvomex {

struct PointObservation {
  std::size_t photo = 0;  // index in the table
  std::string point;
  double col = 0, row = 0;  // pixels; from which place of the first pixel, the convention says
};

struct KnownPoint {
  std::string name;
  Point3D position;  // world
};

/// Reads photo,point,col_px,row_px; further columns are not read. Refused for a photograph that the
/// table does not have.
std::vector<PointObservation> Parse_Observations(const NamedText& text,
                                                 const OrientationTable& table);

/// Reads point,X,Y,Z; the header line alone is a list without points.
std::vector<KnownPoint> Parse_Known_Points(const NamedText& text);

struct ConventionFit {
  Convention convention;
  double rms = 0;  // pixels, sqrt(sum(dcol^2 + drow^2) / observations)
  int group = 0;   // conventions of one group differ by less than a pixel; from 0, the best first
};

enum class FinderVerdict { FitsAsStated, ClearlyAnother, NoneFits, Undecided };

struct ConventionSearch {
  FinderVerdict verdict = FinderVerdict::NoneFits;
  std::vector<ConventionFit> fits;  // best first, those of the first groups
  std::optional<Convention> chosen;
  double stated_rms = 0;  // infinite where a point lies behind a camera
  double limit = 0;       // an RMS above it fits nothing, pixels
  std::size_t observations = 0;
};

/// Tries the plausible conventions. Points that are not known are intersected from their rays and
/// count where two photographs show them. The stated convention is kept when it belongs to the best
/// group; another one is chosen when its group is three times better than the next. A group fits
/// below 0.5 % of the longer side of the images, at least 3 pixels. Refused without an observation
/// that counts and for photographs whose size is not told.
ConventionSearch Find_Convention(const OrientationTable& table,
                                 const std::vector<PointObservation>& observations,
                                 const std::vector<KnownPoint>& points);

}  // namespace sylvomex
