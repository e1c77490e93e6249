// SPDX-License-Identifier: MIT
// The layout of compressed files and of their points follows M. Isenburg, "LASzip: lossless
// compression of LiDAR data", PE&RS 79(2), 2013, and the description of LASzip.
#include "demo/write/laz_file.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <vector>

#include "demo/write/laz_coder.h"
#include "demo/write/packed_bytes.h"

namespace sylvomex::demo {
namespace {

constexpr std::size_t kHeaderBytes = 227;
constexpr std::uint16_t kPointBytes = 28;

void Append_Text(std::string& bytes, const std::string& text, std::size_t size) {
  bytes += text;
  bytes.append(size - text.size(), '\0');
}

std::uint8_t Returns_Byte(const LazEcho& echo) {
  return static_cast<std::uint8_t>(echo.number + 8 * echo.returns);
}

std::string Plain_Point(const LazEcho& echo) {
  std::string bytes;
  for (const std::int32_t number : echo.position) Append_Bytes(bytes, number);
  Append_Bytes(bytes, echo.intensity);
  Append_Bytes(bytes, Returns_Byte(echo));
  Append_Text(bytes, "", 5);  // class, angle, user's byte, flight line
  Append_Bytes(bytes, echo.time);
  return bytes;
}

/// The median of the last differences, nearly: of five numbers the highest and the lowest leave in
/// turn as new ones come.
class StreamingMedian {
 public:
  [[nodiscard]] std::int32_t Get() const { return values_[2]; }

  void Add(std::int32_t value) {
    const bool is_low = value < Get();
    const bool turns = value == Get() || is_low != drops_highest_;
    values_[drops_highest_ ? 4 : 0] = value;
    std::sort(values_.begin(), values_.end());
    if (turns) drops_highest_ = !drops_highest_;
  }

 private:
  std::array<std::int32_t, 5> values_{};
  bool drops_highest_ = true;
};

/// Of a number of returns and a return: which earlier echoes resemble it.
std::size_t Kind_Of(int returns, int number) {
  static constexpr std::uint8_t kKinds[8][8] = {
      {15, 14, 13, 12, 11, 10, 9, 8},  {14, 0, 1, 3, 6, 10, 10, 9},
      {13, 1, 2, 4, 7, 11, 11, 10},    {12, 3, 4, 5, 8, 12, 12, 11},
      {11, 6, 7, 8, 9, 13, 13, 12},    {10, 10, 11, 12, 13, 14, 14, 13},
      {9, 10, 11, 12, 13, 14, 15, 14}, {8, 9, 10, 11, 12, 13, 14, 15}};
  return kKinds[returns][number];
}

std::uint32_t Even(std::uint32_t width) { return width & ~1U; }

/// Codes the echoes of a chunk, each from those before.
class EchoCoder {
 public:
  explicit EchoCoder(const LazEcho& first) : last_(first) {}

  void Code(const LazEcho& echo) {
    const std::size_t kind = Kind_Of(echo.returns, echo.number);
    Code_Fields(echo, kind);
    Code_Position(echo, kind);
    Code_Time(echo.time);
    last_ = echo;
  }

  std::string Finish() { return coder_.Finish(); }

 private:
  void Code_Fields(const LazEcho& echo, std::size_t kind) {
    constexpr std::uint32_t kReturnsChange = 32, kIntensityChanges = 16;
    const bool new_returns = Returns_Byte(echo) != Returns_Byte(last_);
    const bool new_intensity = echo.intensity != intensity_[kind];
    coder_.Symbol(changes_,
                  (new_returns ? kReturnsChange : 0) + (new_intensity ? kIntensityChanges : 0));
    if (new_returns) {
      std::vector<SymbolModel>& model = returns_[Returns_Byte(last_)];
      if (model.empty()) model.emplace_back(256);
      coder_.Symbol(model.front(), Returns_Byte(echo));
    }
    if (new_intensity) {
      intensities_.Code(coder_, intensity_[kind], echo.intensity,
                        static_cast<std::uint32_t>(std::min<std::size_t>(kind, 3)));
      intensity_[kind] = echo.intensity;
    }
  }

