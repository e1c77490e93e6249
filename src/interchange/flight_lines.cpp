// SPDX-License-Identifier: MIT
#include "interchange/flight_lines.h"

#include <cmath>

namespace sylvomex {

void FlightLines::Add(std::span<const EchoRecord> echoes, const EchoFrame& frame) {
  Taker taker(*this);
  for (const EchoRecord& echo : echoes) {
    if (!Has_Time(echo.key)) continue;
    taker.Take(echo.line, Time_Of(echo.key), frame.Coordinate(0, echo.position[0]),
               frame.Coordinate(1, echo.position[1]));
  }
}

/// Moves the sums to the origin of the others and adds them.
void FlightLines::Add_Shifted(const Sums& from, Sums& to) {
  const double t = from.time0 - to.time0;
  const double X = from.X0 - to.X0;
  const double Y = from.Y0 - to.Y0;
  to.count += from.count;
  to.t += from.t + from.count * t;
  to.tt += from.tt + 2 * t * from.t + from.count * t * t;
  to.X += from.X + from.count * X;
  to.Y += from.Y + from.count * Y;
  to.tX += from.tX + X * from.t + t * from.X + from.count * t * X;
  to.tY += from.tY + Y * from.t + t * from.Y + from.count * t * Y;
}

void FlightLines::Add(const FlightLines& others) {
  for (const auto& [number, sums] : others.lines_) {
    const auto [line, is_new] = lines_.try_emplace(number, sums);
    if (!is_new) Add_Shifted(sums, line->second);
  }
}

std::optional<Heading> FlightLines::Heading_Of(std::uint16_t line) const {
  const auto found = lines_.find(line);
  if (found == lines_.end()) return std::nullopt;
  const Sums& s = found->second;
  const double X = s.count * s.tX - s.t * s.X;
  const double Y = s.count * s.tY - s.t * s.Y;
  const double length = std::hypot(X, Y);
  if (!(length > 0)) return std::nullopt;
  return Heading{X / length, Y / length};
}

std::map<std::uint16_t, Heading> FlightLines::Headings() const {
  std::map<std::uint16_t, Heading> headings;
  for (const auto& [line, sums] : lines_) {
    if (const std::optional<Heading> heading = Heading_Of(line)) headings.emplace(line, *heading);
  }
  return headings;
}

}  // namespace sylvomex
