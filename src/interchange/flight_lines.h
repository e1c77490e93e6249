// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <optional>
#include <span>

#include "closedlib/wide_integer.h"
#include "interchange/echo_record.h"

namespace sylvomex {

/// A direction in the map, of length 1.
struct Heading {
  double X = 0, Y = 1;
};

/// The headings of flight lines, from the movement of their echoes in time: the slopes of the least
/// squares lines of X and of Y over the time, in which the swings of the scanner cancel out. The
/// sums are whole numbers, of microseconds and millimetres: the order of the echoes is no matter.
class FlightLines {
 public:
  /// Takes echoes of one source; those without a time count for nothing.
  void Add(std::span<const EchoRecord> echoes, const EchoFrame& frame);
  void Add(const FlightLines& others);
  class Taker;

  /// The heading of a line; std::nullopt when its echoes do not tell one.
  [[nodiscard]] std::optional<Heading> Heading_Of(std::uint16_t line) const;
  /// Of all lines that have one.
  [[nodiscard]] std::map<std::uint16_t, Heading> Headings() const;

 private:
  /// Sums about a place in time and map.
  struct Sums {
    std::int64_t time0 = 0, X0 = 0, Y0 = 0;
    std::int64_t count = 0;
    Int128 t = 0, X = 0, Y = 0, tX = 0, tY = 0;
  };
  static void Add_Shifted(const Sums& from, Sums& to);

  std::map<std::uint16_t, Sums> lines_;
};

/// Takes echoes one by one.
class FlightLines::Taker {
 public:
  explicit Taker(FlightLines& lines) : lines_(lines) {}

  /// time: s; X, Y: metres. Those that no instrument measures count for nothing.
  void Take(std::uint16_t line, double time, double X, double Y) {
    constexpr double kMostSeconds = 1e10, kMostMetres = 1e8;  // keep all sums within 128 bits
    if (!(std::abs(time) < kMostSeconds && std::abs(X) < kMostMetres &&
          std::abs(Y) < kMostMetres)) {
      return;
    }
    const auto t = static_cast<std::int64_t>(time * 1e6);
    const auto x = static_cast<std::int64_t>(X * 1e3);
    const auto y = static_cast<std::int64_t>(Y * 1e3);
    if (sums_ == nullptr || line != line_) {
      line_ = line;
      Known& known = known_[line % known_.size()];
      if (known.sums == nullptr || known.line != line) {
        known = {line, &lines_.lines_.try_emplace(line, Sums{t, x, y}).first->second};
      }
      sums_ = known.sums;
    }
    Sums& sums = *sums_;
    ++sums.count;
    sums.t += t - sums.time0;
    sums.X += x - sums.X0;
    sums.Y += y - sums.Y0;
    sums.tX += Int128{t - sums.time0} * (x - sums.X0);
    sums.tY += Int128{t - sums.time0} * (y - sums.Y0);
  }

 private:
  struct Known {
    std::uint16_t line = 0;
    Sums* sums = nullptr;
  };
  FlightLines& lines_;
  Sums* sums_ = nullptr;  // of line_
  std::uint16_t line_ = 0;
  std::array<Known, 64> known_;  // lines met lately
};

}  // namespace sylvomex
