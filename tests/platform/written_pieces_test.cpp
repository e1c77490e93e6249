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

TEST(WrittenPieces, OfTwoFilesThatBelongTogetherACancelReplacesNone) {
  const auto bytes = Counting_Bytes(2 * kPiece);
  for (const long steps : {1, 2, 3}) {
    const TemporaryFolder folder;
    folder.Write("a.raw", "former");
    folder.Write("b.raw", "former, too");
    CancelAfter watcher(steps);
    const WatchedWork watched(&watcher);
    EXPECT_THROW(Write_Both({folder.File("a.raw"), bytes}, {folder.File("b.raw"), bytes}),
                 Cancelled);
    EXPECT_EQ(folder.Read("a.raw"), "former");
    EXPECT_EQ(folder.Read("b.raw"), "former, too");
  }
}

TEST(WrittenPieces, TwoFilesHoldTheirContentsWatchedOrNot) {
  const auto first = Counting_Bytes(kPiece + 1), second = Counting_Bytes(7);
  const TemporaryFolder folder;
  CancelAfter patient(1000);
  for (WorkWatcher* watcher :
       {static_cast<WorkWatcher*>(nullptr), static_cast<WorkWatcher*>(&patient)}) {
    folder.Write("a.raw", "former");
    folder.Write("b.raw", "former, longer than the new one");
    const WatchedWork watched(watcher);
    Write_Both({folder.File("a.raw"), first}, {folder.File("b.raw"), second});
    EXPECT_TRUE(folder.Read("a.raw") == std::string(first.begin(), first.end()));
    EXPECT_TRUE(folder.Read("b.raw") == std::string(second.begin(), second.end()));
  }
}

}  // namespace
}  // namespace sylvomex
