// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <map>
#include <set>
#include <stdexcept>

#include "demo/render/pulse_tracer.h"
#include "demo/render/ray_caster.h"
#include "demo/write/lidar_files.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

const LidarCampaign& Campaign(int year) {
  for (const LidarCampaign& campaign : Lidar_Campaigns()) {
    if (campaign.year == year) return campaign;
  }
  throw std::out_of_range("no campaign");
}

Scene Sparse_Site() {
  SiteSettings settings;
  settings.pulse_share = 0.04;
  return Build_Scene(settings);
}

const Scene& Site() {
  static const Scene scene = Sparse_Site();
  return scene;
}

const std::vector<TracedPulse>& Pulses(int year) {
  static std::map<int, std::vector<TracedPulse>> flown;
  if (!flown.contains(year)) flown[year] = Fly_Lidar(Site(), Campaign(year));
  return flown[year];
}

class Years : public testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Campaigns, Years, testing::Values(2004, 2006, 2007));

Ray Straight_Down(const Tree& tree, double beside) {
  return {tree.X + beside, tree.Y, 1000, 0, 0, -1};
}

TEST(Beam, WithoutOpticalDepthEndsWhereACameraRayMeetsTheCrown) {
  for (const TracedPulse& pulse : Pulses(2006)) {
    const Ray& ray = pulse.path.ray;
    const double ground_t = Ground_Crossing(Site(), ray, 850);
    const BeamEnd end = Follow_Beam(Site(), ray, ground_t, 0);
    const SurfaceHit hit = Cast_Camera_Ray(Site(), ray, ground_t, Foliage::Closed);
    ASSERT_EQ(end.kind, hit.kind);
    ASSERT_EQ(end.tree, hit.tree);
    ASSERT_NEAR(end.t, hit.t, 1e-3);
  }
}

TEST(Beam, GoesThroughACrownThatIsThinnerThanItsDepth) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  // Half a radius from the axis, the birch of 12 m begins a quarter of its length down: 9 m of
  // foliage with an extinction of 0.55 per metre.
  const Ray ray = Straight_Down(scene.trees[0], 1.25);
  const BeamEnd inside = Follow_Beam(scene, ray, 850, 0.55 * 4);
  EXPECT_EQ(inside.kind, SurfaceHit::Kind::Crown);
  EXPECT_NEAR(inside.t, 1000 - 167 + 4, 1e-3);
  EXPECT_EQ(Follow_Beam(scene, ray, 850, 0.55 * 8.99).kind, SurfaceHit::Kind::Crown);
  const BeamEnd through = Follow_Beam(scene, ray, 850, 0.55 * 9.01);
  EXPECT_EQ(through.kind, SurfaceHit::Kind::Ground);
  EXPECT_EQ(through.t, 850);
}

TEST(Beam, EndsOnTheStemUnderTheCrown) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  const BeamEnd end = Follow_Beam(scene, Straight_Down(scene.trees[0], 0.05), 850, 1e6);
  EXPECT_EQ(end.kind, SurfaceHit::Kind::Stem);
  EXPECT_EQ(end.tree, 0);
  EXPECT_NEAR(end.t, 1000 - 158, 1e-9);
}

TEST(Beam, PassesSeveralCrownsUntilTheirDepthsAddUp) {
  Scene scene =
      Scene_Of({Tree_At(1, Species::Birch, 150, 150), Tree_At(2, Species::Birch, 156, 150)});
  // At 45 degrees from the west, through the first crown 8 m below its top to the second.
  const double sum = 1e-9;
  const Ray ray{scene.trees[0].X - 10, scene.trees[0].Y, 172, 1, 0, -1};
  const double ground_t = 22;
  const BeamEnd first = Follow_Beam(scene, ray, ground_t, sum);
  ASSERT_EQ(first.tree, 0);
  const auto leave = Leave_Crown(scene.trees[0], ray, first.t, ground_t);
  ASSERT_TRUE(leave);
  const double depth = 0.55 * std::sqrt(2.0) * (*leave - first.t);
  EXPECT_EQ(Follow_Beam(scene, ray, ground_t, 0.999 * depth).tree, 0);
  const BeamEnd second = Follow_Beam(scene, ray, ground_t, 1.001 * depth);
  EXPECT_EQ(second.tree, 1);
  const auto enter = Intersect_Crown(scene.trees[1], ray, 0, ground_t);
  ASSERT_TRUE(enter);
  EXPECT_NEAR(second.t, *enter, 0.01) << "what the first crown took is gone";
}

