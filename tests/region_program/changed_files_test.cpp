// SPDX-License-Identifier: MIT
// Files that were changed, touched or copied between planning and running.
#include "region_program/region_site.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

const std::string kOrthoimage =
    "[orthoimage]\nwest = 0\nsouth = 0\neast = 8\nnorth = 8\ncell = 0.5\nlowest_ground = 0\n";

class ChangedFiles : public RegionSite {
 protected:
  /// A plot and a tile of the orthoimage, which takes image 1.
  void Plan_Both(const std::vector<std::string>& more = {}) {
    ASSERT_EQ(Plan(Region(Plots(Plot("p1", 3, 3)), kOrthoimage), "plan", more).status, 0);
  }

  void Expect_Both_Fail(const std::string& words) const {
    const RegionPlayed played = Run({"--bundle", "0"});
    EXPECT_EQ(played.status, 3);
    for (const char* task : {"tops-p1", "ortho-r0-c0"}) {
      EXPECT_NE(played.err.find(task + (" failed: File error: " + words)), std::string::npos)
          << words << "\n"
          << played.err;
      EXPECT_FALSE(Has(std::string("plan/results/") + task));
    }
  }

  /// Changes a byte in the middle, the length stays.
  void Change(const std::string& name) const {
    std::fstream file(Site_File(name), std::ios::in | std::ios::out | std::ios::binary);
    const auto middle = static_cast<std::streamoff>(fs::file_size(Site_File(name)) / 2);
    file.seekg(middle);
    const int byte = file.get();
    file.seekp(middle);
    file.put(static_cast<char>(byte ^ 1));
  }

  void Replace_By_Copy(const std::string& name) const {
    fs::rename(Site_File(name), Site_File("away"));
    fs::copy_file(Site_File("away"), Site_File(name));
    fs::remove(Site_File("away"));
  }
};

TEST_F(ChangedFiles, ARasterThatWasChangedAtEqualLengthFailsItsTasks) {
  Plan_Both();
  for (const char* name : {"im1.raw", "dem.bin"}) {
    Change(std::string("c/data/") + name);
    Expect_Both_Fail(std::string("c:\\data\\") + name +
                     ", it was changed after the region had been planned");
    Change(std::string("c/data/") + name);  // back
  }
  EXPECT_EQ(Run({"--bundle", "0"}).status, 0);
}

TEST_F(ChangedFiles, AChangeThatKeepsTheTimeIsNoticed) {
  Plan_Both();
  const fs::path raw = Site_File("c/data/im1.raw");
  const auto before = fs::last_write_time(raw);
  Change("c/data/im1.raw");
  fs::last_write_time(raw, before);
  Expect_Both_Fail("c:\\data\\im1.raw, it was changed after the region had been planned");
}

TEST_F(ChangedFiles, AHeaderThatWasChangedFailsItsTasks) {
  Plan_Both();
  std::ofstream(Site_File("c/data/dem.hdr"), std::ios::app) << " ";
  Expect_Both_Fail("c:\\data\\dem.hdr, it has ");
}

TEST_F(ChangedFiles, ARasterThatBecameShorterFailsItsTasks) {
  Plan_Both();
  fs::resize_file(Site_File("c/data/im1.raw"), 3);
  Expect_Both_Fail("c:\\data\\im1.raw, it has 3 bytes, it had 3000000 when the region was planned");
}

TEST_F(ChangedFiles, TasksThatDoNotReadTheChangedFileAreDone) {
  Plan_Both();
  Change("c/data/chm.bin");  // the orthoimage lies on the ground
  const RegionPlayed played = Run({"--bundle", "0"});
  EXPECT_EQ(played.status, 3);
  EXPECT_NE(played.err.find("tops-p1 failed: File error: c:\\data\\chm.bin"), std::string::npos);
  EXPECT_TRUE(Has("plan/results/ortho-r0-c0/task.json"));
}

TEST_F(ChangedFiles, AFolderInARastersPlaceFailsItsTasks) {
  Plan_Both();
  fs::remove(Site_File("c/data/im1.raw"));
  fs::create_directory(Site_File("c/data/im1.raw"));
  Expect_Both_Fail("c:\\data\\im1.raw, it is not an ordinary file");
}

TEST_F(ChangedFiles, CopiesAndTouchedFilesAreTheFilesThatWerePlanned) {
  Plan_Both();
  for (const char* name : {"c/data/im0.hdr", "c/data/im0.raw", "c/data/im1.raw", "c/data/dem.bin"})
    Replace_By_Copy(name);
  fs::last_write_time(Site_File("c/data/chm.bin"), fs::file_time_type::clock::now());
  const RegionPlayed played = Run({"--bundle", "0"});
  EXPECT_EQ(played.status, 0) << played.err;
}

TEST_F(ChangedFiles, PlanningAgainAfterATouchIsTheSamePlan) {
  Plan_Both();
  const auto id = Json("plan/plan.json")["id"];
  ASSERT_EQ(Run({"tops-p1"}).status, 0);
  Replace_By_Copy("c/data/im1.raw");
  Plan_Both();
  EXPECT_EQ(Json("plan/plan.json")["id"], id);
  EXPECT_NE(Run({"tops-p1"}).out.find("tops-p1 was done before"), std::string::npos);
}

TEST_F(ChangedFiles, PlanningAgainAfterAChangeIsAnotherPlan) {
  Plan_Both();
  ASSERT_EQ(Run({"tops-p1"}).status, 0);
  Change("c/data/im1.raw");
  const RegionPlayed played = Plan(Region(Plots(Plot("p1", 3, 3)), kOrthoimage));
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.err.find("it holds results of another plan"), std::string::npos);
}

TEST_F(ChangedFiles, WithoutChecksumsTheTimeDecides) {
  Plan_Both({"--no-checksums"});
  const fs::path raw = Site_File("c/data/im1.raw");
  const auto before = fs::last_write_time(raw);
  Replace_By_Copy("c/data/im1.raw");
  fs::last_write_time(raw, before);  // a copy with its time
  EXPECT_EQ(Run({"tops-p1"}).status, 0);
  fs::remove_all(Path("plan/results"));
  fs::last_write_time(raw, before + std::chrono::seconds(1));
  Expect_Both_Fail("c:\\data\\im1.raw, it was changed after the region had been planned");
}

TEST_F(ChangedFiles, APartWithoutTilesDoesNotLeaveAnEarlierOrthoimageBesideIt) {
  Plan_Both();
  ASSERT_EQ(Run({"--bundle", "0"}).status, 0);
  ASSERT_EQ(Merge("merged").status, 0);
  EXPECT_TRUE(Has("merged/orthoimage.tif"));
  Write("merged/notes.txt", "mine");
  fs::remove_all(Path("plan/results/ortho-r0-c0"));
  ASSERT_EQ(Play_Region({"merge", Path("plan"), "--out", Path("merged"), "--partial"}).status, 0);
  EXPECT_FALSE(Has("merged/orthoimage.tif"));
  EXPECT_TRUE(Has("merged/tree_tops.gpkg"));
  EXPECT_EQ(Read("merged/notes.txt"), "mine");
}

}  // namespace
}  // namespace sylvomex
