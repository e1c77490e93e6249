// SPDX-License-Identifier: MIT
#include "interchange/pulse_sorting.h"

#include <tbb/parallel_pipeline.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "interchange/failures.h"
#include "interchange/pulse_bytes.h"
#include "interchange/pulse_joining.h"
#include "interchange/recycled.h"

namespace sylvomex {
namespace {

constexpr std::size_t kSharesAtOnce = 3;
constexpr std::size_t kMostEchoes = 4;
constexpr double kLowSensor = 1000;  // metres
constexpr std::int32_t kTilesAcross = 1000;

/// Gives the pulses of a share places by their tiles, those of a tile in the order in which they
/// were added: a sort by counting.
class TileOrder {
 public:
  void Clear() {
    tiles_.clear();
    least_ = {kTilesAcross, kTilesAcross};
    greatest_ = {-1, -1};
  }

  void Add(const TileKey& tile) {
    tiles_.push_back(tile);
    least_ = {std::min(least_.first, tile.first), std::min(least_.second, tile.second)};
    greatest_ = {std::max(greatest_.first, tile.first), std::max(greatest_.second, tile.second)};
  }

  /// All are added. The tiles with the numbers of their pulses, in the order of the places.
  std::vector<std::pair<TileKey, std::uint64_t>> Count() {
    std::vector<std::pair<TileKey, std::uint64_t>> counts;
    rows_ = greatest_.second - least_.second + 1;
    const std::int32_t cells = (greatest_.first - least_.first + 1) * rows_;
    next_.assign(static_cast<std::size_t>(tiles_.empty() ? 0 : cells), 0);
    for (const TileKey& tile : tiles_) ++next_[Cell_Of(tile)];
    std::uint32_t first = 0;
    for (std::int32_t cell = 0; cell < static_cast<std::int32_t>(next_.size()); ++cell) {
      const std::uint32_t count = std::exchange(next_[static_cast<std::size_t>(cell)], first);
      first += count;
      if (count > 0) {
        counts.push_back({{least_.first + cell / rows_, least_.second + cell % rows_}, count});
      }
    }
    return counts;
  }

  /// The place of a pulse, to be asked for each once, in the order in which they were added.
  std::size_t Place(std::size_t pulse) { return next_[Cell_Of(tiles_[pulse])]++; }

 private:
  [[nodiscard]] std::size_t Cell_Of(const TileKey& tile) const {
    return static_cast<std::size_t>((tile.first - least_.first) * rows_ + tile.second -
                                    least_.second);
  }

  std::vector<TileKey> tiles_;
  TileKey least_, greatest_;
  std::int32_t rows_ = 0;
  std::vector<std::uint32_t> next_;  // place of each cell of the box around all tiles
};

/// A share on its way, used again and again.
struct TiledPulses {
  std::size_t share = 0;
  std::vector<EchoRecord> echoes;
  TileOrder order;
  std::vector<std::uint8_t> records;                     // by tiles
  std::vector<std::pair<TileKey, std::uint64_t>> tiles;  // with the number of their records
  std::vector<TileRoom> rooms;                           // of the tiles
  LidarReport counts;
};

class PulseMaker {
 public:
  explicit PulseMaker(const PulseMaking& making) : making_(making) {}

  /// Fills the records from the echoes.
  void Make(TiledPulses& tiled) const {
    const std::vector<PulseSpan> pulses = Join_Pulses(tiled.echoes);
    tiled.order.Clear();
    for (const PulseSpan& pulse : pulses) tiled.order.Add(Tile_Of(tiled.echoes[pulse.begin]));
    tiled.tiles = tiled.order.Count();
    tiled.counts = {};
    const std::size_t bytes = Record_Bytes(making_.campaign);
    tiled.records.resize(pulses.size() * bytes);
    for (std::size_t pulse = 0; pulse < pulses.size(); ++pulse) {
      const auto [begin, end] = pulses[pulse];
      Make_Record(std::span(tiled.echoes).subspan(begin, end - begin),
                  std::span(tiled.records).subspan(tiled.order.Place(pulse) * bytes, bytes),
                  tiled.counts);
    }
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
        source.header);
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

void Take_Rooms(TiledPulses& pulses, TileOutput& tiles, LidarReport& report) {
  pulses.rooms.clear();
  for (const auto& [tile, count] : pulses.tiles) {
    pulses.rooms.push_back(tiles.Take_Room(tile, count));
  }
  report.pulses += pulses.counts.pulses;
  report.echoes_kept += pulses.counts.echoes_kept;
  report.unknown_sensors += pulses.counts.unknown_sensors;
  report.low_sensors += pulses.counts.low_sensors;
}

void Write_To_Rooms(const TiledPulses& pulses, std::size_t record_bytes) {
  std::span<const std::uint8_t> rest(pulses.records);
  for (std::size_t i = 0; i < pulses.tiles.size(); ++i) {
    const std::size_t bytes = pulses.tiles[i].second * record_bytes;
    Write_Records(pulses.rooms[i], rest.first(bytes));
    rest = rest.subspan(bytes);
  }
}

}  // namespace

void Write_Pulses(const EchoShares& shares, const PulseMaking& making, TileOutput& tiles,
                  LidarReport& report) {
  Recycled<TiledPulses> items(kSharesAtOnce);
  std::size_t next = 0;
  double done = 0;
  const auto begin = [&](tbb::flow_control& flow) -> TiledPulses* {
    if (next == shares.count) {
      flow.stop();
      return nullptr;
    }
    TiledPulses* const pulses = items.Take();
    pulses->share = next++;
    return pulses;
  };
  const auto make = [&](TiledPulses* pulses) {
    shares.read(pulses->share, pulses->echoes);
    PulseMaker(making).Make(*pulses);
    return pulses;
  };
  const auto take_rooms = [&](TiledPulses* pulses) {
    Take_Rooms(*pulses, tiles, report);
    Tell_Share(making.told, ++done, static_cast<double>(shares.count));
    return pulses;
  };
  const auto write = [&](TiledPulses* pulses) {
    Write_To_Rooms(*pulses, Record_Bytes(making.campaign));
    items.Give_Back(pulses);
  };
  using Step = TiledPulses*;
  tbb::parallel_pipeline(
      kSharesAtOnce,
      tbb::make_filter<void, Step>(tbb::filter_mode::serial_in_order, begin) &
          tbb::make_filter<Step, Step>(tbb::filter_mode::parallel, make) &
          tbb::make_filter<Step, Step>(tbb::filter_mode::serial_in_order, take_rooms) &
          tbb::make_filter<Step, void>(tbb::filter_mode::parallel, write));
}

}  // namespace sylvomex
