// SPDX-License-Identifier: MIT
#include "interchange/las_header.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>

#include "interchange/failures.h"
#include "interchange/ordinary_file.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr std::uint64_t kShortestHeader = 227;
constexpr std::uint64_t kLongHeader = 375;           // version 1.4
constexpr std::uint64_t kMostBytesBefore = 1 << 28;  // header and variable length records
constexpr std::uint64_t kExtendedRecordHeader = 60;
constexpr unsigned kSystemIsWkt = 0x10;              // of the global encoding
constexpr std::uint64_t kMostSystemBytes = 1 << 20;  // of a record that describes a system

class HeaderBytes {
 public:
  HeaderBytes(std::span<const std::uint8_t> bytes, const std::string& name)
      : bytes_(bytes), name_(name) {}

  template <class Value>
  [[nodiscard]] Value At(std::uint64_t offset) const {
    if (offset + sizeof(Value) > bytes_.size()) throw Refused(name_ + ": the header is cut short");
    Value value;
    std::memcpy(&value, bytes_.data() + offset, sizeof value);
    return value;
  }

  [[nodiscard]] std::string Text(std::uint64_t offset, std::size_t length) const {
    if (offset + length > bytes_.size()) throw Refused(name_ + ": the header is cut short");
    const auto* first = reinterpret_cast<const char*>(bytes_.data() + offset);
    return {first, strnlen(first, length)};
  }

  [[nodiscard]] std::uint64_t Size() const { return bytes_.size(); }
  [[nodiscard]] std::span<const std::uint8_t> Part(std::uint64_t offset, std::size_t length) const {
    return bytes_.subspan(offset, length);
  }
  [[noreturn]] void Refuse(const std::string& why) const { throw Refused(name_ + ": " + why); }

 private:
  std::span<const std::uint8_t> bytes_;
  const std::string& name_;
};

void Read_Versions(const HeaderBytes& bytes, LasHeader& header) {
  if (bytes.Size() < 4 || bytes.Text(0, 4) != "LASF") bytes.Refuse("no LAS file");
  const int major = bytes.At<std::uint8_t>(24);
  header.minor = bytes.At<std::uint8_t>(25);
  if (major != 1 || header.minor > 4) {
    bytes.Refuse("LAS " + std::to_string(major) + "." + std::to_string(header.minor) +
                 "; versions 1.0 to 1.4 are read");
  }
  const auto encoding = bytes.At<std::uint16_t>(6);
  header.standard_time = header.minor >= 2 && (encoding & 1U) != 0;
  header.keys_count = header.minor >= 4 && (encoding & kSystemIsWkt) == 0;
}

void Read_Point_Layout(const HeaderBytes& bytes, LasHeader& header) {
  const unsigned format = bytes.At<std::uint8_t>(104);
  header.compressed = (format & 0xC0U) != 0;
  header.format = static_cast<int>(format & 0x3FU);
  if (header.format >= kLasFormats) {
    bytes.Refuse("point format " + std::to_string(header.format) + "; formats 0 to 10 are read");
  }
  header.record_bytes = bytes.At<std::uint16_t>(105);
  if (header.record_bytes < Las_Record_Bytes(header.format)) {
    bytes.Refuse("a point record of " + std::to_string(header.record_bytes) +
                 " bytes; those of format " + std::to_string(header.format) + " have " +
                 std::to_string(Las_Record_Bytes(header.format)));
  }
  header.points_at = bytes.At<std::uint32_t>(96);
  const auto header_bytes = bytes.At<std::uint16_t>(94);
  const std::uint64_t least = header.minor == 4 ? kLongHeader : kShortestHeader;
  if (header_bytes < least || header.points_at < header_bytes) {
    bytes.Refuse("the points are said to begin at byte " + std::to_string(header.points_at) +
                 ", within the header of " + std::to_string(header_bytes) + " bytes");
  }
}

void Read_Scales(const HeaderBytes& bytes, LasHeader& header) {
  for (std::size_t axis = 0; axis < 3; ++axis) {
    header.scale[axis] = bytes.At<double>(131 + 8 * axis);
    header.offset[axis] = bytes.At<double>(155 + 8 * axis);
    if (!std::isfinite(header.scale[axis]) || header.scale[axis] == 0 ||
        !std::isfinite(header.offset[axis])) {
      bytes.Refuse(std::string("scale ") + Plain_Text(header.scale[axis]) + " and offset " +
                   Plain_Text(header.offset[axis]) + " of " + "XYZ"[axis] + " give no coordinates");
    }
  }
}

/// Where the points end at the latest: before waveforms and extended records, else at the end.
std::uint64_t End_Of_Points(const HeaderBytes& bytes, const LasHeader& header,
                            std::uint64_t file_bytes) {
  std::uint64_t end = file_bytes;
  const auto limit = [&](std::uint64_t at) {
    if (at >= header.points_at && at < end) end = at;
  };
  if (header.minor >= 3 && bytes.Size() >= 235) limit(bytes.At<std::uint64_t>(227));
  if (header.minor >= 4 && bytes.At<std::uint32_t>(243) > 0) limit(bytes.At<std::uint64_t>(235));
  return end;
}

