// SPDX-License-Identifier: MIT
// Inputs of the benchmarks, made from fixed seeds with integer arithmetic only, so that they
// are the same bytes on every machine.
//
// Random words: splitmix64 (Steele, Lea and Flood 2014, "Fast splittable pseudorandom number
// generators") used as a table: word i of a seed is output i + 1 of the generator started
// with the state seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace sylvomex::bench {

inline std::uint64_t Random_Word(std::uint64_t seed, std::uint64_t index) {
  std::uint64_t z = seed + (index + 1) * 0x9E3779B97F4A7C15U;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
  return z ^ (z >> 31);
}

/// In [0, 1), 53 bits.
inline double Random_Unit(std::uint64_t seed, std::uint64_t index) {
  return static_cast<double>(Random_Word(seed, index) >> 11) * 0x1p-53;
}

/// The index of random words for a position in a plane of up to 65536 columns.
inline std::uint64_t Plane_Index(int col, int row) {
  return static_cast<std::uint64_t>(row) * 65536U + static_cast<std::uint64_t>(col);
}

/// A random byte at a lattice point.
inline int Lattice_Value(std::uint64_t seed, int col, int row) {
  return static_cast<int>(Random_Word(seed, Plane_Index(col, row)) & 255U);
}

/// Value noise, 0 to 255: lattice points every 2^shift pixels, bilinear between them.
inline int Value_Noise(std::uint64_t seed, int x, int y, int shift) {
  const int cell = 1 << shift;
  const int col = x >> shift;
  const int row = y >> shift;
  const int fx = x & (cell - 1);
  const int fy = y & (cell - 1);
  const int top =
      Lattice_Value(seed, col, row) * (cell - fx) + Lattice_Value(seed, col + 1, row) * fx;
  const int bottom =
      Lattice_Value(seed, col, row + 1) * (cell - fx) + Lattice_Value(seed, col + 1, row + 1) * fx;
  return (top * (cell - fy) + bottom * fy) >> (2 * shift);
}

/// One row of a red, green, blue frame image: three quarters of the value noise of 32-pixel cells
/// plus six bits of white noise per channel. rgb: 3 bytes a pixel.
inline void Fill_Frame_Row(std::uint64_t seed, int row, std::span<std::uint8_t> rgb) {
  constexpr int kShift = 5;
  const int width = static_cast<int>(rgb.size() / 3);
  const int cell_row = row >> kShift;
  const int fy = row & 31;
  int left = 0;  // the cell's lattice values, interpolated for the row
  int right = 0;
  for (int col = 0; col < width; ++col) {
    const int cell_col = col >> kShift;
    const int fx = col & 31;
    if (fx == 0) {
      left = Lattice_Value(seed, cell_col, cell_row) * (32 - fy) +
             Lattice_Value(seed, cell_col, cell_row + 1) * fy;
      right = Lattice_Value(seed, cell_col + 1, cell_row) * (32 - fy) +
              Lattice_Value(seed, cell_col + 1, cell_row + 1) * fy;
    }
    const int base = (((left * (32 - fx) + right * fx) >> (2 * kShift)) * 3) >> 2;
    const std::uint64_t noise = Random_Word(seed + 7, Plane_Index(col, row));
    const auto at = 3 * static_cast<std::size_t>(col);
    rgb[at] = static_cast<std::uint8_t>(base + static_cast<int>(noise & 63U));
    rgb[at + 1] = static_cast<std::uint8_t>(base + static_cast<int>((noise >> 6) & 63U));
    rgb[at + 2] = static_cast<std::uint8_t>(base + static_cast<int>((noise >> 12) & 63U));
  }
}

}  // namespace sylvomex::bench
