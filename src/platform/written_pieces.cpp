// SPDX-License-Identifier: MIT
#include "platform/written_pieces.h"

#include <algorithm>

#include "platform/replacing_file.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{4} << 20;  // milliseconds of writing

}  // namespace

void Write_Pieces(const ReplacingFile& file, std::span<const std::uint8_t> content) {
  const std::size_t pieces = (content.size() + kPieceBytes - 1) / kPieceBytes;
  WorkMeter meter(static_cast<double>(pieces));
  for (std::size_t at = 0; at < content.size(); at += kPieceBytes) {
    file.Write_At(at, content.subspan(at, std::min(kPieceBytes, content.size() - at)));
    meter.Step();
  }
}

void Replace_By_Pieces(const FilePath& file, std::span<const std::uint8_t> content) {
  ReplacingFile replacing(file, content.size());
  Write_Pieces(replacing, content);
  replacing.Commit();
}

}  // namespace sylvomex
