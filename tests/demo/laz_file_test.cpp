// SPDX-License-Identifier: MIT
// Compressed lidar, read by a decoder that is written here anew from the publications that the
// coder names.
#include "demo/write/laz_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <random>

#include "demo/write/laz_coder.h"

namespace sylvomex::demo {
namespace {

/// A symbol is found by walking over the shares of those below it.
struct LearntShares {
  std::vector<std::uint64_t> seen;
  std::uint64_t total = 0, step = 0, left = 0;

  explicit LearntShares(std::size_t symbols)
      : seen(symbols, 1), total(symbols), step((symbols + 6) / 2), left(step) {
    Fix();
  }
  std::vector<std::uint64_t> fixed;  // shares below each symbol, of 2^15

  void Fix() {
    fixed.assign(1, 0);
    std::uint64_t sum = 0;
    for (const std::uint64_t count : seen) {
      sum += count;
      fixed.push_back((2147483648U / total) * sum / 65536);
    }
  }
  void Learn(std::size_t symbol) {
    ++seen[symbol];
    if (--left > 0) return;
    total += step;
    if (total > 32768) {
      total = 0;
      for (std::uint64_t& count : seen) total += count = (count + 1) / 2;
    }
    Fix();
    step = left = std::min<std::uint64_t>(step * 5 / 4, 8 * (seen.size() + 6));
  }
};

struct LearntBit {
  std::uint64_t zeros = 1, all = 2, share = 4096, step = 4, left = 4;

  void Learn(std::uint32_t bit) {
    zeros += 1 - bit;
    if (--left > 0) return;
    all += step;
    if (all > 8192) {
      all = (all + 1) / 2;
      zeros = (zeros + 1) / 2;
      if (zeros == all) ++all;
    }
    share = zeros * (2147483648U / all) / 262144;
    step = left = std::min<std::uint64_t>(step * 5 / 4, 64);
  }
};

/// Holds the interval as a number between 0 and its length.
class Decoder {
 public:
  explicit Decoder(const std::string& bytes) : bytes_(bytes) {
    for (int i = 0; i < 4; ++i) value_ = value_ * 256 + Next();
  }
  std::uint32_t Bit(LearntBit& model) {
    const std::uint64_t zero = (length_ / 8192) * model.share;
    const std::uint32_t bit = value_ >= zero ? 1 : 0;
    Cut(bit == 0 ? 0 : zero, bit == 0 ? zero : length_);
    model.Learn(bit);
    return bit;
  }
  std::uint32_t Symbol(LearntShares& model) {
    const std::uint64_t unit = length_ / 32768;
    std::size_t symbol = 0;
    while (symbol + 1 < model.seen.size() && value_ >= unit * model.fixed[symbol + 1]) ++symbol;
    const bool is_last = symbol + 1 == model.seen.size();
    Cut(unit * model.fixed[symbol], is_last ? length_ : unit * model.fixed[symbol + 1]);
    model.Learn(symbol);
    return static_cast<std::uint32_t>(symbol);
  }
  std::uint32_t Bits(std::uint32_t count) {
    if (count > 19) {
      const std::uint32_t low = Bits(16);
      return low + (Bits(count - 16) << 16U);
    }
    const std::uint64_t unit = length_ >> count;
    const std::uint64_t bits = value_ / unit;
    Cut(unit * bits, unit * (bits + 1));
    return static_cast<std::uint32_t>(bits);
  }

 private:
  std::uint64_t Next() {
    EXPECT_LT(at_, bytes_.size()) << "read beyond the end";
    return at_ < bytes_.size() ? static_cast<unsigned char>(bytes_[at_++]) : 0;
  }
  void Cut(std::uint64_t from, std::uint64_t to) {
    value_ -= from;
    length_ = to - from;
    while (length_ < 16777216) {
      value_ = value_ * 256 + Next();
      length_ *= 256;
    }
  }

