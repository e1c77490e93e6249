// SPDX-License-Identifier: MIT
// Large files written in pieces, so that their command can be cancelled in between.
#pragma once

#include <cstdint>
#include <span>

#include "platform/drive_map.h"

namespace sylvomex {

class ReplacingFile;

/// Writes the content from the file's start on; a step of the work for each 4 MiB.
void Write_Pieces(const ReplacingFile& file, std::span<const std::uint8_t> content);

/// As Replace_Whole_File. The file appears whole at the end; a cancel before leaves what was there.
void Replace_By_Pieces(const FilePath& file, std::span<const std::uint8_t> content);

struct FileContent {
  FilePath file;
  std::span<const std::uint8_t> bytes;
};

/// Two files that belong together: both or, when the writing is cancelled, none. As
/// Write_Whole_File while nobody watches the work.
void Write_Both(const FileContent& first, const FileContent& second);

}  // namespace sylvomex