TEST(LeaveCrown, IsTheOppositeOfTheEntryOnTheReversedRay) {
  for (const Species species : {Species::Pine, Species::Spruce, Species::Birch}) {
    const Tree tree = Tree_At(1, species, 150, 150);
    const Ray ray{tree.X - 20, tree.Y + 0.7, 162, 1, 0, 0.02};
    const auto enter = Intersect_Crown(tree, ray, 0, 40), leave = Leave_Crown(tree, ray, 0, 40);
    ASSERT_TRUE(enter && leave);
    for (const double t : {*enter, *leave}) {
      const double distance = std::hypot(ray.x + t - tree.X, 0.7);
      EXPECT_NEAR(distance, Crown_Outline(tree, tree.TopZ - 162 - 0.02 * t).radius, 2e-4);
    }
    EXPECT_GT(*leave, *enter + 1);
    EXPECT_FALSE(Leave_Crown(tree, {tree.X - 20, tree.Y + 3, 162, 1, 0, 0}, 0, 40));
  }
}

TEST_P(Years, PulsesOverOpenGroundHaveOneEchoOnTheGround) {
  Scene scene = Sparse_Site();
  scene.trees.clear();
  scene.grid = Make_Tree_Grid(scene.trees);
  const LidarCampaign& campaign = Campaign(GetParam());
  const std::vector<TracedPulse> pulses = Fly_Lidar(scene, campaign);
  ASSERT_GT(pulses.size(), 1000U);
  double sum = 0;
  for (const TracedPulse& pulse : pulses) {
    ASSERT_EQ(pulse.count, 1);
    const TracedEcho& echo = pulse.echoes[0];
    const double error = echo.Z - Ground_Height(scene, echo.X, echo.Y);
    ASSERT_LT(std::abs(error), 6 * campaign.range_noise);
    sum += error;
  }
  EXPECT_NEAR(sum / static_cast<double>(pulses.size()), 0, 0.005);
}

TEST_P(Years, EchoesOfAPulseAreOrderedSeparatedByTheResolutionAndOnItsAxis) {
  const LidarCampaign& campaign = Campaign(GetParam());
  int trains = 0;
  for (const TracedPulse& pulse : Pulses(GetParam())) {
    ASSERT_GE(pulse.count, 1);
    ASSERT_LE(pulse.count, kMostEchoes);
    const Ray& ray = pulse.path.ray;
    for (std::size_t i = 0; i < static_cast<std::size_t>(pulse.count); ++i) {
      const TracedEcho& echo = pulse.echoes[i];
      const double t = ray.z - echo.Z;
      ASSERT_NEAR(std::hypot(echo.X - ray.x, echo.Y - ray.y, t), echo.range, 1e-6);
      ASSERT_NEAR(echo.X, ray.x + t * ray.u, 1e-6);
      ASSERT_NEAR(echo.Y, ray.y + t * ray.v, 1e-6);
      if (i == 0) continue;
      ASSERT_GT(echo.range - pulse.echoes[i - 1].range,
                campaign.resolution - 8 * campaign.range_noise);
      ASSERT_LT(echo.Z, pulse.echoes[i - 1].Z);
      ++trains;
    }
  }
  EXPECT_GT(trains, 100);
}

TEST_P(Years, EchoesLieBetweenCanopyAndGround) {
  const double slack =
      6 * Campaign(GetParam()).range_noise + 1.0;  // a crown's edge in the footprint
  int in_crowns = 0;
  for (const TracedPulse& pulse : Pulses(GetParam())) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(pulse.count); ++i) {
      const TracedEcho& echo = pulse.echoes[i];
      const double height = echo.Z - Ground_Height(Site(), echo.X, echo.Y);
      ASSERT_GT(height, -slack);
      ASSERT_LT(echo.Z, Site().grid.highest_top + slack);
      in_crowns += height > 5 ? 1 : 0;
    }
  }
  EXPECT_GT(in_crowns, 200);
}

