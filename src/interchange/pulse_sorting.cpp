// SPDX-License-Identifier: MIT
#include "interchange/pulse_sorting.h"

#include <tbb/parallel_pipeline.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "interchange/echo_spill.h"
#include "interchange/failures.h"
#include "interchange/pulse_bytes.h"
#include "interchange/pulse_joining.h"

namespace sylvomex {
namespace {

constexpr std::size_t kSharesAtOnce = 3;
constexpr std::size_t kMostEchoes = 4;
constexpr double kLowSensor = 1000;  // metres
constexpr double kTilesAcross = 1000;

/// The pulses of a share, in the order of their tiles.
struct TiledPulses {
  std::vector<std::uint8_t> records;
  std::vector<std::pair<TileKey, std::size_t>> tiles;  // with the number of their records
  LidarReport counts;
};

class PulseMaker {
 public:
  explicit PulseMaker(const PulseMaking& making) : making_(making) {}

  TiledPulses Make(std::vector<EchoRecord> echoes) const {
    const std::vector<PulseSpan> pulses = Join_Pulses(echoes);
    std::vector<std::pair<TileKey, std::uint32_t>> order;
    order.reserve(pulses.size());
    for (const PulseSpan& pulse : pulses) {
      order.emplace_back(Tile_Of(echoes[pulse.begin]), static_cast<std::uint32_t>(order.size()));
    }
    std::sort(order.begin(), order.end());
    TiledPulses tiled;
    const std::size_t bytes = Record_Bytes(making_.campaign);
    tiled.records.resize(pulses.size() * bytes);
    for (std::size_t i = 0; i < order.size(); ++i) {
      const auto& [tile, pulse] = order[i];
      if (tiled.tiles.empty() || tiled.tiles.back().first != tile)
        tiled.tiles.emplace_back(tile, 0);
      ++tiled.tiles.back().second;
      Make_Record(
          std::span(echoes).subspan(pulses[pulse].begin, pulses[pulse].end - pulses[pulse].begin),
          std::span(tiled.records).subspan(i * bytes, bytes), tiled.counts);
    }
    return tiled;
  }

 private:
  [[nodiscard]] Point3D Working(const EchoRecord& echo) const {
    const EchoFrame& frame = making_.sources[echo.source].frame;
    return {frame.Coordinate(0, echo.position[0]) - making_.shift.X,
            frame.Coordinate(1, echo.position[1]) - making_.shift.Y,
            frame.Coordinate(2, echo.position[2])};
  }

  [[nodiscard]] TileKey Tile_Of(const EchoRecord& echo) const {
    const Point3D at = Working(echo);
    const TileIndex tile = Tile_Index(making_.campaign, at.X, at.Y);
    if (!(tile.col >= 0 && tile.col < kTilesAcross && tile.row >= 0 && tile.row < kTilesAcross)) {
      throw Refused(making_.sources[echo.source].name +
                    ": an echo lies outside the tiles that the site's shift allows");
    }
    return {static_cast<std::int32_t>(tile.col), static_cast<std::int32_t>(tile.row)};
  }

  [[nodiscard]] Point3D Sensor_Of(const EchoRecord& first, LidarReport& counts) const {
    const EchoSource& source = making_.sources[first.source];
    const Point3D working = Working(first);
    const SensorPosition sensor = making_.sensors.Of(
        first, {working.X + making_.shift.X, working.Y + making_.shift.Y, working.Z},
        source.header.standard_time);
    if (!sensor.known) ++counts.unknown_sensors;
    if (!(sensor.at.Z > kLowSensor)) ++counts.low_sensors;
    return {sensor.at.X - making_.shift.X, sensor.at.Y - making_.shift.Y, sensor.at.Z};
  }

  void Make_Record(std::span<const EchoRecord> pulse, std::span<std::uint8_t> bytes,
                   LidarReport& counts) const {
    std::array<PulseEcho, kMostEchoes> echoes;
    std::size_t kept = 0;
    if (making_.campaign == Campaign::Als2004) {
      for (const EchoRecord* echo : {&pulse.front(), &pulse.back()}) {
        echoes[kept++] = {Working(*echo), echo};
      }
      counts.echoes_kept += std::min<std::size_t>(pulse.size(), 2);
    } else {
      for (const EchoRecord& echo : pulse.first(std::min(pulse.size(), kMostEchoes))) {
        echoes[kept++] = {Working(echo), &echo};
      }
      counts.echoes_kept += kept;
    }
    ++counts.pulses;
    Write_Pulse(making_.campaign, std::span(echoes).first(kept), Sensor_Of(pulse.front(), counts),
                bytes);
  }

  const PulseMaking& making_;
};

void Append(const TiledPulses& pulses, std::size_t record_bytes, TileOutput& tiles,
            LidarReport& report) {
  std::span<const std::uint8_t> rest(pulses.records);
  for (const auto& [tile, count] : pulses.tiles) {
    tiles.Append(tile, rest.first(count * record_bytes));
    rest = rest.subspan(count * record_bytes);
  }
  report.pulses += pulses.counts.pulses;
  report.echoes_kept += pulses.counts.echoes_kept;
  report.unknown_sensors += pulses.counts.unknown_sensors;
  report.low_sensors += pulses.counts.low_sensors;
}

}  // namespace

void Write_Pulses(const std::vector<std::filesystem::path>& shares, const PulseMaking& making,
                  TileOutput& tiles, LidarReport& report) {
  using Echoes = std::shared_ptr<std::vector<EchoRecord>>;
  using Pulses = std::shared_ptr<TiledPulses>;
  std::size_t next = 0;
  double done = 0;
  const auto read = [&](tbb::flow_control& flow) -> Echoes {
    if (next == shares.size()) {
      flow.stop();
      return nullptr;
    }
    auto echoes = std::make_shared<std::vector<EchoRecord>>(Read_Share(shares[next]));
    std::filesystem::remove(shares[next++]);
    return echoes;
  };
  const auto make = [&](const Echoes& echoes) {
    return std::make_shared<TiledPulses>(PulseMaker(making).Make(std::move(*echoes)));
  };
  const auto append = [&](const Pulses& pulses) {
    Append(*pulses, Record_Bytes(making.campaign), tiles, report);
    Tell_Share(making.told, ++done, static_cast<double>(shares.size()));
  };
  tbb::parallel_pipeline(
      kSharesAtOnce, tbb::make_filter<void, Echoes>(tbb::filter_mode::serial_in_order, read) &
                         tbb::make_filter<Echoes, Pulses>(tbb::filter_mode::parallel, make) &
                         tbb::make_filter<Pulses, void>(tbb::filter_mode::serial_in_order, append));
}

}  // namespace sylvomex
