// SPDX-License-Identifier: MIT
#include "services/line_count.h"

#include <gtest/gtest.h>

#include "platform/run_time_error.h"
#include "platform/work_meter.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

struct Onlooker : WorkWatcher {
  void Look(double) override {}
};

TEST(LineCount, CountsLineEndsOverPiecesOfTheFile) {
  const TemporaryFolder folder;
  const std::string line(999, 'x');
  std::string text;
  for (int k = 0; k < 3000; ++k) text += line + "\n";  // 3 MB
  folder.Write("a.txt", text + "no end");
  folder.Write("empty.txt", "");
  Onlooker watcher;
  const WatchedWork watched(&watcher);
  EXPECT_EQ(Lines_To_Come(folder.File("a.txt")), 3000);
  EXPECT_EQ(Lines_To_Come(folder.File("empty.txt")), 0);
  EXPECT_THROW(Lines_To_Come(folder.File("none.txt")), RunTimeError);
}

TEST(LineCount, ReadsNothingWhenNobodyWatches) {
  const TemporaryFolder folder;
  EXPECT_EQ(Lines_To_Come(folder.File("none.txt")), 0);
}

}  // namespace
}  // namespace sylvomex
