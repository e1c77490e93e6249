// SPDX-License-Identifier: MIT
// Modelled trees as lidar echoes: the block of the lidar commands (flat ground at 100 m, two
// cameras, tile 064_070) with a raw file for the second image.
#pragma once

#include <cmath>
#include <numbers>

#include "commands/lidar/lidar_block.h"
#include "crowns/crown_profile.h"

namespace sylvomex {

struct ModelTree {
  double X = 0, Y = 0;
  double height = 20;
  CrownShape shape{0.09, 0.8, 0.4};
  int echoes = 60;  // below the top
};

struct CrownBlock : LidarBlock {
  std::vector<TestPulse> pulses;

  CrownBlock() {
    Load_Flat_Ground();
    w.ImageBlock(1).RawFileName = "c:\\data\\second.raw";
    folder.Write("c/data/second.raw", "");
  }

  void Add_Echo(double X, double Y, double height) {
    TestPulse pulse;
    pulse.slot[1] = {X, Y, kGround + height, 10, 800};
    pulses.push_back(pulse);
  }

  /// The top, and echoes spread about the axis at all depths to half the height, each with its
  /// counterpart on the other side, so that their mean is the axis.
  void Add_Tree(const ModelTree& tree) {
    Add_Echo(tree.X, tree.Y, tree.height);
    for (int i = 0; i < tree.echoes / 2; ++i) {
      const double depth = 0.5 * tree.height * (i + 0.5) / (tree.echoes / 2);
      const double r =
          std::pow(std::sin(4 * depth / tree.height), tree.shape.p) * tree.height * tree.shape.a +
          tree.shape.b;
      const double t = 2.4 * i;
      Add_Echo(tree.X + r * std::cos(t), tree.Y + r * std::sin(t), tree.height - depth);
      Add_Echo(tree.X - r * std::cos(t), tree.Y - r * std::sin(t), tree.height - depth);
    }
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