  std::string bytes_;
  std::size_t at_ = 0;
  std::uint64_t value_ = 0, length_ = 4294967295;
};

class Numbers {
 public:
  Numbers(std::uint32_t bits, std::size_t contexts)
      : bits_(bits), widths_(contexts, LearntShares(bits + 1)) {
    for (std::uint32_t width = 0; width <= bits; ++width) {
      parts_.emplace_back(std::size_t{1} << std::min(width, 8U));
    }
  }
  std::int64_t Decode(Decoder& from, std::int64_t expected, std::size_t context = 0) {
    const std::int64_t range = std::int64_t{1} << bits_;
    const std::int64_t least = -range / 2;
    std::int64_t number = expected + Difference(from, context);
    if (number < least) number += range;
    if (number >= least + range) number -= range;
    return number;
  }

 private:
  std::int64_t Difference(Decoder& from, std::size_t context) {
    const std::uint32_t width = from.Symbol(widths_[context]);
    if (width == 0) return from.Bit(bit_);
    if (width == 32) return -2147483648;
    std::int64_t index = from.Symbol(parts_[width]);
    if (width > 8) index = (index << (width - 8)) + from.Bits(width - 8);
    const std::int64_t half = std::int64_t{1} << (width - 1);
    return index < half ? index - 2 * half + 1 : index + 1;
  }

