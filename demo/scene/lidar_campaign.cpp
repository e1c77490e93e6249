// SPDX-License-Identifier: MIT
#include "demo/scene/lidar_campaign.h"

#include <cmath>

#include "demo/scene/counter_random.h"

namespace sylvomex::demo {
namespace {

constexpr double kMeanGround = 160;   // metres
constexpr double kStripOffset = 150;  // metres from the forest's middle to a strip
constexpr double kScanMargin = 12;    // metres scanned beyond the campaign's area
constexpr double kSpeed = 65;         // metres a second
constexpr double kStripPause = 300;   // seconds between the starts of the strips
constexpr double kAttitude = 3e-4;    // radians, standard deviation of roll and pitch
constexpr std::uint64_t kScanStream = 12;

double Area_Side(const LidarCampaign& campaign) { return kForestSide - 2 * campaign.inset; }

/// Metres between pulses along and across one strip.
double Spacing(const LidarCampaign& campaign, double share) {
  return std::sqrt(kLidarStrips / (campaign.density * share));
}

double Swath(const LidarCampaign& campaign) { return Area_Side(campaign) + 2 * kScanMargin; }

std::uint64_t Line_Key(const Scene& scene, const LidarCampaign& campaign, int strip, int line) {
  const std::uint64_t key =
      Stream_Key(scene.settings.seed, kScanStream) + static_cast<std::uint64_t>(campaign.year);
  return Mix_Bits(Mix_Bits(key) + static_cast<std::uint64_t>(strip) * 1'000'003U +
                  static_cast<std::uint64_t>(line));
}

}  // namespace

const std::array<LidarCampaign, 3>& Lidar_Campaigns() {
  static const std::array<LidarCampaign, 3> campaigns = {{
      {2004, 0, 1, 900, 3.0e-4, 2.0, 0.04, 900, 2, 220, false, 2514000, 6855000},
      {2006, 24, 4, 850, 2.2e-4, 1.5, 0.03, 840, 2.3, 220, false, 2510000, 6850000},
      {2007, 24, 6, 780, 2.2e-4, 1.2, 0.02, 780, 2.5, 165, true, 2510000, 6850000},
  }};
  return campaigns;
}

LidarStrip Lidar_Strip(const LidarCampaign& campaign, double share) {
  const double lines = Swath(campaign) / Spacing(campaign, share);
  return {static_cast<int>(std::ceil(lines)), static_cast<int>(std::ceil(lines))};
}

std::vector<LidarPulsePath> Scan_Line(const Scene& scene, const LidarCampaign& campaign, int strip,
                                      int line) {
  const double spacing = Spacing(campaign, scene.settings.pulse_share);
  const LidarStrip extent = Lidar_Strip(campaign, scene.settings.pulse_share);
  const double heading = strip == 0 ? 1 : -1;  // north, then south
  const double middle_x = kForestWest + kForestSide / 2, middle_y = kForestSouth + kForestSide / 2;
  const double sensor_x = middle_x - heading * kStripOffset;
  const double start_y = middle_y - heading * Swath(campaign) / 2;
  RandomDraws draws{Line_Key(scene, campaign, strip, line)};
  std::vector<LidarPulsePath> pulses;
  for (int i = 0; i < extent.pulses_a_line; ++i) {
    LidarPulsePath pulse;
    pulse.strip = strip;
    pulse.scans_to_left = line % 2 == 1;
    pulse.at_line_end = i == 0 || i + 1 == extent.pulses_a_line;
    const double flown = (line + (i + 0.5) / extent.pulses_a_line) * spacing;  // metres
    pulse.time = strip * kStripPause + flown / kSpeed;
    pulse.ray.x = sensor_x + 0.8 * std::sin(flown / 70);
    pulse.ray.y = start_y + heading * flown;
    pulse.ray.z = kMeanGround + campaign.flying_height + 1.5 * std::sin(flown / 90 + strip);
    const int across = pulse.scans_to_left ? extent.pulses_a_line - 1 - i : i;
    const double target_x = middle_x - Swath(campaign) / 2 + (across + 0.5) * spacing;
    pulse.roll = draws.Normal(0, kAttitude);
    pulse.pitch = draws.Normal(0, kAttitude);
    pulse.angle = std::atan2(target_x - sensor_x, campaign.flying_height);
    pulse.ray.u = std::tan(pulse.angle + pulse.roll);
    pulse.ray.v = std::tan(pulse.pitch);
    pulse.ray.w = -1;
    pulses.push_back(pulse);
  }
  return pulses;
}

}  // namespace sylvomex::demo
