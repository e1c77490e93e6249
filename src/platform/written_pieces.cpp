// SPDX-License-Identifier: MIT
#include "platform/written_pieces.h"

#include <algorithm>

#include "platform/files.h"
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

void Write_Both(const FileContent& first, const FileContent& second) {
  if (!Is_Work_Watched()) {
    Write_Whole_File(first.file, first.bytes);
    Write_Whole_File(second.file, second.bytes);
    return;
  }
  ReplacingFile new_first(first.file, first.bytes.size());
  ReplacingFile new_second(second.file, second.bytes.size());
  Write_Pieces(new_first, first.bytes);
  Write_Pieces(new_second, second.bytes);
  new_first.Commit();
  new_second.Commit();
}

}  // namespace sylvomex
