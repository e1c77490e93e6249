// SPDX-License-Identifier: MIT
// A template in eleven sizes: smoothed by a binomial kernel, then resampled bilinearly with a
// separable tent kernel (Gonzalez and Woods, Digital Image Processing (2018), sections 2.4 and
// 3.5).
#pragma once

#include <array>

#include "matching/image_template.h"

namespace sylvomex {

inline constexpr int kTemplateSizeCount = 11;  // counted from 1

/// Factors of sizes 1 to 11; size 9 is the template at its own size.
inline constexpr std::array<double, kTemplateSizeCount> kSizeFactors{0.4,  0.5, 0.6, 0.7, 0.75, 0.8,
                                                                     0.85, 0.9, 1.0, 1.1, 1.2};

struct TemplateSize {
  std::uint8_t width = 0;
  std::uint8_t height = 0;
  std::uint8_t reference_col = 0;
  std::uint8_t reference_row = 0;
};

/// Entry k - 1 for size k: the template's numbers times the factor, half to even.
/// RunTimeError(Overflow) for a result outside 0 to 255.
using SizeTable = std::array<TemplateSize, kTemplateSizeCount>;
SizeTable Make_Size_Table(const ImageTemplate& pattern);

/// 3 x 3 binomial kernel over all pixels except the border rows and columns, in place, column by
/// column from the top left: a pixel uses its already smoothed left and upper neighbours.
void Smooth_Template(ImageTemplate& pattern);

/// Tent kernel: (1 - |d| / radius) / radius within the radius, else 0.
double Tent_Weight(double d, double radius);

/// The template resampled to another size. RunTimeError(DivisionByZero) naming a size of one pixel
/// in a direction, for which no step between pixels exists.
ImageTemplate Resample_Template(const ImageTemplate& source, const TemplateSize& size);

}  // namespace sylvomex
