// SPDX-License-Identifier: MIT
// A triangulated height model, read from a node file (X, Y, Z a line) and a triangle file
// (three node numbers a line, the first node of the file is 0).
#pragma once

#include <cstdint>
#include <vector>

#include "heightmodels/tin_buckets.h"
#include "heightmodels/tin_faces.h"
#include "heightmodels/tin_record.h"
#include "platform/drive_map.h"
#include "platform/report.h"

namespace sylvomex {

/// Triangles are numbered from 1 in the order of their file, as are the positions in Index.
struct TinModel {
  std::int32_t NodeCount = 0;
  std::int32_t TriangleCount = 0;
  double TileMinX = 0, TileMinY = 0, TileMaxX = 0, TileMaxY = 0;  // multiples of 100 m
  std::vector<TinNode> Nodes;
  std::vector<TinTriangle> Triangles;
  std::vector<std::int32_t> Index;  // triangle numbers by ascending MinX

  // For the lookups.
  std::vector<std::int32_t> position_of;  // position in Index of each triangle
  TinBuckets buckets;
  TinFaces faces;
};

template <class Record, class Visitor>
void Visit_Tin_Model(Record& record, Visitor&& visit) {
  visit("NodeCount", record.NodeCount);
  visit("TriangleCount", record.TriangleCount);
  visit("TileMinX", record.TileMinX);
  visit("TileMinY", record.TileMinY);
  visit("TileMaxX", record.TileMaxX);
  visit("TileMaxY", record.TileMaxY);
}

/// Reads the nodes and the bounds of a fresh model. lift: added to each Z, metres. A file
/// without a node or with something else than numbers is a RunTimeError that names file, line
/// and item.
void Read_Tin_Nodes(const FilePath& file, double lift, TinModel& model);

/// Reads the triangles of a model that has its nodes. True when all of them were read; a
/// triangle without a plane (of no extent, or through height 0 at the corner of its box) is
/// reported as "Cant divide with zero!" and ends the reading, the triangles before it stay.
/// Each triangle with MinX below 20 is reported as "!".
///
/// RunTimeError naming file, line and item for a number that is no node
/// (SubscriptOutOfRange), for more than two triangles a node (SubscriptOutOfRange), for MinX
/// beyond single precision (Overflow), and for a file without a triangle (InputPastEnd).
bool Read_Tin_Triangles(const FilePath& file, TinModel& model, const Report& report);

/// Fills a triangle from three nodes; false when it has no plane.
bool Fill_Tin_Triangle(const TinNode& a, const TinNode& b, const TinNode& c, TinTriangle& t);

/// Sorts Index and makes what the lookups need from the triangles.
void Index_Tin(TinModel& model, const Report& report);

}  // namespace sylvomex