// Seven beams end in a pine after 2 m each on the average, the k-th of them after
// 2 (1 / 7 + ... + 1 / (8 - k)) m. Where all are one echo the second one times it, with those that
// follow within 0.3 m; where the first stands alone it times itself.
TEST(PulseTracer, EchoesAreTimedByTheFirstQuarterOfTheirLight) {
  Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  Tree& tree = scene.trees[0];
  tree.crown_radius = 5;
  tree.crown_length = 20;
  scene.grid = Make_Tree_Grid(scene.trees);
  LidarPulsePath path;
  path.ray = {tree.X, tree.Y, 1000, 0, 0, -1};
  double sum = 0;
  constexpr int count = 4000;
  for (int i = 0; i < count; ++i) {
    const TracedPulse pulse =
        Trace_Pulse(scene, Campaign(2006), path, static_cast<std::uint64_t>(i));
    sum += tree.TopZ - pulse.echoes[0].Z;
  }
  EXPECT_GT(sum / count, 2.0 / 7);
  EXPECT_LT(sum / count, 2.0 / 7 + 2.0 / 6 + 0.3);
}

TEST_P(Years, DensityIsThatOfTheCampaign) {
  const LidarCampaign& campaign = Campaign(GetParam());
  const double side = kForestSide - 2 * campaign.inset;
  EXPECT_NEAR(static_cast<double>(Pulses(GetParam()).size()) / (side * side),
              0.04 * campaign.density, 0.04 * campaign.density * 0.06);
}

TEST_P(Years, FirstEchoesLieInTheCampaignsAreaUnderPlausibleAngles) {
  const LidarCampaign& campaign = Campaign(GetParam());
  for (const TracedPulse& pulse : Pulses(GetParam())) {
    const double x = pulse.echoes[0].X - kForestWest, y = pulse.echoes[0].Y - kForestSouth;
    ASSERT_GE(std::min(x, y), campaign.inset);
    ASSERT_LT(std::max(x, y), kForestSide - campaign.inset);
    ASSERT_LT(std::abs(pulse.path.angle), 0.4);
    ASSERT_EQ(pulse.path.ray.z > 1000, GetParam() != 2007);
  }
}

TEST(LidarIntensity, IsPlausibleAfterTheRangeAndGainCorrections) {
  for (const TracedPulse& pulse : Pulses(2006)) {
    const TracedEcho& echo = pulse.echoes[0];
    const double corrected = std::pow(1 - (840 - echo.range) / 840, 2.3) * echo.intensity;
    ASSERT_NEAR(corrected, echo.corrected, 0.6);
    ASSERT_GE(corrected, 1.9);
    ASSERT_LE(corrected, 250);
  }
  std::set<int> gains;
  for (const TracedPulse& pulse : Pulses(2007)) {
    const TracedEcho& echo = pulse.echoes[0];
    gains.insert(pulse.gain);
    const double corrected = std::pow(1 - (780 - echo.range) / 780, 2.5) * echo.intensity +
                             (127.5 - pulse.gain) * (echo.intensity * 0.045);
    ASSERT_NEAR(corrected, echo.corrected, 0.9);
    if (pulse.count > 1) continue;
    ASSERT_GE(corrected, 30);
    ASSERT_LE(corrected, 140);
  }
  EXPECT_GE(*gains.begin(), 121);
  EXPECT_LE(*gains.rbegin(), 133);
  EXPECT_GT(gains.size(), 5U);
}

template <class Number>
Number At(const std::string& bytes, std::size_t offset) {
  Number value;
  std::memcpy(&value, bytes.data() + offset, sizeof value);
  return value;
}

TracedPulse Pulse_Of(int echoes) {
  TracedPulse pulse;
  pulse.path.time = 12.5;
  pulse.path.strip = 1;
  pulse.path.ray = {1, 2, 1010, 0, 0, -1};
  pulse.gain = 131;
  pulse.count = echoes;
  for (int i = 0; i < echoes; ++i) {
    const double n = i + 1;  // order of arrival
    pulse.echoes[static_cast<std::size_t>(i)] = {
        100 + n, 200 + n, 300 - n, 800 + n, 0, static_cast<std::int16_t>(50 + i + 1)};
  }
  return pulse;
}

