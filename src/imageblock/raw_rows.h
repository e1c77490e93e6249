// SPDX-License-Identifier: MIT
// Positions of the rows of a view in a raw pixel file.
#pragma once

#include <cstdint>
#include <span>

#include "imageblock/pane_renderer.h"

namespace sylvomex {

enum class RawLayout { Grey, Colour };

inline int Bytes_Per_Pixel(RawLayout layout) { return layout == RawLayout::Grey ? 1 : 3; }

/// RunTimeError(InputPastEnd) when the file is shorter than its header states.
void Check_Raw_Length(const RawPixels& raw, RawLayout layout);

/// Byte offset of pixel (col, raw_row), counted from 0. The two functions differ only for colour
/// files of fractional width: in Raw_Position a row starts at a multiple of the rounded width.
double Raw_Position(const RawPixels& raw, RawLayout layout, double col, double raw_row);
double Raw_Position_Zooming_Out(const RawPixels& raw, RawLayout layout, double col, double raw_row);

/// Up to count bytes from an offset, fewer where the file ends.
/// RunTimeError(FileFailure) for a position before the file's start.
std::span<const std::uint8_t> Raw_Bytes(const RawPixels& raw, double position, std::int64_t count);

}  // namespace sylvomex
