// SPDX-License-Identifier: MIT
#include "platform/written_pieces.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "platform/work_meter.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

constexpr std::size_t kPiece = std::size_t{4} << 20;

std::vector<std::uint8_t> Counting_Bytes(std::size_t size) {
  std::vector<std::uint8_t> bytes(size);
  for (std::size_t k = 0; k < size; ++k) bytes[k] = static_cast<std::uint8_t>(k % 251);
  return bytes;
}

TEST(WrittenPieces, TheFileHoldsTheContentWholeWhateverItsSize) {
  const TemporaryFolder folder;
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kPiece, 2 * kPiece + 3}) {
    const auto bytes = Counting_Bytes(size);
    Replace_By_Pieces(folder.File("a.raw"), bytes);
    EXPECT_TRUE(folder.Read("a.raw") == std::string(bytes.begin(), bytes.end())) << size;
  }
}

TEST(WrittenPieces, ACancelBetweenTwoLeavesTheFormerFileAndNoOther) {
  const TemporaryFolder folder;
  folder.Write("a.raw", "former");
  CancelAfter watcher(2);
  const WatchedWork watched(&watcher);
  EXPECT_THROW(Replace_By_Pieces(folder.File("a.raw"), Counting_Bytes(3 * kPiece)), Cancelled);
  EXPECT_EQ(folder.Read("a.raw"), "former");
  const std::filesystem::directory_iterator entries(folder.Path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

}  // namespace
}  // namespace sylvomex
