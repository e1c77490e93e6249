// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "interchange/output_file.h"
#include "platform/point3d.h"

namespace sylvomex {

struct WrittenPoint {
  Point3D at;  // world metres
  double time = 0;
  std::uint16_t intensity = 0;
  int number = 1, returns = 1;
  std::uint8_t classification = 0;
  std::int16_t angle = 0;  // 0.006 degrees
  std::uint16_t line = 0;
};

/// Writes a LAS file, version 1.4 with point format 6, in millimetres. The header is written last.
class LasWriter {
 public:
  /// path: where the bytes go; name: the file in messages; wkt: of the coordinate system.
  LasWriter(const std::filesystem::path& path, const std::string& name, const std::string& wkt);

  void Add(const WrittenPoint& point);
  /// Writes what is left and the header.
  void Finish();

  [[nodiscard]] std::uint64_t Count() const { return count_; }

 private:
  void Flush();
  [[nodiscard]] std::vector<std::uint8_t> Header() const;

  OutputFile file_;
  std::vector<std::uint8_t> start_;  // variable length records
  std::vector<std::uint8_t> bytes_;  // points not written yet
  std::uint64_t written_ = 0;        // bytes of points
  std::uint64_t count_ = 0;
  std::array<std::uint64_t, 15> by_return_{};
  Point3D offset_, least_, greatest_;
};

}  // namespace sylvomex
