// SPDX-License-Identifier: MIT
#include "interchange/echo_reading.h"

#include <ogr_spatialref.h>

#include <cmath>
#include <memory>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"

namespace sylvomex {
namespace {

EchoRecord Record_Of(const LasPoint& point, std::uint32_t source) {
  EchoRecord echo;
  for (std::size_t axis = 0; axis < 3; ++axis) echo.position[axis] = point.Position(axis);
  echo.intensity = point.Intensity();
  echo.returns = point.Returns();
  echo.classification = point.Classification();
  echo.angle = point.Angle();
  echo.line = point.Line();
  echo.source = source;
  return echo;
}

void Append_Records(const LasBlock& block, const EchoSource& source,
                    std::vector<EchoRecord>& echoes) {
  echoes.reserve(echoes.size() + block.count);
  std::uint64_t pulse = block.pulses_before;
  int returns = block.returns_before;
  const LasHeader& header = source.header;
  for (std::uint64_t i = 0; i < block.count; ++i) {
    const LasPoint point(block.bytes.data() + i * static_cast<std::uint64_t>(header.record_bytes),
                         header.format);
    echoes.push_back(Record_Of(point, block.source));
    if (source.timed) {
      echoes.back().key = Time_Key(point.Time());
    } else {
      if (Begins_Pulse(returns, echoes.back().returns)) ++pulse;
      returns = echoes.back().returns;
      echoes.back().key = Untimed_Key(pulse);
    }
  }
}

std::int32_t Number_In(const EchoFrame& frame, std::size_t axis, double coordinate) {
  const double number = std::round((coordinate - frame.offset[axis]) / frame.scale[axis]);
  if (!(std::abs(number) < 2147483647.0)) throw Refused("an echo cannot be reprojected");
  return static_cast<std::int32_t>(number);
}

/// Brings positions from the system of the source to the site's.
void Reproject(const EchoSource& source, const std::string& site,
               std::span<EchoRecord> echoes) try {
  const auto from = Coordinate_System(source.system);
  const auto to = Coordinate_System(site);
  const std::unique_ptr<OGRCoordinateTransformation> transform(
      OGRCreateCoordinateTransformation(&from, &to));
  std::vector<double> X, Y;
  for (const EchoRecord& echo : echoes) {
    X.push_back(source.header.scale[0] * echo.position[0] + source.header.offset[0]);
    Y.push_back(source.header.scale[1] * echo.position[1] + source.header.offset[1]);
  }
  if (transform == nullptr ||
      transform->Transform(static_cast<int>(X.size()), X.data(), Y.data()) == 0) {
    throw Refused("its echoes cannot be reprojected");
  }
  for (std::size_t i = 0; i < echoes.size(); ++i) {
    echoes[i].position[0] = Number_In(source.frame, 0, X[i]);
    echoes[i].position[1] = Number_In(source.frame, 1, Y[i]);
  }
} catch (const Refused& refusal) {
  throw Refused(source.name + ": " + refusal.what());
}

}  // namespace

void Read_Echoes(const LasBlock& block, const EchoSource& source, const std::string& site,
                 std::vector<EchoRecord>& echoes) {
  const std::size_t before = echoes.size();
  Append_Records(block, source, echoes);
  if (!source.system.empty()) Reproject(source, site, std::span(echoes).subspan(before));
}

}  // namespace sylvomex