  void Code_Position(const LazEcho& echo, std::size_t kind) {
    const std::uint32_t single = echo.returns == 1 ? 1 : 0;
    const auto step = [&](std::size_t axis) {
      return static_cast<std::int32_t>(static_cast<std::uint32_t>(echo.position[axis]) -
                                       static_cast<std::uint32_t>(last_.position[axis]));
    };
    X_steps_.Code(coder_, X_medians_[kind].Get(), step(0), single);
    X_medians_[kind].Add(step(0));
    Y_steps_.Code(coder_, Y_medians_[kind].Get(), step(1),
                  single + std::min(Even(X_steps_.Width()), 20U));
    Y_medians_[kind].Add(step(1));
    const std::uint32_t width = (X_steps_.Width() + Y_steps_.Width()) / 2;
    std::int32_t& height = heights_[static_cast<std::size_t>(std::abs(echo.returns - echo.number))];
    Zs_.Code(coder_, height, echo.position[2], single + std::min(Even(width), 18U));
    height = echo.position[2];
  }

  /// As it was before, or in full; the shorter codes for steady steps are not used.
  void Code_Time(double time) {
    constexpr std::uint32_t kSame = 0, kFull = 2, kUpperHalf = 8;
    const auto now = std::bit_cast<std::uint64_t>(time);
    const auto before = std::bit_cast<std::uint64_t>(last_.time);
    coder_.Symbol(time_steps_, now == before ? kSame : kFull);
    if (now == before) return;
    times_.Code(coder_, static_cast<std::int32_t>(before >> 32U),
                static_cast<std::int32_t>(now >> 32U), kUpperHalf);
    coder_.Bits(16, static_cast<std::uint32_t>(now & 0xFFFFU));
    coder_.Bits(16, static_cast<std::uint32_t>(now >> 16U & 0xFFFFU));
  }

