// SPDX-License-Identifier: MIT
// The pending record of one measured tree, and its line in the file of stored trees.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/drive_map.h"

namespace sylvomex {

/// Fields in the order of the file's columns; lengths in metres.
struct LocalTree {
  std::int32_t PlotId = 0;
  std::int16_t TreeNumber = 0;
  std::uint8_t Species = 0;
  double X = 0, Y = 0, Z = 0;  // tree top
  float GroundZ = 0;
  float TreeHeight = 0;       // from the photographs
  float LidarMax = 0;         // greatest height above the ground among the crown's echoes
  float PhotoCrownWidth = 0;  // no measurement fills it
  float LidarCrownWidth = 0;
  float FitRmse = 0;
  double FitA = 0, FitP = 0, FitB = 0;
};

template <class Record, class Visitor>
void Visit_Local_Tree(Record& record, Visitor&& visit) {
  visit("PlotId", record.PlotId);
  visit("TreeNumber", record.TreeNumber);
  visit("Species", record.Species);
  visit("X", record.X);
  visit("Y", record.Y);
  visit("Z", record.Z);
  visit("GroundZ", record.GroundZ);
  visit("TreeHeight", record.TreeHeight);
  visit("LidarMax", record.LidarMax);
  visit("PhotoCrownWidth", record.PhotoCrownWidth);
  visit("LidarCrownWidth", record.LidarCrownWidth);
  visit("FitRmse", record.FitRmse);
  visit("FitA", record.FitA);
  visit("FitP", record.FitP);
  visit("FitB", record.FitB);
}

/// The record's line with its line end: every item is followed by a comma.
std::string Local_Tree_Line(const LocalTree& tree);

/// The trees of a file of such lines; empty lines are passed over. RunTimeErrors of the list
/// reader name file, line and item; a line that is cut short is one (InputPastEnd).
std::vector<LocalTree> Read_Local_Trees(const FilePath& file);

}  // namespace sylvomex
