// SPDX-License-Identifier: MIT
#include "demo/chain/crown_chain.h"

#include <gtest/gtest.h>

#include <sstream>

#include "commands/crowns/model_trees.h"
#include "support/small_site.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

constexpr double kX = 2516450, kY = 6857050;

struct CrownChain : testing::Test, TreePulses {
  SmallSite site;
  const TemporaryFolder& folder = site.Folder();

  CrownChain() {
    SmallImage image;
    image.X0 = kX;
    image.Y0 = kY;
    site.Write_Image("a", image);
    site.Write_Image("b", image);
    folder.Write("c/data/JetColorMAP.csv", "");
    folder.Write("c/data/als2006_path.hdr", "c:\\als06\\\n");
    folder.Make_Folder("c/als06");
    std::string cells;
    for (int i = 0; i < 21 * 21; ++i) Append_Value(cells, 100.0F);
    folder.Write("c/data/dem.bin", cells);
    folder.Write("c/data/dem.hdr", "21\n21\n2516350\n6856950\n10\n0\nc:\\data\\dem.bin\n");
  }

  CrownSessionResult Play(const std::string& steps) {
    folder.Write("c/als06/064_070.bin", Counted_Bytes(pulses));
    std::istringstream script(
        "file c:\\data\\a.hdr\nmenu Add_images_to_set\nfile c:\\data\\b.hdr\n"
        "menu Add_images_to_set\nfile c:\\data\\dem.hdr\ninput 0\nmenu Add_height_Model\n"
        "input 2516450\ninput 6857050\ninput 120\nmenu Set_3D_solution\n" +
        steps);
    std::ostringstream transcript, err;
    CrownSessionResult result;
    Play_Crown_Session(folder.Path(), script, "steps", transcript, err, result);
    EXPECT_TRUE(result.done) << err.str();
    return result;
  }
};

TEST_F(CrownChain, FailedSeedsAreCountedOnceByTheirCause) {
  Add_Tree({kX - 10, kY - 5, 24});
  Add_Tree({kX + 10, kY + 5, 22, {0.04, 0.8, 0.1}, 60});   // narrow: a crown ratio below 0.05
  Add_Tree({kX + 10, kY - 15, 20, {0.09, 0.8, 0.4}, 24});  // 24 echoes
  Add_Tree({kX - 10, kY + 15, 19, {0.09, 0.8, 0.4}, 24});
  Add_Tree({kX - 18, kY + 2, 18});
  const CrownSessionResult result = Play("button yes\ncommand Image_Lidar_Allometry_Algorithm\n");
  ASSERT_EQ(result.boxes.size(), 1U);
  const CrownBoxFit& box = result.boxes[0];
  EXPECT_EQ(box.crowns.size(), 2U);
  EXPECT_EQ(box.echoes.size(), pulses.size());
  EXPECT_EQ(box.middle.X, kX);
  const std::map<std::string, int> expected{{"crown ratio", 1}, {"too few points", 2}};
  EXPECT_EQ(box.failed, expected);
}

TEST_F(CrownChain, ALocalCrownIsDoneWhenTheTreeNumberHasGrown) {
  Add_Tree({kX, kY, 20, {0.05, 0.8, 0.2}, 200});
  const CrownSessionResult result = Play(
      "set Check2(0) 1\nsay \"local 7\"\nmenu Match_Local_Crown\n"
      "set Check2(0) 0\nsay \"local 8\"\nmenu Match_Local_Crown\n");
  ASSERT_EQ(result.local.size(), 2U);
  EXPECT_EQ(result.local[0].tree, 7);
  EXPECT_TRUE(result.local[0].done);
  EXPECT_GT(result.local[0].value, 0);
  EXPECT_FALSE(result.local[1].done);
}

TEST(CrownChainTexts, TellSharesAndErrors) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  // Depth 0.05 x 20 m of 12 m: diameter 2 x 2.5 sqrt(1 / 12) = 1.44 m.
  EXPECT_NE(Local_Text(scene, {{1, true, 1.94, 0}, {1, false, 0, 0}})
                .find("birch: 1 of 2, median 0.50 m, mean 0.50 m, RMS 0.50 m"),
            std::string::npos);
  EXPECT_NE(Click_Text(scene, {{1, true, 170.4, 0}, {1, true, 169, 0}}).find("1 of 2 within 0.5 m"),
            std::string::npos);
}

}  // namespace
}  // namespace sylvomex::demo
