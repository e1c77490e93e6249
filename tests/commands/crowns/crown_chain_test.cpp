// SPDX-License-Identifier: MIT
// The crowns of an area as one function against the command.
#include "crowns/crown_chain.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "commands/crowns/crown_block.h"
#include "commands/crowns/crown_exchange.h"
#include "commands/crowns/image_lidar_allometry.h"
#include "support/failure_of.h"

namespace sylvomex {
namespace {

constexpr double kX = LidarBlock::kX, kY = LidarBlock::kY;
constexpr double kFlatGround = 100;

/// The echoes that the command took, over the flat ground, in the order of their heights.
CrownEchoes Echoes_Of(const std::vector<LidarPoint>& points) {
  std::vector<GroundedEcho> echoes;
  for (const LidarPoint& point : points) echoes.push_back({point, kFlatGround});
  std::vector<std::int32_t> order(echoes.size());
  std::iota(order.begin(), order.end(), 1);
  std::stable_sort(order.begin(), order.end(), [&](std::int32_t a, std::int32_t b) {
    return echoes[static_cast<std::size_t>(a - 1)].Normal_Height() <
           echoes[static_cast<std::size_t>(b - 1)].Normal_Height();
  });
  return {echoes, order};
}

struct PlayedCrowns : CrownBlock {
  PlayedCrowns() {
    Add_Tree({kX - 10, kY - 5, 24});
    Add_Tree({kX + 10, kY + 5, 20});
    Add_Tree({kX + 10, kY - 15, 15});
  }
  void Play() {
    Write_2006();
    screen.answers.push_back(Answer::Yes);
    Image_Lidar_Allometry_Algorithm(w);
  }
};

TEST(CrownChain, FindsTheCrownsOfTheCommandToTheLastBit) {
  PlayedCrowns b;
  b.Play();
  CrownEchoes echoes = Echoes_Of(b.w.LidarPoints);
  const auto crowns = Fit_Crowns(echoes, 0, Solver_With_Files(b.w.Drives));
  ASSERT_EQ(crowns.size(), static_cast<std::size_t>(b.w.Crowns.TreeCount));
  ASSERT_EQ(crowns.size(), 3U);
  for (std::size_t i = 0; i < crowns.size(); ++i) {
    const CrownRecord& expected = b.Tree(static_cast<int>(i) + 1);
    const CrownRecord& found = crowns[i].crown;
    EXPECT_EQ(found.X, expected.X);
    EXPECT_EQ(found.Y, expected.Y);
    EXPECT_EQ(found.TopZ, expected.TopZ);
    EXPECT_EQ(found.PointCount, expected.PointCount);
    EXPECT_EQ(found.A, expected.A);
    EXPECT_EQ(found.P, expected.P);
    EXPECT_EQ(found.B, expected.B);
  }
}

TEST(CrownChain, FitsTheModelledCrownsWithoutFiles) {
  PlayedCrowns b;
  b.Play();
  CrownEchoes echoes = Echoes_Of(b.w.LidarPoints);
  const auto crowns = Fit_Crowns(echoes, 0, MYFUNC_MATLABCALLNOMSGS);
  ASSERT_EQ(crowns.size(), 3U);
  EXPECT_NEAR(crowns[1].crown.X, kX + 10, 1e-6);
  EXPECT_EQ(crowns[1].crown.Height, 20);
  EXPECT_NEAR(crowns[1].crown.A, 0.09, 1e-3);  // the model's shape
  EXPECT_NEAR(crowns[1].crown.P, 0.8, 1e-3);
  EXPECT_NEAR(crowns[1].crown.B, 0.4, 1e-3);
}

TEST(CrownChain, NeedsAnEcho) {
  CrownEchoes none = Echoes_Of({});
  EXPECT_NE(Failure_Of([&] {
              Fit_Crowns(none, 0, MYFUNC_MATLABCALLNOMSGS);
            }).find("no lidar echo that could seed"),
            std::string::npos);
}

}  // namespace
}  // namespace sylvomex
