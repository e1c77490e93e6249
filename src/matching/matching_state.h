// SPDX-License-Identifier: MIT
// The part of the block that belongs to tree-top matching. Lengths in metres, angles in radians.
//
// Index bases: images and mesh points 0, scores and sort indices 1, clusters 1.
#pragma once

#include <cstdint>
#include <vector>

#include "closedlib/back_projection.h"
#include "closedlib/clusters.h"
#include "matching/correlation_volume.h"
#include "matching/search_mesh.h"
#include "matching/template_record.h"
#include "platform/fixed_text.h"
#include "platform/table.h"
#include "solver/camera_model.h"
#include "solver/space_intersection.h"

namespace sylvomex {

struct PlotCenterRecord {
  FixedText<4> PlotId;
  double MeshRotation = 0;
  double PlotX = 0, PlotY = 0, PlotZ = 0;
};

/// Settings and model tree of a search as captured by its steps, so that the last step still knows
/// the model tree after the solution has moved.
struct CaptureSnapshotRecord {
  TemplateParameters Template;
  Point3D Solution;
  double ModelTreeHeight = 0;
  double fHDOM = 0, Hlow = 0, Mesh = 0;
  double XYt = 0, Rl = 0;
};

struct ImageSummaryRecord {
  std::int32_t ImageId = 0;
  double SunAzimuth = 0, SunElevation = 0;
  double X0 = 0, Y0 = 0, Z0 = 0;
};

struct ClusterInfoRecord {
  std::int32_t Reserved = 0;
  std::int32_t Members = 0;  // number of mesh points
};

struct MatchingState {
  PlotCenterRecord PlotCenter;
  std::vector<FilmPosition> ImagePolygon;  // vertices 0 to 100 of the polygon to match

  Table<TemplateRecord, 0, 8> Template;
  TemplateParameters Parameters;
  CaptureSnapshotRecord CaptureSnapshot;

  double PlotRadius = 0;
  double PatchSize = 0;  // side of the ground square that a patch should cover
  sylvomex::CorrelationVolume CorrelationVolume;

  double ModelTreeHeight = 0;
  std::int32_t MeshSide = 0;
  MeshTable MeshPoints;
  std::vector<float> PointScore{0};        // entry j + 1 is the score of mesh point j
  std::vector<std::int32_t> SortIndex{0};  // entries of PointScore by ascending score
  std::int32_t SortCount = 0;
  std::vector<ImageSummaryRecord> ImageSummary;  // the ticked images, in their order
  std::int32_t MatchImageCount = 0;

  std::int32_t ClusterCount = 0;
  Table<Point3D, 0, kMostClusters> ClusterSum;    // weighted sums of the members
  Table<double, 0, kMostClusters> ClusterWeight;  // sums of the weights
  Table<ClusterInfoRecord, 0, kMostClusters> ClusterInfo;
  Table<double, 0, 17> ClusterParameters;
  FixedText<10> ClusterRunDate;  // dd.mm.yyyy
  FixedText<8> ClusterRunTime;   // hh:mm:ss
  FixedText<8> ClusterRunName;   // eight digits
};

}  // namespace sylvomex
