// SPDX-License-Identifier: MIT
#include "lidar/cell_heights.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace sylvomex {
namespace {

constexpr double kHighestMinimum = 1000;  // metres

}  // namespace

LastEchoes::LastEchoes(std::span<const Lidar2004Record> records) {
  echoes_.reserve(records.size());
  std::int32_t order = 0;
  for (const Lidar2004Record& record : records) {
    ++order;
    if (std::isnan(record.LastX)) continue;  // lies in no cell
    echoes_.push_back({record.LastX, record.LastY, record.LastZ, order});
  }
  std::ranges::sort(echoes_, [](const Echo& a, const Echo& b) {
    return std::tie(a.X, a.order) < std::tie(b.X, b.order);
  });
}

// Rounding keeps the difference to the centre monotonic in X, so that the echoes of a column of
// cells are contiguous.
std::optional<CellHeights> LastEchoes::Of_Cell(double X, double Y, double cell_size) const {
  const double half = cell_size / 2;
  const auto first =
      std::ranges::partition_point(echoes_, [&](const Echo& e) { return X - e.X >= half; });
  std::vector<const Echo*> inside;
  for (auto echo = first; echo != echoes_.end() && X - echo->X > -half; ++echo) {
    if (std::abs(Y - echo->Y) < half) inside.push_back(&*echo);
  }
  if (inside.empty()) return std::nullopt;
  std::ranges::sort(inside, {}, &Echo::order);
  double sum = 0;
  double minimum = kHighestMinimum;
  for (const Echo* echo : inside) {
    const double Z = echo->Z;
    sum += Z;
    if (Z < minimum) minimum = Z;
  }
  return CellHeights{static_cast<float>(sum / static_cast<double>(inside.size())),
                     static_cast<float>(minimum)};
}

}  // namespace sylvomex