void Read_Count(const HeaderBytes& bytes, std::uint64_t file_bytes, LasHeader& header) {
  const std::uint64_t short_count = bytes.At<std::uint32_t>(107);
  header.count = header.minor >= 4 ? bytes.At<std::uint64_t>(247) : short_count;
  if (header.minor >= 4 && short_count != 0 && short_count != header.count) {
    bytes.Refuse("its two numbers of points differ, " + std::to_string(short_count) + " and " +
                 std::to_string(header.count));
  }
  if (header.points_at > file_bytes) bytes.Refuse("cut short before its points");
  if (header.compressed) return;
  const std::uint64_t held = (End_Of_Points(bytes, header, file_bytes) - header.points_at) /
                             static_cast<std::uint64_t>(header.record_bytes);
  if (held != header.count) {
    bytes.Refuse("the header counts " + std::to_string(header.count) + " points and the file " +
                 (held < header.count ? "is cut short, it holds " : "holds ") +
                 std::to_string(held));
  }
}

void Read_Variable_Records(const HeaderBytes& bytes, LasHeader& header) {
  std::uint64_t at = bytes.At<std::uint16_t>(94);
  const auto count = bytes.At<std::uint32_t>(100);
  for (std::uint32_t i = 0; i < count && at + 54 <= header.points_at; ++i) {
    LasVariableRecord record{bytes.Text(at + 2, 16), bytes.At<std::uint16_t>(at + 18), {}};
    const std::size_t length = bytes.At<std::uint16_t>(at + 20);
    at += 54;
    if (at + length > bytes.Size() || at + length > header.points_at) {
      bytes.Refuse("variable length record " + std::to_string(i + 1) + " is cut short");
    }
    const auto content = bytes.Part(at, length);
    record.content.assign(content.begin(), content.end());
    header.records.push_back(std::move(record));
    at += length;
  }
}

/// The extended records behind the points, in version 1.4, as far as they describe a coordinate
/// system. A record that is cut short ends the list: the points do not depend on it.
void Read_Extended_Records(std::istream& stream, const HeaderBytes& start, std::uint64_t bytes,
                           const std::string& name, LasHeader& header) {
  if (header.minor < 4) return;
  auto at = start.At<std::uint64_t>(235);
  const auto count = start.At<std::uint32_t>(243);
  std::array<std::uint8_t, kExtendedRecordHeader> head{};
  const HeaderBytes fields(head, name);
  for (std::uint32_t i = 0; i < count && at < bytes; ++i) {
    stream.clear(stream.rdstate() & std::ios::badbit);
    stream.seekg(static_cast<std::streamoff>(at));
    if (!stream.read(reinterpret_cast<char*>(head.data()), head.size())) return;
    const auto length = fields.At<std::uint64_t>(20);
    at += kExtendedRecordHeader;
    if (length > bytes - at) return;
    LasVariableRecord record{fields.Text(2, 16), fields.At<std::uint16_t>(18), {}};
    if (record.user == "LASF_Projection" && length <= kMostSystemBytes) {
      record.content.resize(length);
      if (!stream.read(reinterpret_cast<char*>(record.content.data()),
                       static_cast<std::streamsize>(length))) {
        return;
      }
      header.records.push_back(std::move(record));
    }
    at += length;
  }
}

}  // namespace

int Las_Record_Bytes(int format) {
  static constexpr std::array<int, kLasFormats> kBytes = {20, 28, 26, 34, 57, 63,
                                                          30, 36, 38, 59, 67};
  return kBytes.at(static_cast<std::size_t>(format));
}

bool Las_Has_Time(int format) { return format != 0 && format != 2; }

LasHeader Parse_Las_Header(std::span<const std::uint8_t> start, std::uint64_t bytes,
                           const std::string& name) {
  const HeaderBytes header_bytes(start, name);
  LasHeader header;
  Read_Versions(header_bytes, header);
  Read_Point_Layout(header_bytes, header);
  Read_Scales(header_bytes, header);
  Read_Count(header_bytes, bytes, header);
  Read_Variable_Records(header_bytes, header);
  return header;
}

LasHeader Read_Las_Header(const std::filesystem::path& path, const std::string& name) {
  Require_No_Device(path);
  std::error_code error;
  const std::uint64_t bytes = std::filesystem::file_size(path, error);
  std::ifstream stream(path, std::ios::binary);
  if (error || !stream) throw Refused(name + ": the file cannot be read");
  std::vector<std::uint8_t> start(std::min<std::uint64_t>(bytes, kLongHeader));
  const auto read = [&](std::uint64_t from) {
    stream.read(reinterpret_cast<char*>(start.data() + from),
                static_cast<std::streamsize>(start.size() - from));
  };
  read(0);
  if (start.size() >= 100) {
    std::uint32_t points_at = 0;
    std::memcpy(&points_at, start.data() + 96, sizeof points_at);
    const std::uint64_t had = start.size();
    start.resize(std::max(had, std::min({std::uint64_t{points_at}, bytes, kMostBytesBefore})));
    read(had);
  }
  if (stream.bad()) throw Refused(name + ": the file cannot be read any further");
  LasHeader header = Parse_Las_Header(start, bytes, name);
  Read_Extended_Records(stream, HeaderBytes(start, name), bytes, name, header);
  if (stream.bad()) throw Refused(name + ": the file cannot be read any further");
  return header;
}

bool Is_Las_File(const std::filesystem::path& path) {
  Require_No_Device(path);
  std::ifstream stream(path, std::ios::binary);
  std::array<char, 4> sign{};
  return stream.read(sign.data(), 4) && std::string_view(sign.data(), 4) == "LASF";
}

}  // namespace sylvomex
