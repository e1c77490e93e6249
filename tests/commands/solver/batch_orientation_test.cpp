// SPDX-License-Identifier: MIT
#include "commands/solver/batch_orientation.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>

#include "support/small_site.h"
#include "support/synthetic_block.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {
namespace {

// Vertical photographs, c = 0.1 m, 1000 m above Z = 0.
class BatchOrientation : public testing::Test {
 protected:
  BatchOrientation() {
    Write_Header("c/data/left.hdr", 101, 0);
    Write_Header("c/data/right.hdr", 102, 300);
    Write("d/Ground_points_nothing.txt", "7,7,100,50,20\n8,8,180,-40,0\n");
    Write("d/ima_obs_4.CSV", Film(101, 7, {100, 50, 20}, 0) + Film(102, 7, {100, 50, 20}, 300) +
                                 Film(101, 8, {180.5, -40, 0}, 0) +
                                 Film(102, 8, {180.5, -40, 0}, 300));
    Write("d/Stereo_parit.csv", "1,2,c:\\data\\left.hdr,c:\\data\\right.hdr\n");
  }

  void Write(const std::string& name, const std::string& text) { block_.folder.Write(name, text); }

  void Write_Header(const std::string& name, int id, double X0) {
    SmallImage image;
    image.id = id;
    image.X0 = X0;
    Write(name, SmallSite::Header_Text(image, "c:\\data\\none.raw"));
  }

  static std::string Film(int image, int point, const Point3D& p, double X0) {
    const double scale = 0.1 / (1000 - p.Z);
    return std::to_string(image) + "," + std::to_string(point) + "," +
           Full_Text(scale * (p.X - X0)) + "," + Full_Text(scale * p.Y) + "\n";
  }

  void Run(const std::string& command) {
    OperatorEvent event;
    event.kind = OperatorEvent::Kind::Command;
    event.control = command;
    Handle_Event(block_.w, event);
  }

  // The lines of an output file as numbers.
  std::vector<std::vector<double>> Lines_Of(const std::string& name) {
    std::vector<std::vector<double>> lines;
    std::istringstream text(block_.folder.Read(name));
    for (std::string line; std::getline(text, line);) {
      std::istringstream items(line);
      lines.emplace_back();
      for (std::string item; std::getline(items, item, ',');) {
        lines.back().push_back(Parse_Double(item));
      }
    }
    return lines;
  }

  std::string The_Error() {
    EXPECT_EQ(block_.screen.errors.size(), 1U);
    return block_.screen.errors.empty() ? "" : block_.screen.errors[0];
  }

