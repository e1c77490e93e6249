// SPDX-License-Identifier: MIT
// While a long text is read its reader can be told to end, and tells the share that is read.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "platform/list_reader.h"
#include "platform/work_meter.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

struct Shares : WorkWatcher {
  std::vector<double> seen;
  void Look(double done) override { seen.push_back(done); }
};

constexpr int kLines = 20000;  // of ten bytes: less than is read from the file at a time

std::string Ten_Bytes_A_Line() {
  std::string content;
  for (int k = 0; k < kLines; ++k) content += std::to_string(100000000 + k) + "\n";
  return content;
}

std::vector<double> Shares_Of_Reading(ListReader list) {
  Shares watcher;
  const WatchedWork watched(&watcher);
  while (!list.At_End()) list.Read_Int32();
  return watcher.seen;
}

// Every 4096 lines at least.
void Expect_Shares_Of_A_Whole(const std::vector<double>& shares) {
  ASSERT_GE(shares.size(), 4U);
  EXPECT_TRUE(std::ranges::is_sorted(shares));
  for (std::size_t k = 0; k < shares.size(); ++k) {
    EXPECT_NEAR(shares[k], 4096 * (k + 1.0) / kLines, 2.0 / kLines);
  }
}

TEST(ListLooks, TheShareOfAFileRisesWithItsLines) {
  const TemporaryFolder folder;
  Expect_Shares_Of_A_Whole(
      Shares_Of_Reading(ListReader(folder.Write("a.txt", Ten_Bytes_A_Line()))));
}

TEST(ListLooks, TheShareOfATextRisesWithItsLines) {
  Expect_Shares_Of_A_Whole(Shares_Of_Reading(ListReader(Ten_Bytes_A_Line(), "a.txt")));
}

TEST(ListLooks, TheShareIsThatOfTheWholeFileOverManyPieces) {
  const TemporaryFolder folder;
  std::string content;
  while (content.size() < (std::size_t{9} << 20)) content += Ten_Bytes_A_Line();
  const auto shares = Shares_Of_Reading(ListReader(folder.Write("a.txt", content)));
  double last = 0;
  for (const double share : shares) {
    if (share < 0) continue;  // a look between two pieces, of a work whose length is not known
    EXPECT_NEAR(share, last + 40960.0 / static_cast<double>(content.size()), 1e-4);
    last = share;
  }
  EXPECT_GT(last, 0.99);
}

TEST(ListLooks, AreNoStepsOfTheWork) {
  const long before = Work_Steps();
  Shares_Of_Reading(ListReader(Ten_Bytes_A_Line(), "a.txt"));
  EXPECT_EQ(Work_Steps(), before);
}

TEST(ListLooks, WithinAStepOfAnotherWorkTheyTellItsPart) {
  Shares watcher;
  const WatchedWork watched(&watcher);
  WorkMeter files(2);
  files.Task();
  ListReader list(Ten_Bytes_A_Line(), "a.txt");
  while (!list.At_End()) list.Read_Int32();
  EXPECT_EQ(watcher.seen.front(), 0.5);
  EXPECT_TRUE(std::ranges::is_sorted(watcher.seen));
  EXPECT_GT(watcher.seen.back(), 0.9);
  EXPECT_LT(watcher.seen.back(), 1);
}

TEST(ListLooks, ACancelEndsTheReading) {
  ListReader list(Ten_Bytes_A_Line(), "a.txt");
  CancelAfter watcher(0);
  const WatchedWork watched(&watcher);
  EXPECT_THROW(
      {
        while (!list.At_End()) list.Read_Int32();
      },
      Cancelled);
  EXPECT_EQ(list.Line(), 4096);
}

}  // namespace
}  // namespace sylvomex
