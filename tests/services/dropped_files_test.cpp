// SPDX-License-Identifier: MIT
#include "services/dropped_files.h"

#include <gtest/gtest.h>

#include "support/flat_model.h"
#include "support/map_files.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

using Paths = std::vector<std::string>;

class DroppedFilesTest : public testing::Test {
 protected:
  [[nodiscard]] std::filesystem::path At(const char* name) const {
    return site_.Folder().Path() / name;
  }

  DroppedFiles Drop(const std::vector<const char*>& names) {
    std::vector<std::filesystem::path> files;
    for (const char* name : names) files.push_back(At(name));
    return Sorted_Drop(files);
  }

  SmallSite site_;
};

TEST_F(DroppedFilesTest, HeadersAreToldByWhatTheyHold) {
  site_.Write_Image("a", {});
  Write_Flat_Model(site_.Folder(), 5);
  const DroppedFiles drop = Drop({"c/data/dem.hdr", "c/data/a.hdr"});
  ASSERT_EQ(drop.known.size(), 2u);
  EXPECT_EQ(drop.known[0], (DroppedFile{DroppedKind::Image, {At("c/data/a.hdr").string()}}));
  EXPECT_EQ(drop.known[1],
            (DroppedFile{DroppedKind::RasterModel, {At("c/data/dem.hdr").string()}}));
  EXPECT_TRUE(drop.unknown.empty());
}

TEST_F(DroppedFilesTest, AMapIsToldByItsHeader) {
  Write_Map(site_.Folder());
  EXPECT_EQ(Drop({"c/data/map.hdr"}).known,
            std::vector{(DroppedFile{DroppedKind::Map, {At("c/data/map.hdr").string()}})});
}

TEST_F(DroppedFilesTest, ImagesComeInTheOrderOfTheirNames) {
  for (const char* name : {"b", "a", "c"}) site_.Write_Image(name, {});
  const DroppedFiles drop = Drop({"c/data/c.hdr", "c/data/a.hdr", "c/data/b.hdr"});
  ASSERT_EQ(drop.known.size(), 3u);
  EXPECT_EQ(drop.known[0].files, Paths{At("c/data/a.hdr").string()});
  EXPECT_EQ(drop.known[1].files, Paths{At("c/data/b.hdr").string()});
  EXPECT_EQ(drop.known[2].files, Paths{At("c/data/c.hdr").string()});
}

TEST_F(DroppedFilesTest, ANameThatLeadsInACircleIsUnknown) {
  std::filesystem::create_symlink("t.nod", At("c/data/t.nod"));
  const DroppedFiles drop = Drop({"c/data/t.nod"});
  EXPECT_TRUE(drop.known.empty());
  EXPECT_EQ(drop.unknown.size(), 1U);
}

TEST_F(DroppedFilesTest, NodesAndTrianglesAreOneModelDroppedTogetherOrAlone) {
  site_.Folder().Write("c/data/t.nod", "");
  site_.Folder().Write("c/data/t.tri", "");
  const DroppedFile model{DroppedKind::TinModel,
                          {At("c/data/t.nod").string(), At("c/data/t.tri").string()}};
  EXPECT_EQ(Drop({"c/data/t.tri"}).known, std::vector{model});
  EXPECT_EQ(Drop({"c/data/t.nod"}).known, std::vector{model});
  EXPECT_EQ(Drop({"c/data/t.nod", "c/data/t.tri"}).known, std::vector{model});
}

TEST_F(DroppedFilesTest, CapitalEndingsAreKnown) {
  site_.Write_Image("a", {});
  std::filesystem::rename(At("c/data/a.hdr"), At("c/data/A.HDR"));
  EXPECT_EQ(Drop({"c/data/A.HDR"}).known.size(), 1u);
}

TEST_F(DroppedFilesTest, NodesWithoutTrianglesBrokenHeadersAndOtherFilesAreUnknown) {
  site_.Folder().Write("c/data/t.nod", "");
  site_.Folder().Write("c/data/half.hdr", "40 40 -2000");
  site_.Folder().Write("c/data/a.jpg", "");
  const DroppedFiles drop = Drop({"c/data/t.nod", "c/data/half.hdr", "c/data/a.jpg", "c/none.hdr"});
  EXPECT_TRUE(drop.known.empty());
  EXPECT_EQ(drop.unknown.size(), 4u);
}

}  // namespace
}  // namespace sylvomex
