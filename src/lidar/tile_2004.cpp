// SPDX-License-Identifier: MIT
#include "lidar/tile_2004.h"

#include "lidar/counted_file.h"

namespace sylvomex {
namespace {

Lidar2004Record Record_Of(const std::uint8_t* bytes) {
  return {Value_At<double>(bytes, 44), Value_At<double>(bytes, 52), Value_At<float>(bytes, 60),
          Value_At<double>(bytes, 72), Value_At<double>(bytes, 80), Value_At<float>(bytes, 88)};
}

}  // namespace

std::vector<Lidar2004Record> Read_Tile_2004(const FilePath& file, std::int64_t stride) {
  const CountedFile tile(file, stride);
  if (tile.Count() == 0) return {};
  const std::int64_t starts = stride * (tile.Count() - 1);  // of the last record
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(starts + kRecord2004Bytes));
  tile.Read_From(0, bytes);
  std::vector<Lidar2004Record> records;
  records.reserve(static_cast<std::size_t>(tile.Count()));
  for (std::int64_t at = 0; at <= starts; at += stride) {
    records.push_back(Record_Of(bytes.data() + at));
  }
  return records;
}

}  // namespace sylvomex
