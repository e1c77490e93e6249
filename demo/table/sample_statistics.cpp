// SPDX-License-Identifier: MIT
#include "demo/table/sample_statistics.h"

#include <algorithm>
#include <cmath>

namespace sylvomex::demo {
namespace {

/// The smallest value of a sorted sample that at least the given share does not exceed.
double Quantile(const std::vector<double>& sorted, double share) {
  const auto rank = static_cast<std::size_t>(std::ceil(share * static_cast<double>(sorted.size())));
  return sorted[std::max<std::size_t>(rank, 1) - 1];
}

}  // namespace

SampleStatistics Statistics_Of(std::vector<double> values) {
  SampleStatistics statistics;
  if (values.empty()) return statistics;
  std::sort(values.begin(), values.end());
  double sum = 0, squares = 0;
  for (const double value : values) {
    sum += value;
    squares += value * value;
  }
  const auto n = static_cast<double>(values.size());
  statistics.n = values.size();
  statistics.mean = sum / n;
  statistics.rms = std::sqrt(squares / n);
  statistics.median = Quantile(values, 0.5);
  statistics.p95 = Quantile(values, 0.95);
  statistics.largest = values.back();
  statistics.largest_absolute = std::max(std::abs(values.front()), std::abs(values.back()));
  return statistics;
}

}  // namespace sylvomex::demo