  ArithmeticCoder coder_;
  LazEcho last_;
  SymbolModel changes_{64};
  std::array<std::vector<SymbolModel>, 256> returns_;  // by the last ones, made when they occur
  NumberModel intensities_{16, 4}, X_steps_{32, 2}, Y_steps_{32, 22}, Zs_{32, 20};
  std::array<std::uint16_t, 16> intensity_{};
  std::array<StreamingMedian, 16> X_medians_, Y_medians_;
  std::array<std::int32_t, 8> heights_{};
  SymbolModel time_steps_{6};
  NumberModel times_{32, 9};
};

std::string Chunk(std::span<const LazEcho> echoes) {
  EchoCoder coder(echoes.front());
  for (const LazEcho& echo : echoes.subspan(1)) coder.Code(echo);
  return Plain_Point(echoes.front()) + coder.Finish();
}

std::string Chunk_Table(const std::vector<std::uint32_t>& sizes) {
  std::string bytes;
  Append_Bytes(bytes, std::uint32_t{0});
  Append_Bytes(bytes, static_cast<std::uint32_t>(sizes.size()));
  ArithmeticCoder coder;
  NumberModel numbers(32, 2);
  std::uint32_t before = 0;
  for (const std::uint32_t size : sizes) {
    numbers.Code(coder, static_cast<std::int32_t>(before), static_cast<std::int32_t>(size), 1);
    before = size;
  }
  return bytes + coder.Finish();
}

std::string Record(const std::string& user, std::uint16_t id, const std::string& content) {
  std::string bytes(2, '\0');
  Append_Text(bytes, user, 16);
  Append_Bytes(bytes, id);
  Append_Bytes(bytes, static_cast<std::uint16_t>(content.size()));
  bytes.append(32, '\0');
  return bytes + content;
}

std::string Compression_Record() {
  constexpr std::uint16_t kChunkedPointwise = 2, kPoint10 = 6, kTime11 = 7, kVersion = 2;
  std::string content;
  for (const std::uint16_t value : {kChunkedPointwise, std::uint16_t{0}, std::uint16_t{0x0202},
                                    std::uint16_t{0}, std::uint16_t{0}, std::uint16_t{0}}) {
    Append_Bytes(content, value);
  }
  Append_Bytes(content, kLazChunk);
  Append_Bytes(content, std::int64_t{-1});
  Append_Bytes(content, std::int64_t{-1});
  for (const std::uint16_t value : {std::uint16_t{2}, kPoint10, std::uint16_t{20}, kVersion,
                                    kTime11, std::uint16_t{8}, kVersion}) {
    Append_Bytes(content, value);
  }
  return Record("laszip encoded", 22204, content);
}

/// GeoTIFF keys: map coordinates in the system of a code.
std::string System_Record(std::uint16_t epsg) {
  std::string content;
  for (const std::uint16_t value :
       {std::uint16_t{1}, std::uint16_t{1}, std::uint16_t{0}, std::uint16_t{2}, std::uint16_t{1024},
        std::uint16_t{0}, std::uint16_t{1}, std::uint16_t{1}, std::uint16_t{3072}, std::uint16_t{0},
        std::uint16_t{1}, epsg}) {
    Append_Bytes(content, value);
  }
  return Record("LASF_Projection", 34735, content);
}

/// Bytes 131 to 226: scales, offsets, and the limits of the coordinates.
std::string Place(std::span<const LazEcho> echoes, const std::array<double, 3>& offset) {
  constexpr double kUnit = 0.001;
  std::string bytes, limits;
  for (int axis = 0; axis < 3; ++axis) Append_Bytes(bytes, kUnit);
  for (const double metres : offset) Append_Bytes(bytes, metres);
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const auto [least, greatest] = std::minmax_element(
        echoes.begin(), echoes.end(),
        [&](const LazEcho& a, const LazEcho& b) { return a.position[axis] < b.position[axis]; });
    Append_Bytes(limits, greatest->position[axis] * kUnit + offset[axis]);
    Append_Bytes(limits, least->position[axis] * kUnit + offset[axis]);
  }
  return bytes + limits;
}

std::string Header(std::span<const LazEcho> echoes, const std::array<double, 3>& offset,
                   std::size_t points_at, std::uint32_t records) {
  std::string bytes = "LASF";
  Append_Text(bytes, "", 20);
  bytes += "\x01\x02";
  Append_Text(bytes, "EXTRACTION", 32);
  Append_Text(bytes, "sylvomex demo", 36);
  Append_Bytes(bytes, static_cast<std::uint16_t>(kHeaderBytes));
  Append_Bytes(bytes, static_cast<std::uint32_t>(points_at));
  Append_Bytes(bytes, records);
  bytes += '\x81';  // point format 1, compressed
  Append_Bytes(bytes, kPointBytes);
  Append_Bytes(bytes, static_cast<std::uint32_t>(echoes.size()));
  std::array<std::uint32_t, 5> by_return{};
  for (const LazEcho& echo : echoes) {
    if (echo.number <= 5) ++by_return[static_cast<std::size_t>(echo.number - 1)];
  }
  for (const std::uint32_t count : by_return) Append_Bytes(bytes, count);
  return bytes + Place(echoes, offset);
}

}  // namespace

std::string Laz_File(std::span<const LazEcho> echoes, const std::array<double, 3>& offset,
                     std::uint16_t epsg) {
  const std::string records = System_Record(epsg) + Compression_Record();
  const std::size_t points_at = kHeaderBytes + records.size();
  std::string chunks;
  std::vector<std::uint32_t> sizes;
  for (std::size_t first = 0; first < echoes.size(); first += kLazChunk) {
    const std::string chunk =
        Chunk(echoes.subspan(first, std::min<std::size_t>(kLazChunk, echoes.size() - first)));
    sizes.push_back(static_cast<std::uint32_t>(chunk.size()));
    chunks += chunk;
  }
  std::string bytes = Header(echoes, offset, points_at, 2) + records;
  Append_Bytes(bytes, static_cast<std::int64_t>(points_at + sizeof(std::int64_t) + chunks.size()));
  return bytes + chunks + Chunk_Table(sizes);
}

}  // namespace sylvomex::demo
