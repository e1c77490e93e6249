// SPDX-License-Identifier: MIT
#include "demo/write/laz_coder.h"

#include <algorithm>
#include <bit>

namespace sylvomex::demo {
namespace {

constexpr std::uint32_t kBitShare = 13, kSymbolShare = 15;  // bits of shares
constexpr std::uint32_t kLeastLength = 1U << 24U;
constexpr std::uint32_t kPartBits = 8;  // of a difference that are learnt
constexpr std::uint32_t kMostBitsAtOnce = 19;

}  // namespace

void BitModel::Learn(std::uint32_t bit) {
  if (bit == 0) ++zeros_;
  if (--until_ > 0) return;
  count_ += cycle_;
  if (count_ > 1U << kBitShare) {
    count_ = (count_ + 1) / 2;
    zeros_ = (zeros_ + 1) / 2;
    if (zeros_ == count_) ++count_;
  }
  share_ = zeros_ * ((1U << 31U) / count_) >> (31 - kBitShare);
  cycle_ = until_ = std::min(5 * cycle_ / 4, 64U);
}

SymbolModel::SymbolModel(std::uint32_t symbols)
    : counts_(symbols, 1), below_(symbols), cycle_(symbols) {
  Update();
  cycle_ = until_ = (symbols + 6) / 2;
}

void SymbolModel::Learn(std::uint32_t symbol) {
  ++counts_[symbol];
  if (--until_ == 0) Update();
}

void SymbolModel::Update() {
  total_ += cycle_;
  if (total_ > 1U << kSymbolShare) {
    total_ = 0;
    for (std::uint32_t& count : counts_) total_ += count = (count + 1) / 2;
  }
  const std::uint32_t scale = (1U << 31U) / total_;
  std::uint32_t sum = 0;
  for (std::size_t symbol = 0; symbol < counts_.size(); ++symbol) {
    below_[symbol] = scale * sum >> (31 - kSymbolShare);
    sum += counts_[symbol];
  }
  cycle_ = until_ = std::min(5 * cycle_ / 4, (Symbols() + 6) * 8);
}

/// Narrows the interval; what its base runs over is carried into the bytes before.
void ArithmeticCoder::Take(std::uint32_t below, std::uint32_t length) {
  const std::uint32_t before = base_;
  base_ += below;
  if (base_ < before) {
    auto at = bytes_.end();
    while (*--at == '\xFF') *at = 0;
    ++*at;
  }
  for (length_ = length; length_ < kLeastLength; length_ <<= 8U) {
    bytes_ += static_cast<char>(base_ >> 24U);
    base_ <<= 8U;
  }
}

void ArithmeticCoder::Bit(BitModel& model, std::uint32_t bit) {
  const std::uint32_t zero = model.Share() * (length_ >> kBitShare);
  Take(bit == 0 ? 0 : zero, bit == 0 ? zero : length_ - zero);
  model.Learn(bit);
}

void ArithmeticCoder::Symbol(SymbolModel& model, std::uint32_t symbol) {
  const std::uint32_t unit = length_ >> kSymbolShare;
  const std::uint32_t below = model.Below(symbol) * unit;
  const std::uint32_t end =
      symbol + 1 == model.Symbols() ? length_ : model.Below(symbol + 1) * unit;
  Take(below, end - below);
  model.Learn(symbol);
}

void ArithmeticCoder::Bits(std::uint32_t count, std::uint32_t value) {
  if (count > kMostBitsAtOnce) {
    Bits(16, value & 0xFFFFU);
    Bits(count - 16, value >> 16U);
    return;
  }
  const std::uint32_t unit = length_ >> count;
  Take(value * unit, unit);
}

/// A decoder reads four bytes ahead.
std::string ArithmeticCoder::Finish() {
  const bool is_wide = length_ > 2 * kLeastLength;
  Take(is_wide ? kLeastLength : kLeastLength / 2, is_wide ? kLeastLength / 2 : kLeastLength >> 9U);
  return bytes_ + std::string(is_wide ? 3 : 2, '\0');
}

NumberModel::NumberModel(std::uint32_t bits, std::uint32_t contexts)
    : bits_(bits), widths_(contexts, SymbolModel(bits + 1)) {
  for (std::uint32_t width = 1; width <= bits; ++width) {
    parts_.emplace_back(1U << std::min(width, kPartBits));
  }
}

void NumberModel::Code(ArithmeticCoder& coder, std::int32_t expected, std::int32_t number,
                       std::uint32_t context) {
  const std::uint32_t above = 32 - bits_;  // bits that are not of the range
  const std::uint32_t wrapped =
      static_cast<std::uint32_t>(number) - static_cast<std::uint32_t>(expected);
  const auto difference = static_cast<std::int32_t>(wrapped << above) >> above;
  width_ = static_cast<std::uint32_t>(
      std::bit_width(difference > 0 ? static_cast<std::uint32_t>(difference) - 1
                                    : 0U - static_cast<std::uint32_t>(difference)));
  coder.Symbol(widths_[context], width_);
  Code_Difference(coder, difference);
}

/// Differences of a width above 0 are numbered from 0: the negative ones first.
void NumberModel::Code_Difference(ArithmeticCoder& coder, std::int32_t difference) {
  if (width_ == 0) coder.Bit(zero_or_one_, static_cast<std::uint32_t>(difference));
  if (width_ == 0 || width_ == 32) return;  // of 32 bits there is but one
  const std::uint32_t index =
      static_cast<std::uint32_t>(difference) + (difference < 0 ? (1U << width_) - 1 : 0U - 1);
  const std::uint32_t low = width_ > kPartBits ? width_ - kPartBits : 0;
  coder.Symbol(parts_[width_ - 1], index >> low);
  if (low > 0) coder.Bits(low, index & ((1U << low) - 1));
}

}  // namespace sylvomex::demo
