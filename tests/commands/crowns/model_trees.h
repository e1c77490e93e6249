// SPDX-License-Identifier: MIT
// Modelled trees as lidar pulses over level ground at 100 m.
#pragma once

#include <cmath>
#include <vector>

#include "crowns/crown_profile.h"
#include "support/lidar_files.h"

namespace sylvomex {

struct ModelTree {
  double X = 0, Y = 0;
  double height = 20;
  CrownShape shape{0.09, 0.8, 0.4};
  int echoes = 60;  // below the top
};

struct TreePulses {
  static constexpr double kTreeGround = 100;

  std::vector<TestPulse> pulses;

  void Add_Echo(double X, double Y, double height) {
    TestPulse pulse;
    pulse.slot[1] = {X, Y, kTreeGround + height, 10, 800};
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
};

}  // namespace sylvomex
