// SPDX-License-Identifier: MIT
// The header of LAS files, versions 1.0 to 1.4 with point formats 0 to 10: American Society for
// Photogrammetry and Remote Sensing, "LAS 1.4, R15" (2019), and the versions before it.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace sylvomex {

inline constexpr int kLasFormats = 11;

/// Bytes of a point record of a format, without what a producer adds behind them.
int Las_Record_Bytes(int format);

/// Whether a point format has GPS times; 0 and 2 have none.
bool Las_Has_Time(int format);

/// A variable length record, extended or not, as far as coordinate systems need it.
struct LasVariableRecord {
  std::string user;
  int id = 0;
  std::vector<std::uint8_t> content;
};

struct LasHeader {
  int minor = 0;         // of version 1.minor
  int format = 0;        // of the points, 0 to 10
  int record_bytes = 0;  // of a point, at least those of its format
  bool compressed = false;
  bool standard_time = false;  // times count from 1980 less 1e9 s, not from the week's start
  bool keys_count = false;     // version 1.4 says that its system is that of the GeoTIFF keys
  std::uint64_t count = 0;     // points
  std::uint64_t points_at = 0;
  std::array<double, 3> scale{};  // X, Y, Z
  std::array<double, 3> offset{};
  std::vector<LasVariableRecord> records;
};

/// Reads the header and the variable length records from the start of a file. start: the bytes up
/// to the first point, or fewer when the file ends before; bytes: the size of the whole file.
///
/// Refused, naming the file and the value, for what is no LAS file, a version or format that is not
/// known, a scale of 0, values that are not finite, a position of the points within the header, and
/// a number of points that contradicts the size.
LasHeader Parse_Las_Header(std::span<const std::uint8_t> start, std::uint64_t bytes,
                           const std::string& name);

/// The same from a file, with the extended records that describe its coordinate system. path: what
/// is read; name: what messages say.
LasHeader Read_Las_Header(const std::filesystem::path& path, const std::string& name);

/// Whether a file starts as LAS files do. False for a file that cannot be read. Refused for a pipe
/// or a device.
bool Is_Las_File(const std::filesystem::path& path);

}  // namespace sylvomex
