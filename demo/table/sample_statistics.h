// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace sylvomex::demo {

struct SampleStatistics {
  std::size_t n = 0;  // when 0, the others are 0, too
  double mean = 0;
  double rms = 0;
  double median = 0;
  double p95 = 0;  // the smallest value that 95 % of the sample do not exceed
  double largest = 0;
  double largest_absolute = 0;
};

SampleStatistics Statistics_Of(std::vector<double> values);

}  // namespace sylvomex::demo
