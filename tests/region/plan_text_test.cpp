// SPDX-License-Identifier: MIT
#include "region/plan_text.h"

#include <gtest/gtest.h>

#include "interchange/failures.h"

namespace sylvomex {
namespace {

InputFiles Files(std::uint64_t bytes) {
  return {{bytes, "abc", {-5, 6, 18446744073709551615U}}, {10 * bytes, "def", {7, 8, 9}}};
}

RegionPlan Sample() {
  RegionPlan plan;
  plan.site = "/site";
  plan.crs = "EPSG:3067";
  plan.shift = {2000, -3000};
  plan.dem = "c:\\data\\d.hdr";
  plan.headers = {"c:\\data\\a.hdr", "c:\\data\\b.hdr"};
  plan.image_files = {Files(1), Files(2)};
  plan.dem_files = Files(3);
  plan.chm_files = Files(4);
  plan.numbers.crown.EZA = -0.1;
  plan.orthoimage = GivenOrthoimage{{0, 0, 100, 50}, 0.1, 300, 170, 0};
  RegionTask plot;
  plot.id = "tops-p1";
  plot.cost = 0.3;
  plot.memory_bytes = 123456789012;
  plot.plot.plot = "p1";
  plot.plot.cell.radius = 5;
  plot.plot.centre = {1.0 / 3, 2, 3};
  plot.plot.images = {1, 0};
  RegionTask tile;
  tile.id = "ortho-r1-c3";
  tile.kind = TaskKind::OrthoTile;
  tile.tile = {3, 1, 1};
  plan.tasks = {plot, tile};
  plan.bundles = {{"tops-p1", "ortho-r1-c3"}};
  plan.left_out = {{"p2", "it lies outside all images"}};
  return plan;
}

std::string Refusal_Of(const std::string& text) try {
  (void)Parse_Plan(text, "plan.json");
  return "";
} catch (const Refused& refusal) {
  return refusal.what();
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  return text.replace(text.find(from), from.size(), to);
}

TEST(PlanText, IsReadBackToTheLastBit) {
  RegionPlan plan = Sample();
  const std::string text = Plan_Text(plan);
  RegionPlan read = Parse_Plan(text, "plan.json");
  EXPECT_EQ(read.id, plan.id);
  EXPECT_EQ(read.tasks.at(0).plot.centre.X, 1.0 / 3);
  EXPECT_EQ(read.tasks[0].memory_bytes, 123456789012U);
  EXPECT_EQ(read.tasks[0].plot.images, (std::vector<int>{1, 0}));
  EXPECT_EQ(read.tasks.at(1).tile.column, 3);
  EXPECT_EQ(read.shift.Y, -3000);
  EXPECT_EQ(read.image_files.at(1)->data.bytes, 20U);
  EXPECT_EQ(read.chm_files->header.checksum, "abc");
  EXPECT_EQ(read.dem_files->header.stamp, (FileStamp{-5, 6, 18446744073709551615U}));
  EXPECT_EQ(read.left_out.at(0).cause, "it lies outside all images");
  EXPECT_EQ(Plan_Text(read), text);
}

TEST(PlanText, HasAnIdThatFollowsFromItsContent) {
  RegionPlan one = Sample(), same = Sample(), other = Sample();
  other.numbers.Mesh = 0.25;
  EXPECT_EQ(Plan_Text(one), Plan_Text(same));
  (void)Plan_Text(other);
  EXPECT_EQ(one.id, same.id);
  EXPECT_NE(one.id, other.id);
}

TEST(PlanText, HasTheIdOfItsFilesContentAndNotOfTheirTimes) {
  RegionPlan one = Sample(), touched = Sample(), changed = Sample();
  touched.dem_files->data.stamp.modified_ns = 11;
  changed.dem_files->data.checksum = "fed";
  for (RegionPlan* plan : {&one, &touched, &changed}) (void)Plan_Text(*plan);
  EXPECT_EQ(one.id, touched.id);
  EXPECT_NE(one.id, changed.id);
}

TEST(PlanText, OfAnotherVersionIsRefused) {
  RegionPlan plan = Sample();
  for (const std::string version : {"1", "3"}) {
    EXPECT_NE(Refusal_Of(Replaced(Plan_Text(plan), "\"version\":2", "\"version\":" + version))
                  .find("it is a plan of version " + version +
                        ", this program reads version 2; plan the region anew"),
              std::string::npos);
  }
}

TEST(PlanText, ThatDoesNotTellTheFilesOfItsTasksIsRefused) {
  RegionPlan without_image = Sample(), without_chm = Sample();
  without_image.image_files[1].reset();
  without_chm.chm_files.reset();
  EXPECT_NE(Refusal_Of(Plan_Text(without_image)).find("image 1 of a task is none of the plan's"),
            std::string::npos);
  EXPECT_NE(Refusal_Of(Plan_Text(without_chm)).find("the height models of its tasks are missing"),
            std::string::npos);
}

TEST(PlanText, WhoseStampsAreGoneIsRefused) {
  RegionPlan plan = Sample();
  EXPECT_NE(Refusal_Of(Replaced(Plan_Text(plan), "\"stamps\"", "\"stump\"")).find("plan.json: "),
            std::string::npos);
  EXPECT_NE(Refusal_Of(Replaced(Plan_Text(plan), "[-5,6,18446744073709551615]", "[-5,6]"))
                .find("it is damaged"),
            std::string::npos);
}

TEST(PlanText, ThatWasChangedIsRefused) {
  RegionPlan plan = Sample();
  EXPECT_NE(Refusal_Of(Replaced(Plan_Text(plan), "\"Mesh\":0.5", "\"Mesh\":0.6"))
                .find("it was changed after it had been planned"),
            std::string::npos);
}

TEST(PlanText, ThatIsDamagedIsRefused) {
  RegionPlan plan = Sample();
  const std::string text = Plan_Text(plan);
  EXPECT_NE(Refusal_Of(text.substr(0, text.size() / 2)).find("it is damaged"), std::string::npos);
  EXPECT_NE(Refusal_Of("[1, 2]").find("it is no plan"), std::string::npos);
  EXPECT_NE(Refusal_Of("").find("it is damaged"), std::string::npos);
}

TEST(PlanText, WithATaskOfAForeignImageIsRefused) {
  RegionPlan plan = Sample();
  plan.tasks[0].plot.images = {2};
  EXPECT_NE(Refusal_Of(Plan_Text(plan)).find("image 2 of a task is none of the plan's"),
            std::string::npos);
}

TEST(PlanText, WithATileOutsideTheOrthoimageIsRefused) {
  RegionPlan plan = Sample();
  plan.tasks[1].tile.column = 4;  // 1000 columns are four tiles of 300
  EXPECT_NE(Refusal_Of(Plan_Text(plan)).find("a tile lies outside the orthoimage"),
            std::string::npos);
}

TEST(Tiles, TheLastOnesAreWhatIsLeft) {
  const GivenOrthoimage ortho{{10, 20, 110, 70}, 0.1, 300, 170, 0};
  const TileGrid2D grid = Tiles_Of(ortho);
  EXPECT_EQ(grid.columns, 1000);
  EXPECT_EQ(grid.rows, 500);
  EXPECT_EQ(grid.tile_columns, 4);
  EXPECT_EQ(grid.tile_rows, 2);
  const TilePlace last = Place_Of(ortho, 3, 1);
  EXPECT_EQ(last.columns, 100);
  EXPECT_EQ(last.rows, 200);
  EXPECT_NEAR(last.west, 100, 1e-9);
  EXPECT_NEAR(last.south, 50, 1e-9);
}

}  // namespace
}  // namespace sylvomex
