// SPDX-License-Identifier: MIT
// What planning tells: tasks, what they need, and plots that cannot be done with their causes.
#include "region_program/region_site.h"

namespace sylvomex {
namespace {

#define EXPECT_TOLD(played, words) \
  EXPECT_NE((played).err.find(words), std::string::npos) << (played).err

TEST_F(RegionSite, AnOrdinaryPlotBecomesATaskWithItsImagesAndModelTree) {
  const RegionPlayed played = Plan(Region(Plots(Plot("p1", 3, 3))));
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(played.err, "");
  const auto plan = Json("plan/plan.json");
  EXPECT_EQ(plan["version"], 2);
  ASSERT_EQ(plan["tasks"].size(), 1U);
  const auto& task = plan["tasks"][0];
  EXPECT_EQ(task["id"], "tops-p1");
  EXPECT_EQ(task["kind"], "tree_tops");
  EXPECT_EQ(task["images"], (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(task["model_tree"], "spruce");
  EXPECT_EQ(task["centre"][2], 2);  // the ground
  EXPECT_GT(task["cost"], 0);
  EXPECT_GT(task["memory_bytes"], 0);
  EXPECT_EQ(plan["bundles"], (std::vector<std::vector<std::string>>{{"tops-p1"}}));
}

TEST_F(RegionSite, PlanningTwiceGivesTheSamePlan) {
  const std::string region = Region(Plots(Plot("p1", 3, 3) + Plot("p2", -5, 3)));
  ASSERT_EQ(Plan(region, "one").status, 0);
  ASSERT_EQ(Plan(region, "two").status, 0);
  EXPECT_EQ(Read("one/plan.json"), Read("two/plan.json"));
  EXPECT_EQ(Plan(region, "one").status, 0);
}

TEST_F(RegionSite, APlotOutsideAllImagesIsLeftOutWithItsCause) {
  const RegionPlayed played = Plan(Region(Plots(Plot("far", 300, 200) + Plot("p1", 3, 3))));
  EXPECT_EQ(played.status, 0);
  EXPECT_TOLD(played, "far is left out: it lies outside all images");
  const auto plan = Json("plan/plan.json");
  EXPECT_EQ(plan["tasks"].size(), 1U);
  EXPECT_EQ(plan["left_out"][0]["id"], "far");
}

TEST_F(RegionSite, APlotThatTooFewImagesShowIsLeftOut) {
  // Image 2 ends 50 m west of its nadir at -20: only images 0 and 1 show a plot at -26.
  const RegionPlayed played = Plan(Region(Plots(Plot("edge", -26, 0) + Plot("p1", 3, 3))));
  EXPECT_TOLD(played, "edge is left out: 2 of the images that show it can be used, 3 are needed");
}

TEST_F(RegionSite, APlotWithoutTerrainIsLeftOutWithThePlace) {
  const RegionPlayed played = Plan(Region(Plots(Plot("sea", 499, 0) + Plot("p1", 3, 3))));
  EXPECT_TOLD(played, "sea is left out: the ground model has no height at X 506.00, Y -7.00");
}

TEST_F(RegionSite, TerrainWithoutDataIsNone) {
  const float nothing = -9999;
  files_.site.Folder().Write("c/data/dem.bin",
                             {reinterpret_cast<const char*>(&nothing), sizeof nothing});
  const RegionPlayed played = Plan(Region(Plots(Plot("p1", 3, 3))));
  EXPECT_EQ(played.status, 1);
  EXPECT_TOLD(played, "no task is left; p1: the ground model has no height at X 3.00, Y 3.00");
  EXPECT_FALSE(Has("plan/plan.json"));
}

TEST_F(RegionSite, APlotWithoutAModelTreeInReachIsLeftOut) {
  Write("trees.csv", "id,x,y,z\nspruce,5,4,10.9\n");
  const RegionPlayed played =
      Plan(Region(Plots(Plot("p1", 3, 3) + Plot("p2", -10, 3)), "reach = 10\n"));
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_TOLD(played, "p2 is left out: no model tree within 10 m is shown by 3 of its images");
}

TEST_F(RegionSite, TheModelTreeIsTheNearestThatTheSameImagesShow) {
  // Images 0 and 1 alone show the nearest one, the next is shown by all.
  Write("trees.csv", "id,x,y,z\nfar,18,3,11\nhidden,-21,3,11\nnear,4,3,11\n");
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", -10, 3)))).status, 0);
  EXPECT_EQ(Json("plan/plan.json")["tasks"][0]["model_tree"], "near");
}

TEST_F(RegionSite, PlotsThatOverlapAreNotedAndBothPlanned) {
  const RegionPlayed played = Plan(Region(Plots(Plot("p1", 3, 3) + Plot("p2", 8, 3))));
  EXPECT_EQ(played.status, 0);
  EXPECT_TOLD(played, "p1: it overlaps plot p2, their centres are 5.0 m apart");
  EXPECT_EQ(Json("plan/plan.json")["tasks"].size(), 2U);
}

TEST_F(RegionSite, TwoPlotsOfOneIdAreRefused) {
  const RegionPlayed played = Plan(Region(Plots(Plot("p1", 3, 3) + Plot("p1", 30, 3))));
  EXPECT_EQ(played.status, 1);
  EXPECT_TOLD(played, "the id p1 stands in");
}

TEST_F(RegionSite, AnImageWithoutItsRasterIsNotedAndNotUsed) {
  std::filesystem::remove(Site_File("c/data/im2.raw"));
  const RegionPlayed played = Plan("least_images = 2\n" + Region(Plots(Plot("p1", 3, 3))));
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_TOLD(played, "im2.hdr: the image is not used, its raster c:\\data\\im2.raw is missing");
  EXPECT_EQ(Json("plan/plan.json")["headers"].size(), 2U);
}

TEST_F(RegionSite, AnImageWhoseRasterIsTooShortIsNotUsed) {
  std::filesystem::resize_file(Site_File("c/data/im0.raw"), 1000);
  EXPECT_TOLD(Plan("least_images = 2\n" + Region(Plots(Plot("p1", 3, 3)))),
              "im0.raw is shorter than the header says");
}

TEST_F(RegionSite, APlotWhoseMeshNoNumberHoldsIsLeftOutAlone) {
  const RegionPlayed played =
      Plan(Region(Plots("{id = 'vast', x = 3, y = 3, radius = 999999999}," + Plot("p1", 3, 3))));
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_TOLD(played, "vast is left out: Overflow");
  EXPECT_EQ(Json("plan/plan.json")["tasks"].size(), 1U);
}

TEST_F(RegionSite, APlotWhoseMeshHasTooManyColumnsIsLeftOutAndNotToldToNeedNothing) {
  // The mesh of a radius of 6 m has a side of 14 m: 14 337 columns each way.
  std::string region = Region(Plots(Plot("p1", 3, 3)));
  region.replace(region.find("Mesh = 1"), 8, "Mesh = 0.0009765625");
  const RegionPlayed played = Plan(region);
  EXPECT_EQ(played.status, 1);
  EXPECT_TOLD(played, "p1: its mesh has 205549569 columns, at most 50000000 fit");
}

TEST_F(RegionSite, APlotOfTheLongestIdIsPlannedAndDone) {
  const std::string id(64, 'a');
  ASSERT_EQ(Plan(Region(Plots(Plot(id, 3, 3)))).status, 0);
  EXPECT_EQ(Run({"tops-" + id}).status, 0);
  EXPECT_EQ(Plan(Region(Plots(Plot(id + "a", 3, 3))), "longer").status, 1);
}

TEST_F(RegionSite, ASiteWhoseNameNoPlanCanHoldIsRefused) {
  const std::filesystem::path folder = Path("site \xff");
  std::filesystem::create_directory(folder);
  std::filesystem::copy(files_.site.Folder().Path(), folder,
                        std::filesystem::copy_options::recursive);
  std::string region = Region(Plots(Plot("p1", 3, 3)));
  const std::string site = files_.site.Folder().Path().string();
  region.replace(region.find(site), site.size(), ".");
  std::ofstream(folder / "region.toml") << region;
  std::filesystem::copy(Path("trees.csv"), folder / "trees.csv");
  const RegionPlayed played =
      Play_Region({"plan", (folder / "region.toml").string(), "--out", Path("plan")});
  EXPECT_EQ(played.status, 1);
  EXPECT_TOLD(played, "the name is not in UTF-8");
  EXPECT_FALSE(Has("plan/plan.json"));
}

TEST_F(RegionSite, StrictRefusesWhatAnotherPlanWouldLeaveOut) {
  const RegionPlayed played =
      Plan(Region(Plots(Plot("far", 300, 200) + Plot("p1", 3, 3))), "plan", {"--strict"});
  EXPECT_EQ(played.status, 1);
  EXPECT_FALSE(Has("plan/plan.json"));
}

TEST_F(RegionSite, MissingModelsSitesAndTreesAreRefusedByName) {
  EXPECT_TOLD(
      Plan("site = 'nowhere'\n" + Region(Plots(Plot("p1", 3, 3))).substr(Region("").find("crs"))),
      "nowhere: there is no such folder");
  std::filesystem::remove(Path("trees.csv"));
  EXPECT_TOLD(Plan(Region(Plots(Plot("p1", 3, 3)))), "trees.csv: there is no such file");
  std::filesystem::remove(Site_File("c/data/chm.bin"));
  EXPECT_TOLD(Plan(Region(Plots(Plot("p1", 3, 3)))), "chm.bin");
}

TEST_F(RegionSite, AModelWithTooFewCellsIsRefused) {
  std::filesystem::resize_file(Site_File("c/data/chm.bin"), 3);
  const RegionPlayed played = Plan(Region(Plots(Plot("p1", 3, 3))));
  EXPECT_EQ(played.status, 1);
  EXPECT_TOLD(played, "chm.bin: it has 3 bytes, ");
}

TEST_F(RegionSite, APlanDoesNotReplaceOneWithResults) {
  ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)))).status, 0);
  ASSERT_EQ(Run({"tops-p1"}).status, 0);
  const RegionPlayed played = Plan(Region(Plots(Plot("p1", 3, 4))));
  EXPECT_EQ(played.status, 1);
  EXPECT_TOLD(played, "it holds results of another plan");
}

TEST_F(RegionSite, WrongCommandLinesAreSaidSo) {
  EXPECT_EQ(Play_Region({"plan"}).status, 2);
  EXPECT_EQ(Play_Region({"run", Path("plan")}).status, 2);
  EXPECT_EQ(Play_Region({"fly"}).status, 2);
  EXPECT_EQ(Play_Region({"run", Path("nothing"), "t"}).status, 1);
  EXPECT_EQ(Play_Region({"--help"}).status, 0);
}

}  // namespace
}  // namespace sylvomex
