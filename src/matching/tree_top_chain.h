// SPDX-License-Identifier: MIT
// The tree tops of one plot from its images, height models and a measured model tree: the whole
// search as one function of records and numbers.
//
// The steps are those of the commands "Capture templates" to "Find clusters", so a session that
// plays them from a fresh start on the same images finds the same tops bit for bit. Object X east,
// Y north, Z up, metres.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "imageblock/image_record.h"
#include "imageblock/pane_renderer.h"
#include "matching/search_mesh.h"
#include "matching/template_record.h"
#include "solver/camera_model.h"

namespace sylvomex {

/// The numbers of a search, under the names of their boxes; the values that the workstation starts
/// with.
struct TreeTopNumbers {
  TemplateParameters crown{1.5, 3, 0};  // Tw, Zd, EZA
  double r = 23;                        // radius of the plot, metres
  double fHDOM = 1.15;                  // upper limit of the layer, in canopy heights
  double Hlow = 0.6;                    // lower limit, of the upper one
  double Mesh = 0.5;                    // spacing of the mesh, metres
  double XYt = 1.5;                     // points nearer than this belong to one top, metres
  double Rl = 0.3;                      // least score - 1 of a point
};

struct TreeTopOrder {
  Point3D plot;        // centre, on the ground
  Point3D model_tree;  // top of a measured tree
  TreeTopNumbers numbers;
};

/// An image of the search; its raw file must stay mapped until the search is done.
struct ChainImage {
  ImageRecord record;
  Camera camera;
  RawPixels raw;
};

struct TreeTop {
  Point3D at;
  double weight = 0;  // sum of score - 1 over the members
  int members = 0;    // mesh points
};

struct ChainSeconds {
  double read = 0;  // pixels of templates and patches
  double compute = 0;
};

struct TreeTopSearch {
  std::vector<TreeTop> tops;
  std::vector<std::string> notes;  // images that were left out, and why
  std::size_t images = 0;          // that took part
  std::size_t mesh_points = 0;
  double model_tree_height = 0;
  ChainSeconds seconds;
};

/// ground: height of the terrain; throws where there is none. canopy: height of the canopy, NaN
/// where there is none. images: at most nine. An image that does not show the model tree's whole
/// ellipse is left out with a note.
///
/// RunTimeError(BadContent) with the notes when fewer than two images are left,
/// RunTimeError(SubscriptOutOfRange) for a patch that does not fit its table and for more than nine
/// images, and the errors of the steps. threads: 1 for the calling thread alone, 0 for all; the
/// result is the same bit for bit.
TreeTopSearch Find_Tree_Tops(const TreeTopOrder& order, std::span<const ChainImage> images,
                             const HeightLookup& ground, const HeightLookup& canopy,
                             int threads = 0);

}  // namespace sylvomex
