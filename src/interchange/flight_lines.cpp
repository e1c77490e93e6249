// SPDX-License-Identifier: MIT
#include "interchange/flight_lines.h"

#include <cmath>

namespace sylvomex {
namespace {

Int128 Floor_Of(const Int128& a, const Int128& b) { return a / b - (a % b < 0 ? 1 : 0); }

}  // namespace

void FlightLines::Add(std::span<const EchoRecord> echoes, const EchoFrame& frame) {
  Taker taker(*this);
  for (const EchoRecord& echo : echoes) {
    if (!Has_Time(echo.key)) continue;
    taker.Take(echo.line, Time_Of(echo.key), frame.Coordinate(0, echo.position[0]),
               frame.Coordinate(1, echo.position[1]));
  }
}

/// Moves the sums to the place of the others and adds them.
void FlightLines::Add_Shifted(const Sums& from, Sums& to) {
  const Int128 t = from.time0 - to.time0;
  const Int128 X = from.X0 - to.X0;
  const Int128 Y = from.Y0 - to.Y0;
  to.count += from.count;
  to.t += from.t + from.count * t;
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
  const Sums& own = found->second;
  const auto mean = [&](std::int64_t from, const Int128& sum) {
    return from + static_cast<std::int64_t>(Floor_Of(sum, own.count));
  };
  Sums s{mean(own.time0, own.t), mean(own.X0, own.X), mean(own.Y0, own.Y)};
  Add_Shifted(own, s);
  const auto count = static_cast<double>(s.count);
  const auto t = static_cast<double>(s.t);
  const double X = count * static_cast<double>(s.tX) - t * static_cast<double>(s.X);
  const double Y = count * static_cast<double>(s.tY) - t * static_cast<double>(s.Y);
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
