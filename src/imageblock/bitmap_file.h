// SPDX-License-Identifier: MIT
// BMP files: the 24-bit scratch bitmaps of the panes, the 8-bit grey bitmaps, and the reader
// that loads either into a pane.
#pragma once

#include <cstdint>
#include <span>

#include "imageblock/pane_bitmap.h"
#include "platform/drive_map.h"

namespace sylvomex {

/// 54 header bytes and the pixels, rows from the top (negative height). The size field
/// counts the pixel bytes only. A width that is not a multiple of 4 appends 1 to 3 black
/// pixels to each row, which the reader, following the info header, does not expect.
/// RunTimeError(SubscriptOutOfRange) when there are not 3 x width x height bytes.
void Write_Pane_Bitmap(const FilePath& file, const PaneBitmap& bitmap);

/// The same by way of a ReplacingFile: the old file stays until the new one is complete.
void Replace_Pane_Bitmap(const FilePath& file, const PaneBitmap& bitmap);

/// A picture for other programs: 24-bit, rows from the bottom, padded to 4 bytes; an older file is
/// replaced as a whole. RunTimeError(SubscriptOutOfRange) as above.
void Replace_Bitmap(const FilePath& file, const PaneBitmap& bitmap);

/// Overwrites the 54 header bytes of the file; the pixels stay.
void Rewrite_Bitmap_Header(const FilePath& file, int width, int height);

/// 8-bit grey: palette of 256 entries, pixels at offset 1082, rows from the bottom, padded
/// to a multiple of 4 bytes. pixels: width x height bytes, rows from the top, else
/// RunTimeError(SubscriptOutOfRange).
void Write_Grey_Bitmap(const FilePath& file, int width, int height,
                       std::span<const std::uint8_t> pixels);

/// Reads an uncompressed 24-bit or 8-bit palette BMP, using its pixel offset and info header.
/// Palette entries missing from the file are black. RunTimeError(BadContent) naming the file
/// and the cause for anything else.
PaneBitmap Load_Bitmap(const FilePath& file);

}  // namespace sylvomex
