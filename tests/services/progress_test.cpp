// SPDX-License-Identifier: MIT
#include "services/progress.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

class ClockedScreen : public RecordingScreen {
 public:
  double now = 100;  // seconds
  double Clock() override { return now; }
};

struct ClockedBlock {
  SyntheticBlock site;
  ClockedScreen screen;
  Workspace& w = site.w;
  ClockedBlock() { w.screen = &screen; }
};

TEST(ProgressOfACommand, ServicesOnceForEachReportAfterShowingTheText) {
  ClockedBlock b;
  std::vector<std::string> seen;
  b.screen.on_service = [&] { seen.push_back(b.w.Form1.Label10.Caption); };
  Progress progress(b.w);
  EXPECT_TRUE(seen.empty());
  progress.Report("one");
  progress.Service();
  progress.Report("two");
  EXPECT_EQ(seen, (std::vector<std::string>{"one", "one", "two"}));
}

TEST(ProgressOfACommand, CanReportToAnotherLabel) {
  ClockedBlock b;
  b.w.Form1.Label10.Caption = "status";
  Progress progress(b.w, b.w.Form1.Label2);
  progress.Report("12 rows");
  EXPECT_EQ(b.w.Form1.Label2.Caption, "12 rows");
  EXPECT_EQ(b.w.Form1.Label10.Caption, "status");
}

TEST(ProgressOfACommand, InfrequentReportsChangeTheTextEveryHalfSecondAndServiceEachTime) {
  ClockedBlock b;
  Progress progress(b.w);
  std::vector<std::string> seen;
  b.screen.on_service = [&] { seen.push_back(b.w.Form1.Label10.Caption); };
  const double times[] = {100, 100.25, 100.499, 100.5, 100.75, 101};
  for (const double time : times) {
    b.screen.now = time;
    progress.Report_Seldom([&] { return std::to_string(static_cast<int>(time * 1000)); });
  }
  EXPECT_EQ(seen,
            (std::vector<std::string>{"100000", "100000", "100000", "100500", "100500", "101000"}));
}

TEST(ProgressOfACommand, DetectsThatTheOperatorAskedToStop) {
  ClockedBlock b;
  Progress progress(b.w);
  EXPECT_FALSE(progress.Stop_Asked());
  b.screen.on_service = [&] { b.w.Form1.Check4.Value = 1; };
  progress.Service();
  EXPECT_TRUE(progress.Stop_Asked());
}

TEST(ProgressOfACommand, CountsTheSecondsSinceItsStart) {
  ClockedBlock b;
  const Progress progress(b.w);
  b.screen.now = 103.5;
  EXPECT_EQ(progress.Seconds(), 3.5);
}

}  // namespace
}  // namespace sylvomex
