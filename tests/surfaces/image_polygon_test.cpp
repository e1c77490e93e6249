// SPDX-License-Identifier: MIT
#include "surfaces/image_polygon.h"

#include <gtest/gtest.h>

#include <string>

#include "support/failure_of.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

std::vector<MapPoint> Read(const std::string& text) {
  const TemporaryFolder folder;
  folder.Write("c/data/IMA_polyline.txt", text);
  return Read_Image_Polygon(folder.Drives().Locate("c:\\data\\IMA_polyline.txt"));
}

std::string Vertices(int count) {
  std::string text;
  for (int k = 0; k < count; ++k) text += ".00" + std::to_string(k) + ",-.5\n";
  return text;
}

TEST(ImagePolygon, ReadsTheVerticesInOrder) {
  const auto polygon = Read(".001500,-.002000\n.003000,.004000\n");
  ASSERT_EQ(polygon.size(), 2U);
  EXPECT_EQ(polygon[0].X, 0.0015);
  EXPECT_EQ(polygon[0].Y, -0.002);
  EXPECT_EQ(polygon[1].Y, 0.004);
}

TEST(ImagePolygon, EmptyFileHasNoVertices) { EXPECT_TRUE(Read("\n").empty()); }

TEST(ImagePolygon, HasRoomFor101Vertices) { EXPECT_EQ(Read(Vertices(101)).size(), 101U); }

TEST(ImagePolygon, NamesTheLineOfThe102ndVertex) {
  const std::string failure = Failure_Of([] { Read(Vertices(102)); });
  EXPECT_NE(failure.find("Subscript out of range"), std::string::npos);
  EXPECT_NE(failure.find("line 102"), std::string::npos);
  EXPECT_NE(failure.find("101 vertices at most"), std::string::npos);
}

TEST(ImagePolygon, NamesTheLineOfAnythingElse) {
  EXPECT_NE(Failure_Of([] { Read("1,2\n3,north\n"); }).find("line 2"), std::string::npos);
}

}  // namespace
}  // namespace sylvomex
