// SPDX-License-Identifier: MIT
// A first reading of all echoes, before anything is written: whether the files hold what their
// headers say, where the echoes lie, and how their times spread.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "interchange/echo_record.h"
#include "interchange/flight_lines.h"
#include "interchange/told_share.h"

namespace sylvomex {

/// What one source holds.
struct SourceSurvey {
  std::array<std::int32_t, 3> least{};  // positions as they stand in the file
  std::array<std::int32_t, 3> greatest{};
  double first_time = 0, last_time = 0;  // least and greatest
  std::uint64_t ground = 0;              // echoes of class 2
  bool all_times_finite = true;
  bool in_order = true;                     // no time is less than that of the echo before
  std::vector<std::uint64_t> sampled_keys;  // of the echoes 0, every, 2 every ... with times
};

struct EchoSurvey {
  std::vector<SourceSurvey> sources;
  std::uint64_t echoes = 0;
  std::uint64_t every = 64;  // from a sampled key to the next; more for very many echoes
  FlightLines lines;         // of the echoes with times, in the coordinates of their files
};

/// Reads all points of the sources. Refused for a file that becomes shorter.
EchoSurvey Survey_Echoes(std::span<const EchoSource> sources, const ToldShare& told = {});

/// A time that more echoes share is no time of a pulse: an instrument without a clock writes the
/// same to all.
inline constexpr std::uint64_t kMostEchoesOfATime = 1'000'000;

/// The keys of times that about as many echoes share or more, by the samples of all sources; in
/// rising order.
std::vector<std::uint64_t> Crowded_Times(const EchoSurvey& survey,
                                         std::uint64_t echoes = kMostEchoesOfATime);

/// Whether the times of a source tell its pulses apart: its format has times, not more echoes than
/// a pulse can have share a single one, and none of them is crowded.
bool Times_Tell_Pulses(const EchoSource& source, const SourceSurvey& survey,
                       std::span<const std::uint64_t> crowded);

/// Limits that divide the echoes into shares of about `share` echoes, by the sampled keys: share i
/// holds the keys from limits[i - 1] up to below limits[i]. Echoes of one key are never divided.
std::vector<std::uint64_t> Share_Limits(const EchoSurvey& survey, std::uint64_t share);

}  // namespace sylvomex
