// SPDX-License-Identifier: MIT
// What the surface commands take from the block, and what they put back for every point.
#pragma once

#include <string>
#include <vector>

#include "state/workspace.h"
#include "surfaces/vertical_line_search.h"

namespace sylvomex {

/// Accepted points of the pair search and of both polygon commands.
inline constexpr const char* kSurfaceNodeFile = "c:\\temp\\maa.nod";

/// RunTimeError(SubscriptOutOfRange) when the block lacks an image of the search.
void Require_Images(const Workspace& w, const SearchSettings& settings);

/// An image as the searches see it. Its pixels stay valid while no events are serviced.
/// RunTimeError(SubscriptOutOfRange) when the block has no such image, those of the file layer.
SurfaceImage Open_Surface_Image(Workspace& w, int image);

/// All moving images of a search, in order.
std::vector<SurfaceImage> Open_Moving_Images(Workspace& w, const SearchSettings& settings);

/// A found point as the current solution: Solution3D, its texts, the observation record with the
/// score in Rmse. SolutionValid stays as it is. Returns the raster elevation at the point.
double Take_Surface_Point(Workspace& w, const SurfaceCandidate& found);

/// "X,Y,Z" in plain numbers, without a line end.
std::string Point_Text(const SurfaceCandidate& point);

/// Pane position of a found point.
PanePosition Pane_Of_Surface_Point(const Workspace& w, int image, const SurfaceCandidate& point);

/// The two lines of a result beside its place on a pane.
std::string Score_Text(const SurfaceCandidate& found);  // score and Z
std::string Ground_Text(double ground);                 // elevation of the raster model

/// A text whose upper left corner lies 15 pane units right of a place and some below it.
void Print_Beside(Picture& picture, const PanePosition& place, double below,
                  const std::string& text);

inline constexpr double kFirstLineBelow = 15, kSecondLineBelow = 35;  // pane units
inline constexpr Colour kSurfaceMark{225, 255, 25};

}  // namespace sylvomex
