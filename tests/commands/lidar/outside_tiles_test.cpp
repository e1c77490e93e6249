// SPDX-License-Identifier: MIT
// Path headers whose prefix leads out of the drives: tiles there are read and never created.
#include <gtest/gtest.h>

#include "commands/lidar/als_2004_overlay.h"
#include "commands/lidar/lidar_block.h"
#include "commands/lidar/pulse_overlays.h"

namespace sylvomex {
namespace {

struct OutsideTiles : LidarBlock, testing::Test {
  TemporaryFolder elsewhere;

  OutsideTiles() { Load_Flat_Ground(); }

  void Set_Prefix(const std::filesystem::path& tiles) {
    for (const std::string year : {"2004", "2006", "2007"}) {
      folder.Write("c/data/als" + year + "_path.hdr", tiles.string() + "/\n");
    }
  }
  void Play_All() {
    Plot_ALS_2007(w);
    Print_ALS_near_solution(w);
    plot_als_bin_file(w);
  }
};

TEST_F(OutsideTiles, AreReadWhereTheyExist) {
  Set_Prefix(elsewhere.Path());
  TestPulse pulse = Single_Echo({kX, kY, 120, 60, 840});
  elsewhere.Write("064_070.bin", Counted_Bytes(std::vector{pulse}));
  Print_ALS_near_solution(w);
  EXPECT_EQ(Marks(0).size(), 1U);
  EXPECT_TRUE(screen.causes.empty());
}

TEST_F(OutsideTiles, AreNotCreatedWhereTheyAreMissing) {
  Set_Prefix(elsewhere.Path());
  Play_All();
  EXPECT_TRUE(std::filesystem::is_empty(elsewhere.Path()));
  EXPECT_TRUE(screen.messages.empty());
  const std::string tiles = "there is no tile " + elsewhere.Path().string();
  const std::string reason = ".bin, and none is created outside the drives";
  EXPECT_EQ(screen.causes,
            (std::vector<std::string>{tiles + "/064_070" + reason, tiles + "/064_070" + reason,
                                      tiles + "/024_020" + reason}));
}

TEST_F(OutsideTiles, AMissingFolderIsAnError) {
  Set_Prefix(elsewhere.Path() / "none");
  const std::string failure = Failure_Of([&] { Print_ALS_near_solution(w); });
  EXPECT_TRUE(failure.starts_with("Path not found: " + elsewhere.Path().string())) << failure;
}

TEST_F(OutsideTiles, ANativePathOntoADriveIsThatDrive) {
  Set_Prefix(folder.Path() / "c/als2006");
  Print_ALS_near_solution(w);
  EXPECT_EQ(folder.Read("c/als2006/064_070.bin"), "");
  EXPECT_TRUE(screen.causes.empty());
}

TEST_F(OutsideTiles, DotsInAPrefixDoNotLeaveTheDrive) {
  folder.Write("c/data/als2006_path.hdr", "c:\\..\\..\\als2006\\..\\..\\als2006\\\n");
  Print_ALS_near_solution(w);
  EXPECT_EQ(folder.Read("c/als2006/064_070.bin"), "");
}

}  // namespace
}  // namespace sylvomex
