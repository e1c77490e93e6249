// SPDX-License-Identifier: MIT
#include "demo/write/cursor_file.h"

#include <array>
#include <cstdint>
#include <cstdlib>

namespace sylvomex::demo {
namespace {

constexpr int kSide = 32;
constexpr int kHotSpot = 15;
constexpr std::uint32_t kPictureOffset = 22;
constexpr std::uint32_t kPictureBytes = 40 + 8 + 2 * kSide * kSide / 8;

void Put_16(std::string& out, std::uint32_t value) {
  out += static_cast<char>(value & 0xFFU);
  out += static_cast<char>((value >> 8U) & 0xFFU);
}

void Put_32(std::string& out, std::uint32_t value) {
  Put_16(out, value & 0xFFFFU);
  Put_16(out, value >> 16U);
}

bool Is_On_Cross(int column, int row, int gap, int arm) {
  const int across = std::abs(column - kHotSpot), down = std::abs(row - kHotSpot);
  const int along = across + down;
  return (across == 0 || down == 0) && along > gap && along <= arm;
}

/// One bit a pixel, rows from the bottom, the leftmost pixel in the highest bit.
std::string Cross_Bits(int gap, int arm, bool set_on_cross) {
  std::string bits;
  for (int row = kSide - 1; row >= 0; --row) {
    for (int first = 0; first < kSide; first += 8) {
      unsigned byte = 0;
      for (int column = first; column < first + 8; ++column) {
        byte = byte << 1U | (Is_On_Cross(column, row, gap, arm) == set_on_cross ? 1U : 0U);
      }
      bits += static_cast<char>(byte);
    }
  }
  return bits;
}

/// Directory entry of the single picture.
std::string Cursor_Directory() {
  std::string out;
  for (const std::uint32_t value : {0U, 2U, 1U}) Put_16(out, value);  // reserved, cursor, count
  out += static_cast<char>(kSide);
  out += static_cast<char>(kSide);
  out += static_cast<char>(2);  // colours
  out += '\0';
  Put_16(out, kHotSpot);
  Put_16(out, kHotSpot);
  Put_32(out, kPictureBytes);
  Put_32(out, kPictureOffset);
  return out;
}

/// Bitmap header (the height counts both bit planes) and the palette black, white.
std::string Picture_Header() {
  std::string out;
  Put_32(out, 40);
  Put_32(out, kSide);
  Put_32(out, 2 * kSide);
  Put_16(out, 1);  // planes
  Put_16(out, 1);  // bits a pixel
  Put_32(out, 0);  // no compression
  Put_32(out, 2 * kSide * kSide / 8);
  for (int unused = 0; unused < 4; ++unused) Put_32(out, 0);
  Put_32(out, 0x00000000U);
  Put_32(out, 0x00FFFFFFU);
  return out;
}

}  // namespace

std::string Cross_Cursor(int gap, int arm) {
  return Cursor_Directory() + Picture_Header() + Cross_Bits(gap, arm, true) +
         Cross_Bits(gap, arm, false);
}

}  // namespace sylvomex::demo
