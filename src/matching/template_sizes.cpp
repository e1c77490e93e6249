// SPDX-License-Identifier: MIT
#include "matching/template_sizes.h"

#include <cmath>
#include <string>

#include "platform/rounding.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kTentRadius = 1;
constexpr int kSpare = 4;  // zero columns and rows appended right and below

// The template with its appended columns and rows.
struct WorkArray {
  explicit WorkArray(const ImageTemplate& source) : columns(source.width + kSpare) {
    values.assign(
        static_cast<std::size_t>(columns) * static_cast<std::size_t>(source.height + kSpare), 0);
    for (int row = 0; row < source.height; ++row) {
      for (int col = 0; col < source.width; ++col) {
        values[Place(col, row)] = source.pixels[static_cast<std::size_t>(row * source.width + col)];
      }
    }
  }
  [[nodiscard]] std::size_t Place(int col, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
           static_cast<std::size_t>(col);
  }
  [[nodiscard]] double At(int col, int row) const { return values[Place(col, row)]; }

  int columns;
  std::vector<std::uint8_t> values;
};

double Interpolate(const WorkArray& work, double col, double row) {
  const int ci = static_cast<int>(std::floor(col)), ri = static_cast<int>(std::floor(row));
  const double fc = col - ci, fr = row - ri;
  double sum = 0;
  for (int a = 0; a <= 1; ++a) {
    for (int b = 0; b <= 1; ++b) {
      sum += work.At(ci + b, ri + a) * Tent_Weight(a - fr, kTentRadius) *
             Tent_Weight(fc - b, kTentRadius);
    }
  }
  return sum;
}

// Source pixels per target pixel.
double Step(int source, int target, const char* what) {
  if (target == 1) {
    throw RunTimeError(Failure::DivisionByZero, std::string("a resized template of one ") + what +
                                                    " from one of " + std::to_string(source));
  }
  return (source - 1.0) / (target - 1.0);
}

}  // namespace

SizeTable Make_Size_Table(const ImageTemplate& pattern) {
  SizeTable table;
  for (std::size_t k = 0; k < table.size(); ++k) {
    const auto entry = [k](int value, const char* what) {
      try {
        return To_Byte(value * kSizeFactors[k]);
      } catch (const RunTimeError& error) {
        throw error.At("size " + std::to_string(k + 1) + ", " + what);
      }
    };
    table[k].width = entry(pattern.width, "width");
    table[k].height = entry(pattern.height, "height");
    table[k].reference_col = entry(pattern.reference_col, "reference column");
    table[k].reference_row = entry(pattern.reference_row, "reference row");
  }
  return table;
}

void Smooth_Template(ImageTemplate& pattern) {
  const auto at = [&pattern](int col, int row) -> std::uint8_t& {
    return pattern.pixels[static_cast<std::size_t>(row * pattern.width + col)];
  };
  for (int col = 1; col <= pattern.width - 2; ++col) {
    for (int row = 1; row <= pattern.height - 2; ++row) {
      const int corners =
          at(col - 1, row - 1) + at(col + 1, row - 1) + at(col - 1, row + 1) + at(col + 1, row + 1);
      const int sides = at(col, row - 1) + at(col - 1, row) + at(col + 1, row) + at(col, row + 1);
      at(col, row) = To_Byte(0.0625 * corners + 0.125 * sides + 0.25 * at(col, row));
    }
  }
}

double Tent_Weight(double d, double radius) {
  return std::abs(d) < radius ? (1 - std::abs(d) / radius) / radius : 0;
}

ImageTemplate Resample_Template(const ImageTemplate& source, const TemplateSize& size) {
  const double sx = Step(source.width, size.width, "column");
  const double sy = Step(source.height, size.height, "row");
  const WorkArray work(source);
  ImageTemplate target{size.width, size.height, size.reference_col, size.reference_row, {}};
  for (int j = 0; j < target.height; ++j) {
    for (int i = 0; i < target.width; ++i) {
      target.pixels.push_back(To_Byte(Interpolate(work, i * sx, j * sy)));
    }
  }
  return target;
}

}  // namespace sylvomex