  SyntheticBlock block_;
};

TEST_F(BatchOrientation, ALineIsTheIdThePointAndItsDifferencesFromTheKnownOne) {
  Run("Compute_Points_From_Pairs");
  EXPECT_TRUE(block_.screen.errors.empty());
  const auto lines = Lines_Of("c/text2.txt");
  ASSERT_EQ(lines.size(), 2U);
  const std::array wanted{std::vector<double>{7, 100, 50, 20, 0, 0, 0},
                          std::vector<double>{8, 180.5, -40, 0, 0.5, 0, 0}};
  for (int row = 0; row < 2; ++row) {
    ASSERT_EQ(lines[row].size(), 7U);
    for (int i = 0; i < 7; ++i) EXPECT_NEAR(lines[row][i], wanted[row][i], 1e-5);
  }
}

TEST_F(BatchOrientation, TheStatusCountsPointsAndPairsWithTheirRmse) {
  Options& options = block_.w.options;
  options.IterationStopDX = options.IterationStopDY = options.IterationStopDZ = 1e-6;
  Run("Compute_Points_From_Pairs");
  EXPECT_EQ(block_.w.Form1.Label10.Caption, "2 points from 1 pairs, RMSE: .0 um");
}

TEST_F(BatchOrientation, LinesAreAppended) {
  Write("c/text2.txt", "old\n");
  Run("Compute_Points_From_Pairs");
  EXPECT_EQ(block_.folder.Read("c/text2.txt").substr(0, 6), "old\n7,");
}

TEST_F(BatchOrientation, TheImagesOfTheBlockStay) {
  block_.Add_Camera(1, 2, 3);
  Run("Compute_Points_From_Pairs");
  EXPECT_EQ(block_.w.ImageCount, 1);
  EXPECT_EQ(block_.w.ImageBlock(0).ImageId, 100);
  EXPECT_FALSE(block_.w.SolutionValid);
}

TEST_F(BatchOrientation, APointThatOneImageMissesHasNoLine) {
  Write("d/ima_obs_4.CSV", Film(101, 7, {100, 50, 20}, 0));
  Run("Compute_Points_From_Pairs");
  EXPECT_FALSE(block_.folder.Has("c/text2.txt"));
  EXPECT_EQ(block_.w.Form1.Label10.Caption, "0 points from 1 pairs");
}

TEST_F(BatchOrientation, ASingularPointIsReportedAndTheOthersGoOn) {
  SmallImage blind;
  blind.id = 103;
  blind.c = 0;
  Write("c/data/blind.hdr", SmallSite::Header_Text(blind, "c:\\data\\none.raw"));
  blind.id = 104;
  Write("c/data/blinder.hdr", SmallSite::Header_Text(blind, "c:\\data\\none.raw"));
  Write("d/ima_obs_4.CSV", Film(103, 7, {0, 0, 0}, 0) + Film(104, 7, {0, 0, 0}, 0) +
                               Film(101, 7, {100, 50, 20}, 0) + Film(102, 7, {100, 50, 20}, 300));
  Write("d/Stereo_parit.csv",
        "1,2,c:\\data\\blind.hdr,c:\\data\\blinder.hdr\n"
        "1,2,c:\\data\\left.hdr,c:\\data\\right.hdr\n");
  Run("Compute_Points_From_Pairs");
  EXPECT_EQ(block_.screen.messages,
            std::vector<std::string>{
                "Iteration failed, determinant of Normal Matrix is too close to zero !"});
  EXPECT_EQ(Lines_Of("c/text2.txt").size(), 1U);
}

TEST_F(BatchOrientation, AMissingHeaderLeavesThePointsOfThePairsBeforeIt) {
  Write("d/Stereo_parit.csv",
        "1,2,c:\\data\\left.hdr,c:\\data\\right.hdr\n1,3,c:\\data\\left.hdr,c:\\data\\none.hdr\n");
  Run("Compute_Points_From_Pairs");
  EXPECT_EQ(The_Error(), "Compute_Points_From_Pairs: File not found: c:\\data\\none.hdr");
  EXPECT_EQ(Lines_Of("c/text2.txt").size(), 2U);
  EXPECT_EQ(block_.w.Form1.MousePointer, PointerShape::Normal);
}

TEST_F(BatchOrientation, MissingListsAreNamed) {
  const TemporaryFolder& folder = block_.folder;
  for (const std::string name :
       {"Stereo_parit.csv", "ima_obs_4.CSV", "Ground_points_nothing.txt"}) {
    std::filesystem::remove(folder.Path() / "d" / name);
    block_.screen.errors.clear();
    Run("Compute_Points_From_Pairs");
    EXPECT_EQ(The_Error(), "Compute_Points_From_Pairs: File not found: d:\\" + name);
  }
}

TEST_F(BatchOrientation, AWordInAListIsNamedWithItsPosition) {
  Write("d/Ground_points_nothing.txt", "7,7,1,2,high\n");
  Run("Compute_Points_From_Pairs");
  EXPECT_NE(The_Error().find("Ground_points_nothing.txt, line 1, item 5"), std::string::npos);
}

TEST_F(BatchOrientation, ApproximationsAreTheFilmCentreAndTheRotatedCornersOnThePlane) {
  Write_Header("e/lk/im1.hdr", 1, 40);
  Write("f/lines.txt", "im1,3,0,5,2\n");
  Write("e/lk/InitApprx.txt", "old\n");
  Run("Compute_initial_apprx");
  EXPECT_TRUE(block_.screen.errors.empty());
  EXPECT_EQ(block_.folder.Read("e/lk/InitApprx.txt"), "im1,3,40,0,140.6,35,-2,45,-2,45,2,35,2\n");
}

TEST_F(BatchOrientation, AMissingHeaderLeavesTheApproximationsBeforeIt) {
  Write_Header("e/lk/im1.hdr", 1, 40);
  Write("f/lines.txt", "im1,3,0,0,0\nim2,3,0,0,0\n");
  Run("Compute_initial_apprx");
  EXPECT_EQ(The_Error(), "Compute_initial_apprx: File not found: e:\\lk\\im2.hdr");
  EXPECT_EQ(block_.folder.Read("e/lk/InitApprx.txt"), "im1,3,40,0,140.6,40,0,40,0,40,0,40,0\n");
}

TEST_F(BatchOrientation, AMissingListOfLinesIsNamed) {
  Run("Compute_initial_apprx");
  EXPECT_EQ(The_Error(), "Compute_initial_apprx: File not found: f:\\lines.txt");
}

}  // namespace
}  // namespace sylvomex
