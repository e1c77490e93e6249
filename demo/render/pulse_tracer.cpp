// SPDX-License-Identifier: MIT
#include "demo/render/pulse_tracer.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

#include "demo/render/ray_caster.h"
#include "demo/scene/counter_random.h"
#include "demo/scene/value_noise.h"
#include "platform/rounding.h"

namespace sylvomex::demo {
namespace {

constexpr std::uint64_t kPulseStream = 13;
constexpr std::uint64_t kGroundStream = 14;
constexpr std::uint64_t kGainStream = 15;
constexpr int kBeams = 7;
constexpr double kRing = 2.0 / 3;      // radius of the outer beams in radii of the footprint
constexpr double kTimingShare = 0.25;  // of an echo's light
constexpr double kEdgeLength = 0.3;    // metres of range in which the pulse rises
constexpr double kMeanGain = 127.5;
constexpr double kGainEffect = 0.045;     // effect of one step of gain on the intensity
constexpr double kIntensityNoise = 0.06;  // relative
constexpr double kLeastCorrected = 2;

struct BeamReturn {
  double range = 0;
  double reflectance = 0;
};

Ray Beam_Of(const Ray& axis, double divergence, int beam) {
  if (beam == 0) return axis;
  const double radius = kRing * divergence / 2, turn = beam * std::numbers::pi / 3;
  return {
      axis.x, axis.y, axis.z, axis.u + radius * std::cos(turn), axis.v + radius * std::sin(turn),
      axis.w};
}

double Metres_Per_T(const Ray& ray) {
  return std::sqrt(ray.u * ray.u + ray.v * ray.v + ray.w * ray.w);
}

double Reflectance(const Scene& scene, const BeamEnd& end, const Ray& ray) {
  if (end.kind == SurfaceHit::Kind::Stem) return 0.3;
  if (end.kind == SurfaceHit::Kind::Ground) {
    const double noise = Value_Noise(Stream_Key(scene.settings.seed, kGroundStream),
                                     (ray.x + end.t * ray.u) / 3, (ray.y + end.t * ray.v) / 3);
    return 0.52 + 0.16 * noise;
  }
  const Species species = scene.trees[static_cast<std::size_t>(end.tree)].species;
  if (species == Species::Birch) return 0.52;
  return species == Species::Pine ? 0.40 : 0.34;
}

std::array<BeamReturn, kBeams> Follow_Beams(const Scene& scene, const LidarCampaign& campaign,
                                            const Ray& axis, RandomDraws& draws) {
  std::array<BeamReturn, kBeams> returns;
  double ground_t = campaign.flying_height;
  for (int beam = 0; beam < kBeams; ++beam) {
    const Ray ray = Beam_Of(axis, campaign.divergence, beam);
    ground_t = Ground_Crossing(scene, ray, ground_t);
    const double optical_depth = -std::log(1 - draws.Uniform());
    const BeamEnd end = Follow_Beam(scene, ray, ground_t, optical_depth);
    returns[static_cast<std::size_t>(beam)] = {end.t * Metres_Per_T(ray),
                                               Reflectance(scene, end, ray)};
  }
  std::sort(returns.begin(), returns.end(),
            [](const BeamReturn& a, const BeamReturn& b) { return a.range < b.range; });
  return returns;
}

struct EchoTrain {
  int count = 0;
  std::array<BeamReturn, kBeams> echoes;  // range; mean reflectance over all beams
};

/// Mean range of the beams that are back when the pulse's edge has risen: the timing share of the
/// light, and what follows it within the length of the edge.
double Timed_Range(std::span<const BeamReturn> group, double light) {
  double back = 0, ranges = 0, edge_end = HUGE_VAL;
  std::size_t count = 0;
  for (const BeamReturn& beam : group) {
    if (beam.range > edge_end) break;
    back += beam.reflectance;
    ranges += beam.range;
    ++count;
    if (edge_end == HUGE_VAL && back >= kTimingShare * light) edge_end = beam.range + kEdgeLength;
  }
  return ranges / static_cast<double>(count);
}

/// Returns closer in range than the resolution merge into one echo, which is timed on its leading
/// edge by a constant fraction of its light (Wagner et al. 2004, From single-pulse to
/// full-waveform airborne laser scanners, ISPRS Archives 35 B3).
EchoTrain Merge_Returns(const std::array<BeamReturn, kBeams>& returns, double resolution) {
  EchoTrain train;
  for (std::size_t i = 0; i < returns.size();) {
    std::size_t end = i;
    double reflectances = 0;
    do {
      reflectances += returns[end].reflectance;
      ++end;
    } while (end < returns.size() && returns[end].range - returns[end - 1].range < resolution);
    const std::span<const BeamReturn> group(returns.data() + i, end - i);
    train.echoes[static_cast<std::size_t>(train.count++)] = {Timed_Range(group, reflectances),
                                                             reflectances / kBeams};
    i = end;
  }
  if (train.count > kMostEchoes) {
    train.echoes[kMostEchoes - 1] = train.echoes[static_cast<std::size_t>(train.count) - 1];
    train.count = kMostEchoes;
  }
  return train;
}

/// The gain drifts slowly, with a period of some seconds.
std::uint8_t Gain_At(const Scene& scene, const LidarCampaign& campaign, double time) {
  if (!campaign.has_gain_control) return 127;
  return To_Byte(121 +
                 12 * Value_Noise(Stream_Key(scene.settings.seed, kGainStream), time / 0.7, 0));
}

/// The recorded intensity whose range and gain correction gives the corrected one.
std::int16_t Recorded(const LidarCampaign& campaign, double corrected, double range, double gain) {
  double factor = std::pow(range / campaign.reference_range, campaign.range_exponent);
  if (campaign.has_gain_control) factor += (kMeanGain - gain) * kGainEffect;
  return std::max<std::int16_t>(1, To_Int16(corrected / factor));
}

TracedEcho Make_Echo(const LidarCampaign& campaign, const Ray& axis, const BeamReturn& merged,
                     double gain, RandomDraws& draws) {
  TracedEcho echo;
  echo.range = merged.range + draws.Normal(0, campaign.range_noise);
  const double t = echo.range / Metres_Per_T(axis);
  echo.X = axis.x + t * axis.u;
  echo.Y = axis.y + t * axis.v;
  echo.Z = axis.z + t * axis.w;
  const double light = campaign.full_intensity * merged.reflectance;
  echo.corrected = std::max(kLeastCorrected, light * draws.Normal(1, kIntensityNoise));
  echo.intensity = Recorded(campaign, echo.corrected, echo.range, gain);
  return echo;
}

bool Is_In_Area(const LidarCampaign& campaign, const TracedEcho& echo) {
  const double x = echo.X - kForestWest - campaign.inset;
  const double y = echo.Y - kForestSouth - campaign.inset;
  const double side = kForestSide - 2 * campaign.inset;
  return x >= 0 && y >= 0 && x < side && y < side;
}

std::vector<TracedPulse> Trace_Line(const Scene& scene, const LidarCampaign& campaign, int strip,
                                    int line) {
  std::vector<TracedPulse> traced;
  const LidarStrip extent = Lidar_Strip(campaign, scene.settings.pulse_share);
  auto number = (static_cast<std::uint64_t>(strip) * static_cast<std::uint64_t>(extent.scan_lines) +
                 static_cast<std::uint64_t>(line)) *
                static_cast<std::uint64_t>(extent.pulses_a_line);
  for (const LidarPulsePath& path : Scan_Line(scene, campaign, strip, line)) {
    TracedPulse pulse = Trace_Pulse(scene, campaign, path, number++);
    if (Is_In_Area(campaign, pulse.echoes[0])) traced.push_back(pulse);
  }
  return traced;
}

}  // namespace

TracedPulse Trace_Pulse(const Scene& scene, const LidarCampaign& campaign,
                        const LidarPulsePath& path, std::uint64_t number) {
  const std::uint64_t key = Stream_Key(scene.settings.seed, kPulseStream) +
                            1'000'000'007U * static_cast<std::uint64_t>(campaign.year);
  RandomDraws draws{Mix_Bits(Mix_Bits(key) + number)};
  const auto returns = Follow_Beams(scene, campaign, path.ray, draws);
  const EchoTrain train = Merge_Returns(returns, campaign.resolution);
  TracedPulse pulse;
  pulse.path = path;
  pulse.gain = Gain_At(scene, campaign, path.time);
  pulse.count = train.count;
  for (std::size_t i = 0; i < static_cast<std::size_t>(train.count); ++i) {
    pulse.echoes[i] = Make_Echo(campaign, path.ray, train.echoes[i], pulse.gain, draws);
  }
  return pulse;
}

std::vector<TracedPulse> Fly_Lidar(const Scene& scene, const LidarCampaign& campaign) {
  const int lines = Lidar_Strip(campaign, scene.settings.pulse_share).scan_lines;
  std::vector<std::vector<TracedPulse>> by_line(static_cast<std::size_t>(kLidarStrips * lines));
  const int threads = scene.settings.threads;
  tbb::task_arena arena(threads > 0 ? threads : tbb::task_arena::automatic);
  arena.execute([&] {
    tbb::parallel_for(tbb::blocked_range<int>(0, kLidarStrips * lines, 4), [&](const auto& range) {
      for (int i = range.begin(); i < range.end(); ++i) {
        by_line[static_cast<std::size_t>(i)] = Trace_Line(scene, campaign, i / lines, i % lines);
      }
    });
  });
  std::vector<TracedPulse> pulses;
  for (std::vector<TracedPulse>& line : by_line) {
    pulses.insert(pulses.end(), line.begin(), line.end());
    line = {};
  }
  return pulses;
}

}  // namespace sylvomex::demo
