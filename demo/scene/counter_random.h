// SPDX-License-Identifier: MIT
// Random numbers as a pure function of a key and a counter, so that a result never depends on the
// order or thread of evaluation. The mixer is that of SplitMix64 (Steele, Lea and Flood 2014, "Fast
// splittable pseudorandom number generators").
#pragma once

#include <cstdint>

namespace sylvomex::demo {

inline std::uint64_t Mix_Bits(std::uint64_t z) {
  z += 0x9E3779B97F4A7C15U;
  z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
  z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
  return z ^ (z >> 31U);
}

/// The key of one random stream (trees, ground texture, ...) for the site's seed.
inline std::uint64_t Stream_Key(std::uint64_t seed, std::uint64_t stream) {
  return Mix_Bits(Mix_Bits(seed) ^ (stream * 0xD6E8FEB86659FD93U));
}

/// Uniform in [0, 1) from the upper 53 bits.
inline double Uniform_Of(std::uint64_t bits) {
  return static_cast<double>(bits >> 11U) * 0x1.0p-53;
}

/// Quantile of the standard normal distribution, 0 < p < 1, to about 1e-7 (Wichura 1988,
/// algorithm AS 241, PPND7).
double Normal_Quantile(double p);

/// Successive random numbers of a key.
struct RandomDraws {
  std::uint64_t key = 0;
  std::uint64_t counter = 0;

  double Uniform() { return Uniform_Of(Mix_Bits(key + 0x632BE59BD9B4E019U * ++counter)); }
  double Uniform(double low, double high) { return low + (high - low) * Uniform(); }
  double Normal(double mean, double deviation);
};

}  // namespace sylvomex::demo
