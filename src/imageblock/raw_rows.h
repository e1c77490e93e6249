// SPDX-License-Identifier: MIT
// Where the rows of a view lie in a raw pixel file.
#pragma once

#include <cstdint>
#include <span>

#include "imageblock/pane_renderer.h"

namespace sylvomex {

enum class RawLayout { Grey, Colour };

inline int Bytes_Per_Pixel(RawLayout layout) { return layout == RawLayout::Grey ? 1 : 3; }

/// RunTimeError(InputPastEnd) when the file is shorter than its header tells.
void Check_Raw_Length(const RawPixels& raw, RawLayout layout);

/// Byte position of pixel (col, raw_row), the first byte numbered 0. The two differ for
/// colour files of fractional width only: one to one, a row starts at a whole multiple of
/// the rounded width.
double Raw_Position(const RawPixels& raw, RawLayout layout, double col, double raw_row);
double Raw_Position_Zooming_Out(const RawPixels& raw, RawLayout layout, double col, double raw_row);

/// Up to count bytes from a position: what the file has of them.
/// RunTimeError(FileFailure) for a position before the file's start.
std::span<const std::uint8_t> Raw_Bytes(const RawPixels& raw, double position, std::int64_t count);

}  // namespace sylvomex
