// SPDX-License-Identifier: MIT
#include "lidar/point_file.h"

#include "lidar/counted_file.h"

namespace sylvomex {
namespace {

constexpr std::int64_t kPointBytes = 21;

LidarPoint Point_Of(const std::uint8_t* record) {
  return {record[0], Value_At<double>(record, 1), Value_At<double>(record, 9),
          Value_At<float>(record, 17)};
}

}  // namespace

std::vector<LidarPoint> Read_Point_File(const FilePath& file) {
  const CountedFile points(file, kPointBytes);
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(kPointBytes * points.Count()));
  points.Read_From(0, bytes);
  std::vector<LidarPoint> list;
  list.reserve(static_cast<std::size_t>(points.Count()));
  for (std::size_t at = 0; at < bytes.size(); at += kPointBytes) {
    list.push_back(Point_Of(bytes.data() + at));
  }
  return list;
}

}  // namespace sylvomex
