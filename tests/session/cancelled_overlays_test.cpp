// SPDX-License-Identifier: MIT
// Overlays of long files, cancelled while they are read: the panes show and the files hold what
// they did before.
#include <gtest/gtest.h>

#include "session/cancelling.h"
#include "support/flat_model.h"
#include "support/lidar_files.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr int kRows = 5000, kSavedPoints = 20000;

struct CancelledOverlays : testing::Test {
  SmallSite site;

  CancelledOverlays() {
    site.Write_Image("a", {});
    Write_Flat_Model(site.Folder(), 160);
    for (const char* name : {"c/temp", "c/apu", "d"}) site.Folder().Make_Folder(name);
    site.Folder().Write("c/data/JetColorMAP.csv", Test_Colour_Map());
  }

  void Write_Rows(const std::string& name, const std::string& first, const std::string& row,
                  int count = kRows) {
    std::string text = first;
    for (int k = 0; k < count; ++k) text += row;
    site.Folder().Write(name, text);
  }

  void Check(const std::string& answers, const std::string& step, const std::string& later = "") {
    const std::string before = "file c:\\data\\a.hdr\nmenu Add_images_to_set\n";
    Expect_Cancellable(site.Folder(), {before + kLoadFlatModel, answers, step, {}, later});
  }
};

TEST_F(CancelledOverlays, LineSegments) {
  Write_Rows("c/data/lines.txt", "", "1,10,10,20,15\n");
  Check("file c:\\data\\lines.txt\n", "menu Plot_3D_line_segments");
}

TEST_F(CancelledOverlays, MeasuredTrees) {
  Write_Rows("c/data/trees.txt", "", "10,20,0,0,18,7,1\n");
  Check("file c:\\data\\trees.txt\n", "menu Plot_Field_measured_tree_data");
}

TEST_F(CancelledOverlays, AFieldPlotKeepsTheListingsOfTheFormerOne) {
  Write_Rows("c/data/plot.txt", "0,0,0,100,0,0,0\n", "10,20,5,200,18,7,1,1\n");
  site.Folder().Write("c/temp/mk_trees.txt", "the former plot\n");
  site.Folder().Write("c/data/plot_trees.txt", "the former plot, too\n");
  Check("file c:\\data\\plot.txt\n", "menu Plot_Field_Plot_Data");
  EXPECT_EQ(std::ranges::count(site.Folder().Read("c/temp/mk_trees.txt"), '\n'), kRows);
}

TEST_F(CancelledOverlays, CrownsOfAList) {
  Write_Rows("d/Regression_results.txt", "", "1,10,20,3,0,0,0,0\n");
  Check("", "command Plot_Crown_polygons");
}

TEST_F(CancelledOverlays, TiePoints) {
  Write_Rows("c/data/imageobs.txt", "", "1 7 500 480\n");
  Check("", "menu Plot_Tie_Points");
}

TEST_F(CancelledOverlays, SavedPointsKeepTheListingOfTheLastTime) {
  Write_Rows("c/data/Lehtomaa/Pistedata/PointData.txt", "",
             "1,10.00,20.00,176.98,158.10,7.25,2,0,0," + std::string(30, ' ') + ",\n",
             kSavedPoints);
  site.Folder().Write("c/apu/quvex.txt", "of the last time\n");
  Check("", "menu Plot_Point_Set");
}

TEST_F(CancelledOverlays, AConversionOfFieldDataLeavesTheFormerFile) {
  Write_Rows("c/data/plot.txt", "0,0,0,100,0,0,0\n", "10,20,5,200,18,7,1,1\n");
  site.Folder().Write("c/data/plot.bin", "the former trees");
  Check("file c:\\data\\plot.txt\n", "command ConvertFieldDataToBinary",
        "file c:\\data\\plot.bin\n");
}

}  // namespace
}  // namespace sylvomex
