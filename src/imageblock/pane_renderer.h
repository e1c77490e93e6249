// SPDX-License-Identifier: MIT
// Cuts a view from a raw pixel file and scales it to a pane by integer replication or subsampling.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "imageblock/pane_bitmap.h"
#include "imageblock/view_window.h"
#include "platform/drive_map.h"

namespace sylvomex {

using GammaTable = std::array<std::uint8_t, 256>;

/// round(v^g * 255 / 255^g) for every byte v, half to even. RunTimeError(Overflow) for an exponent
/// that yields a value outside a byte.
GammaTable Make_Gamma_Table(double exponent);

/// A raw pixel file in memory: rows from the top without padding.
struct RawPixels {
  std::span<const std::uint8_t> bytes;
  double sub_width = 0;            // columns
  double sub_height = 0;           // rows
  const FilePath* file = nullptr;  // for messages
};

struct RenderRequest {
  ViewWindow window;
  double zoom_x = 1;  // pane pixels per raw pixel; zoom_x alone selects the path
  double zoom_y = 1;
  int pane_width = 0;
  int pane_height = 0;
  std::optional<GammaTable> gamma;     // colour renderer only
  std::function<void()> on_exceeding;  // called after the last pixel, once for each pane pixel that
                                       // the zoom-out path finds outside the raw file
};

/// Render one byte a pixel to three equal bytes, or R, G, B to B, G, R. The bitmap is
/// resized to the pane and its memory reused; row padding is left to the bitmap
/// writer. Pixels without a source are black; pixels outside by the zoom-out test are
/// white. zoom_x between 0.99 and 1.1 (both excluded) copies, above it repeats pixels in blocks
/// of round(zoom), everything else takes every round(1 / zoom)th pixel.
/// A window that does not fit (fits is false) is truncated at the pane.
/// RunTimeError(InputPastEnd) when the file is shorter than sub_width x sub_height pixels,
/// RunTimeError(SubscriptOutOfRange) when blocks of a window that fits exceed the work margin
/// (30 pixels grey, 100 colour) or the pane size is not in 0 to 32767,
/// RunTimeError(Overflow) for a zoom whose step exceeds 32 bits,
/// RunTimeError(FileFailure) for a position before the file's start.
void Render_Grey(const RawPixels& raw, const RenderRequest& request, PaneBitmap& out);
void Render_Colour(const RawPixels& raw, const RenderRequest& request, PaneBitmap& out);

}  // namespace sylvomex