TEST(PulseRecord, FillsItsSlotsFromTheFourthDown) {
  for (int echoes = 1; echoes <= 4; ++echoes) {
    const std::string record = Pulse_Record(Pulse_Of(echoes));
    ASSERT_EQ(record.size(), 207U);
    EXPECT_EQ(static_cast<int>(record[8]), echoes);
    for (std::size_t slot = 1; slot <= 4; ++slot) {
      const int arrival = 5 - static_cast<int>(slot);
      const bool used = arrival <= echoes;
      const std::size_t k = slot - 1;
      EXPECT_EQ(At<double>(record, 9 + 24 * k), used ? 100 + arrival : 0) << slot;
      EXPECT_EQ(At<double>(record, 17 + 24 * k), used ? 200 + arrival : 0);
      EXPECT_EQ(At<double>(record, 25 + 24 * k), used ? 300 - arrival : 0);
      EXPECT_EQ(At<std::int16_t>(record, 105 + 2 * k), used ? 50 + arrival : 0);
      EXPECT_EQ(At<double>(record, 113 + 8 * k), used ? 800 + arrival : 0);
    }
  }
}

TEST(PulseRecord, HoldsTheSensorAndTheOtherBytesInTheirPlaces) {
  const std::string record = Pulse_Record(Pulse_Of(2));
  EXPECT_EQ(At<double>(record, 0), 12.5);
  EXPECT_EQ(At<double>(record, 177), 1);
  EXPECT_EQ(At<double>(record, 185), 2);
  EXPECT_EQ(At<double>(record, 193), 1010);
  EXPECT_EQ(At<std::int16_t>(record, 201), 2);
  EXPECT_EQ(At<std::uint8_t>(record, 203), 0);
  EXPECT_EQ(At<std::uint8_t>(record, 204), 131);
  EXPECT_EQ(At<std::uint8_t>(record, 206), 2);
}

TEST(PulseRecord2004, HoldsFirstAndLastEchoLowerByWhatReadersAdd) {
  const std::string record = Pulse_Record_2004(Pulse_Of(3));
  ASSERT_EQ(record.size(), 100U);
  EXPECT_EQ(At<double>(record, 44), 101);
  EXPECT_EQ(At<double>(record, 52), 201);
  EXPECT_NEAR(At<float>(record, 60) + 0.18F, 299, 1e-4);
  EXPECT_EQ(At<double>(record, 72), 103);
  EXPECT_EQ(At<double>(record, 80), 203);
  EXPECT_NEAR(At<float>(record, 88) + 0.18F, 297, 1e-4);
}

TEST(LidarTile, IsNamedByItsSquareFromTheCampaignsOrigin) {
  EXPECT_EQ(Tile_File_Name(Campaign(2007), 2516431.2, 6857012.9), "064_070.bin");
  EXPECT_EQ(Tile_File_Name(Campaign(2006), 2515100, 6860200), "051_102.bin");
  EXPECT_EQ(Tile_File_Name(Campaign(2004), 2515099.99, 6860200), "010_052.bin");
}

TEST_P(Years, TilesHoldEveryPulseOnceByItsFirstEcho) {
  const LidarCampaign& campaign = Campaign(GetParam());
  const bool first_last = GetParam() == 2004;
  const std::size_t bytes = first_last ? 100 : 207;
  const auto tiles = Lidar_Tiles(campaign, Pulses(GetParam()));
  EXPECT_EQ(tiles.size(), 9U);
  std::size_t sum = 0;
  for (const auto& [name, tile] : tiles) {
    const auto count = static_cast<std::size_t>(At<std::int32_t>(tile, 0));
    ASSERT_EQ(tile.size(), 4 + bytes * count);
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t at = 4 + bytes * i + (first_last ? 44 : 9 + 3 * 24);
      ASSERT_EQ(Tile_File_Name(campaign, At<double>(tile, at), At<double>(tile, at + 8)), name);
    }
    sum += count;
  }
  EXPECT_EQ(sum, Pulses(GetParam()).size());
}

}  // namespace
}  // namespace sylvomex::demo
