// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>

#include "interchange/echo_record.h"

namespace sylvomex {

/// A direction in the map, of length 1.
struct Heading {
  double X = 0, Y = 1;
};

/// The headings of flight lines, from the movement of their echoes in time: the slopes of the least
/// squares lines of X and of Y over the time, in which the swings of the scanner cancel out.
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
  /// Sums about the first echo of the line.
  struct Sums {
    double time0 = 0, X0 = 0, Y0 = 0;
    double count = 0, t = 0, tt = 0, X = 0, Y = 0, tX = 0, tY = 0;
  };
  static void Add_Shifted(const Sums& from, Sums& to);

  std::map<std::uint16_t, Sums> lines_;
};

/// Takes echoes one by one; fast where those of a line follow each other.
class FlightLines::Taker {
 public:
  explicit Taker(FlightLines& lines) : lines_(lines) {}

  /// time: a number, s; X, Y: metres.
  void Take(std::uint16_t line, double time, double X, double Y) {
    if (sums_ == nullptr || line != line_) {
      line_ = line;
      sums_ = &lines_.lines_.try_emplace(line, Sums{time, X, Y}).first->second;
    }
    const double t = time - sums_->time0;
    X -= sums_->X0;
    Y -= sums_->Y0;
    ++sums_->count;
    sums_->t += t;
    sums_->tt += t * t;
    sums_->X += X;
    sums_->Y += Y;
    sums_->tX += t * X;
    sums_->tY += t * Y;
  }

 private:
  FlightLines& lines_;
  Sums* sums_ = nullptr;  // of line_
  std::uint16_t line_ = 0;
};

}  // namespace sylvomex
