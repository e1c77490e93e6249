// SPDX-License-Identifier: MIT
// Modelled trees as lidar echoes: the block of the lidar commands (flat ground at 100 m, two
// cameras, tile 064_070) with a raw file for the second image.
#pragma once

#include "commands/crowns/model_trees.h"
#include "commands/lidar/lidar_block.h"

namespace sylvomex {

struct CrownBlock : LidarBlock, TreePulses {
  CrownBlock() {
    Load_Flat_Ground();
    w.ImageBlock(1).RawFileName = "c:\\data\\second.raw";
    folder.Write("c/data/second.raw", "");
  }

  /// Pulses without an echo in the area, which make room in the list of echoes.
  void Add_Far_Pulses(int count) {
    for (int i = 0; i < count; ++i) Add_Echo(kX + 40, kY + 40, 0);
  }

  void Write_2006() { Write_Tile("2006", pulses); }

  std::vector<Mark> Marks_Of(int image, Mark::Kind kind, const Colour& colour) {
    std::vector<Mark> found;
    for (const Mark& mark : Marks(image)) {
      if (mark.kind == kind && mark.colour == colour) found.push_back(mark);
    }
    return found;
  }

  [[nodiscard]] const CrownRecord& Tree(int number) const { return w.Crowns.CrownTrees(number); }
  [[nodiscard]] const std::string& Status() const { return w.Form1.Label10.Caption; }
};

}  // namespace sylvomex
