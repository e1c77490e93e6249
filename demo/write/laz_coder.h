// SPDX-License-Identifier: MIT
// The entropy coder of LAZ files: adaptive arithmetic coding (A. Said, "Introduction to arithmetic
// coding - theory and practice", HP Labs HPL-2004-76) and whole numbers as differences to what is
// expected (M. Isenburg, "LASzip: lossless compression of LiDAR data", PE&RS 79(2), 2013).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sylvomex::demo {

/// Shares of two symbols, learnt from those that were coded.
class BitModel {
 public:
  [[nodiscard]] std::uint32_t Share() const { return share_; }  // of symbol 0, in 2^13
  void Learn(std::uint32_t bit);

 private:
  std::uint32_t zeros_ = 1, count_ = 2, share_ = 1U << 12U, cycle_ = 4, until_ = 4;
};

/// Shares of many symbols.
class SymbolModel {
 public:
  explicit SymbolModel(std::uint32_t symbols);

  [[nodiscard]] std::uint32_t Symbols() const { return static_cast<std::uint32_t>(counts_.size()); }
  /// The share of all symbols below one, in 2^15.
  [[nodiscard]] std::uint32_t Below(std::uint32_t symbol) const { return below_[symbol]; }
  void Learn(std::uint32_t symbol);

 private:
  void Update();

  std::vector<std::uint32_t> counts_, below_;
  std::uint32_t total_ = 0, cycle_ = 0, until_ = 0;
};

class ArithmeticCoder {
 public:
  void Bit(BitModel& model, std::uint32_t bit);
  void Symbol(SymbolModel& model, std::uint32_t symbol);
  /// count: 1 to 32 bits of equal shares, the lower 16 first where there are more than 19.
  void Bits(std::uint32_t count, std::uint32_t value);
  /// The bytes of all that was coded; nothing can be added any more.
  std::string Finish();

 private:
  void Take(std::uint32_t below, std::uint32_t length);

  std::string bytes_;
  std::uint32_t base_ = 0, length_ = 0xFFFFFFFF;
};

/// Numbers of up to 32 bits, in contexts of their own.
class NumberModel {
 public:
  NumberModel(std::uint32_t bits, std::uint32_t contexts);

  /// Codes a number that was expected to be another; both lie in the range of the bits.
  void Code(ArithmeticCoder& coder, std::int32_t expected, std::int32_t number,
            std::uint32_t context = 0);

  /// The bits of the last difference.
  [[nodiscard]] std::uint32_t Width() const { return width_; }

 private:
  void Code_Difference(ArithmeticCoder& coder, std::int32_t difference);

  std::uint32_t bits_, width_ = 0;
  std::vector<SymbolModel> widths_;  // of the contexts
  BitModel zero_or_one_;
  std::vector<SymbolModel> parts_;  // upper bits of differences of widths 1, 2, ...
};

}  // namespace sylvomex::demo