  std::uint32_t bits_;
  std::vector<LearntShares> widths_;
  std::vector<LearntShares> parts_;
  LearntBit bit_;
};

TEST(LazCoder, SymbolsBitsAndTheirCarriesComeBack) {
  std::mt19937 random(6);
  std::vector<std::pair<int, std::uint32_t>> coded;
  ArithmeticCoder coder;
  SymbolModel symbols(64);
  BitModel bits;
  for (int i = 0; i < 200'000; ++i) {
    const int kind = static_cast<int>(random() % 3);
    // The last symbol is by far the most frequent one: the base comes near to its end and carries.
    std::uint32_t value = random() % 50 == 0 ? random() % 64 : 63;
    if (kind == 1) value = random() % 20 == 0 ? 0 : 1;
    if (kind == 2) value = random() % 9 == 0 ? random() : 0xFFFFFFFF;
    coded.emplace_back(kind, value);
    if (kind == 0) coder.Symbol(symbols, value);
    if (kind == 1) coder.Bit(bits, value);
    if (kind == 2) coder.Bits(32, value);
  }
  Decoder decoder(coder.Finish());
  LearntShares shares(64);
  LearntBit bit;
  for (const auto& [kind, value] : coded) {
    const std::uint32_t got = kind == 0   ? decoder.Symbol(shares)
                              : kind == 1 ? decoder.Bit(bit)
                                          : decoder.Bits(32);
    ASSERT_EQ(got, value);
  }
}

TEST(LazCoder, NumbersOfEveryWidthComeBack) {
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  std::vector<std::int32_t> numbers{0, 1, -1, kLeast, kMost, kLeast, 0, kLeast, -1, kMost};
  std::mt19937 random(7);
  for (int i = 0; i < 20'000; ++i) {
    numbers.push_back(static_cast<std::int32_t>(random()) >> random() % 32);
  }
  ArithmeticCoder coder;
  NumberModel model(32, 3);
  std::int32_t before = 0;
  for (const std::int32_t number : numbers) {
    model.Code(coder, before, number, static_cast<std::uint32_t>(before & 1));
    before = number;
  }
  Decoder decoder(coder.Finish());
  Numbers decoded(32, 3);
  before = 0;
  for (const std::int32_t number : numbers) {
    ASSERT_EQ(decoded.Decode(decoder, before, static_cast<std::size_t>(before & 1)), number);
    before = number;
  }
}

TEST(LazCoder, TheWidthIsThatOfTheDifference) {
  ArithmeticCoder coder;
  NumberModel model(32, 1);
  for (const auto& [difference, width] : std::vector<std::pair<std::int32_t, std::uint32_t>>{
           {0, 0}, {1, 0}, {-1, 1}, {2, 1}, {-2, 2}, {-3, 2}, {3, 2}, {4, 2}, {5, 3}, {-4, 3}}) {
    model.Code(coder, 10, 10 + difference);
    EXPECT_EQ(model.Width(), width) << difference;
  }
}

template <class Value>
Value At(const std::string& bytes, std::size_t at) {
  Value value{};
  std::memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}

std::vector<LazEcho> Some_Echoes(int count) {
  std::vector<LazEcho> echoes;
  for (int i = 0; i < count; ++i) {
    echoes.push_back({{1000 + 37 * i % 5003, 2000 + 7 * i, 150'000 + 11 * i % 977},
                      static_cast<std::uint16_t>(i % 251),
                      1 + i % 2,
                      2,
                      1000 + 1e-5 * (i / 2)});  // NOLINT(bugprone-integer-division)
  }
  return echoes;
}

TEST(LazFile, SaysHowItIsCompressedAndWhatItHolds) {
  const std::string bytes = Laz_File(Some_Echoes(7), {300000, 6600000, 0}, 3067);
  EXPECT_EQ(bytes.substr(0, 4), "LASF");
  EXPECT_EQ(bytes.substr(24, 2), "\x01\x02");
  EXPECT_EQ(At<std::uint16_t>(bytes, 94), 227);
  EXPECT_EQ(At<std::uint8_t>(bytes, 104), 128 + 1);
  EXPECT_EQ(At<std::uint16_t>(bytes, 105), 28);
  EXPECT_EQ(At<std::uint32_t>(bytes, 107), 7U);
  EXPECT_EQ(At<std::uint32_t>(bytes, 111), 4U);
  EXPECT_EQ(At<std::uint32_t>(bytes, 115), 3U);
  EXPECT_EQ(At<double>(bytes, 131), 0.001);
  EXPECT_EQ(At<double>(bytes, 163), 6600000);
  EXPECT_NEAR(At<double>(bytes, 187), 300001, 1e-9);           // least X
  EXPECT_NEAR(At<double>(bytes, 195), 6600002 + 0.042, 1e-6);  // greatest Y
  const auto points_at = At<std::uint32_t>(bytes, 96);
  const std::size_t first = points_at + 8;  // behind the place of the table of chunks
  EXPECT_EQ(At<std::int32_t>(bytes, first), 1000);
  EXPECT_EQ(At<std::int32_t>(bytes, first + 8), 150'000);
  EXPECT_EQ(At<std::uint8_t>(bytes, first + 14), 1 + 8 * 2);
  EXPECT_EQ(At<double>(bytes, first + 20), 1000);
}

TEST(LazFile, TheTableTellsTheChunksWhichBeginWithAPlainPoint) {
  const std::vector<LazEcho> echoes = Some_Echoes(2 * static_cast<int>(kLazChunk) + 1);
  const std::string bytes = Laz_File(echoes, {0, 0, 0}, 3067);
  const auto points_at = At<std::uint32_t>(bytes, 96);
  const auto table = static_cast<std::size_t>(At<std::int64_t>(bytes, points_at));
  ASSERT_LT(table + 8, bytes.size());
  EXPECT_EQ(At<std::uint32_t>(bytes, table), 0U);
  ASSERT_EQ(At<std::uint32_t>(bytes, table + 4), 3U);
  Decoder decoder(bytes.substr(table + 8));
  Numbers sizes(32, 2);
  std::int64_t size = 0;
  std::size_t at = points_at + 8;
  for (const std::size_t first :
       {std::size_t{0}, std::size_t{kLazChunk}, 2 * std::size_t{kLazChunk}}) {
    EXPECT_EQ(At<std::int32_t>(bytes, at + 4), echoes[first].position[1]);
    EXPECT_EQ(At<double>(bytes, at + 20), echoes[first].time);
    size = sizes.Decode(decoder, size, 1);
    at += static_cast<std::size_t>(size);
  }
  EXPECT_EQ(at, table);
}

}  // namespace
}  // namespace sylvomex::demo
