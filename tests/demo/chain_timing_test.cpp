// SPDX-License-Identifier: MIT
#include "demo/table/chain_timing.h"

#include <gtest/gtest.h>

namespace sylvomex::demo {
namespace {

TEST(ChainTiming, PeakMemoryIsTheHighWaterMarkInMegabytesOf1024Kilobytes) {
  const auto peak = Peak_Memory_MB("Name:\tx\nVmPeak:\t  9216 kB\nVmHWM:\t   2560 kB\n");
  ASSERT_TRUE(peak);
  EXPECT_DOUBLE_EQ(*peak, 2.5);
}

TEST(ChainTiming, StatusWithoutTheHighWaterMarkGivesNoPeak) {
  EXPECT_FALSE(Peak_Memory_MB("Name:\tVmHWM\nVmPeak:\t9216 kB\n"));
  EXPECT_FALSE(Peak_Memory_MB("VmHWM:\tunknown\n"));
  EXPECT_FALSE(Peak_Memory_MB(""));
}

TEST(ChainTiming, OnlyTheFiveCommandsOfTheChainAreMeasured) {
  EXPECT_TRUE(Is_Chain_Command("Capture_templates"));
  EXPECT_TRUE(Is_Chain_Command("Compute_Correlation_Images"));
  EXPECT_TRUE(Is_Chain_Command("Create_XYZ_Point_Set"));
  EXPECT_TRUE(Is_Chain_Command("Compute_Back_Projections"));
  EXPECT_TRUE(Is_Chain_Command("Find_clusters"));
  EXPECT_FALSE(Is_Chain_Command("Add_images_to_set"));
  EXPECT_FALSE(Is_Chain_Command(""));
}

TEST(ChainTiming, TableShowsEachRunAndTheSumOfTheSeconds) {
  const std::string text =
      Table_Text({{"Capture_templates", 0.25, 100.4}, {"Find_clusters", 1.5, std::nullopt}});
  EXPECT_EQ(text,
            "command                       seconds    peak memory so far, MB\n"
            "Capture_templates               0.250                       100\n"
            "Find_clusters                   1.500                         -\n"
            "sum                             1.750\n");
}

}  // namespace
}  // namespace sylvomex::demo
