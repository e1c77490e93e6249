// SPDX-License-Identifier: MIT
#include "interchange/share_files.h"

#include <algorithm>

#include "interchange/failures.h"
#include "platform/files.h"

namespace sylvomex {
namespace {

constexpr std::size_t kWaiting = 1 << 21;  // echoes of all shares in memory
constexpr std::size_t kLeastPiece = 512, kGreatestPiece = 2048;

}  // namespace

ShareFiles::ShareFiles(std::size_t shares,
                       const std::function<std::filesystem::path(const std::string&)>& new_file)
    : new_file_(new_file),
      shares_of_file_((shares + kMostFiles - 1) / kMostFiles),
      piece_(std::clamp(kWaiting / shares, kLeastPiece, kGreatestPiece)),
      shares_(shares),
      files_(kMostFiles) {}

void ShareFiles::Append(std::size_t share, std::span<const EchoRecord> echoes) {
  std::vector<EchoRecord>& waiting = shares_[share].waiting;
  if (waiting.capacity() == 0) waiting.reserve(piece_);
  while (!echoes.empty()) {
    const std::size_t count = std::min(echoes.size(), piece_ - waiting.size());
    waiting.insert(waiting.end(), echoes.begin(),
                   echoes.begin() + static_cast<std::ptrdiff_t>(count));
    echoes = echoes.subspan(count);
    if (waiting.size() == piece_) Write_Piece(share);
  }
}

void ShareFiles::Write_Piece(std::size_t at) {
  Share& share = shares_[at];
  File& file = File_Of(at);
  if (file.output == nullptr) {
    file.path = new_file_("echoes_" + std::to_string(&file - files_.data()));
    file.output = std::make_unique<OutputFile>(file.path, file.path.string());
  }
  file.output->Write({reinterpret_cast<const std::uint8_t*>(share.waiting.data()),
                      share.waiting.size() * sizeof(EchoRecord)});
  share.pieces.push_back(file.echoes);
  file.echoes += share.waiting.size();
  share.written += share.waiting.size();
  share.waiting.clear();
}

void ShareFiles::Finish() {
  for (std::size_t share = 0; share < shares_.size(); ++share) {
    if (!shares_[share].waiting.empty()) Write_Piece(share);
    shares_[share].waiting.shrink_to_fit();
    if (shares_[share].written > 0) ++File_Of(share).unread;
  }
  for (File& file : files_) {
    if (file.output != nullptr) file.output->Close();
  }
}

std::size_t ShareFiles::Count() const {
  std::size_t count = shares_.size();
  while (count > 0 && shares_[count - 1].written == 0) --count;
  return count;
}

void ShareFiles::Read(std::size_t at, std::vector<EchoRecord>& echoes) {
  const Share& share = shares_[at];
  echoes.resize(share.written);
  if (share.written == 0) return;
  File& file = File_Of(at);
  {
    const PositionalFile input(FilePath{file.path.string(), file.path});
    std::span<EchoRecord> rest(echoes);
    for (const std::uint64_t piece : share.pieces) {
      const std::span<EchoRecord> here = rest.first(std::min(piece_, rest.size()));
      const std::span<std::uint8_t> bytes(reinterpret_cast<std::uint8_t*>(here.data()),
                                          here.size_bytes());
      if (input.Read_At(static_cast<std::int64_t>(piece * sizeof(EchoRecord)), bytes) !=
          bytes.size()) {
        throw FailedOnTheWay(file.path.string() + ": the file became shorter");
      }
      rest = rest.subspan(here.size());
    }
  }
  if (--file.unread == 0) std::filesystem::remove(file.path);
}

}  // namespace sylvomex
