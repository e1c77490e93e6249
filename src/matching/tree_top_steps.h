// SPDX-License-Identifier: MIT
// The steps of a tree-top search behind the templates: correlation images, search mesh,
// back-projection, scores and clusters. The operator's commands and Find_Tree_Tops
// (tree_top_chain.h) go through the same ones.
//
// Object X east, Y north, Z up, metres. Images and mesh points are counted from 0, scores and sort
// indices from 1. threads: 1 for the calling thread alone, 0 for all; the values are the same.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "closedlib/clusters.h"
#include "matching/image_template.h"
#include "matching/raw_window.h"
#include "matching/search_mesh.h"

namespace sylvomex {

/// Side of the ground square that the patches of a plot cover, metres.
inline double Patch_Size_Of(double plot_radius) {
  constexpr double kPatchPerRadius = 3.5;
  return plot_radius * kPatchPerRadius;
}

/// Side of the search mesh in whole metres, 0.65 of the patches' side, half to even.
/// RunTimeError(Overflow) beyond 32 bits.
std::int32_t Mesh_Side_Of(double patch_size);

/// The correlation of a template over a patch; rows from the top, columns fastest.
/// RunTimeErrors of MYFUNC_CORIMA.
std::vector<double> Correlate_Patch(const ImageTemplate& pattern, const RawWindow& window,
                                    std::span<const std::uint8_t> patch, int threads = 0);

/// The correlation of every mesh point in one image. patch: the image's correlation record.
std::vector<float> Back_Project(int image, const ImageRecord& record, const ImageRecord& patch,
                                const MeshTable& mesh, std::span<const double> volume,
                                int threads = 0);

/// The scores of `points` mesh points from their correlations, one table an image; entry 0 is
/// unused. RunTimeError(SubscriptOutOfRange) for points with fewer than two images.
std::vector<float> Score_Points(std::size_t points,
                                std::span<const std::vector<float>> correlations, int threads = 0);

/// The entries of a table of scores by ascending score; entry 0 is unused.
std::vector<std::int32_t> Sort_Scores(std::span<const float> scores, int threads = 0);

/// MYFUNC_FINDCLUSTERS. RunTimeError(SubscriptOutOfRange) for more scores than mesh points, as
/// after a mesh was built anew.
int Group_Points(const ScoredMesh& points, double distance, double score_limit,
                 const ClusterTables& tables);

}  // namespace sylvomex
