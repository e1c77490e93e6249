// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <vector>

namespace sylvomex::bench {

inline double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Round times of a benchmark in milliseconds, wall clock and processor time. parts: number of
/// parts in a round; reported times are per part.
class RoundTimes {
 public:
  explicit RoundTimes(double parts = 1) : parts_(parts) {}

  template <class Round>
  void Run(const Round& round) {
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t cpu_start = std::clock();
    round();
    const std::clock_t cpu_end = std::clock();
    const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
    wall_.push_back(wall.count() / parts_);
    cpu_.push_back(1000.0 * static_cast<double>(cpu_end - cpu_start) / CLOCKS_PER_SEC / parts_);
  }

  [[nodiscard]] double Last_Seconds() const { return wall_.back() / 1000; }
  [[nodiscard]] double Wall() const { return Median(wall_); }
  [[nodiscard]] double Cpu() const { return Median(cpu_); }

 private:
  double parts_;
  std::vector<double> wall_;
  std::vector<double> cpu_;
};

}  // namespace sylvomex::bench
