// SPDX-License-Identifier: MIT
#include "mapview/map_header.h"

#include <gtest/gtest.h>

#include "imageblock/expect_failure.h"

namespace sylvomex {
namespace {

MapHeader Read(const std::string& text) {
  ListReader reader(text, "site.hdr");
  return Read_Map_Header(reader);
}

TEST(MapHeader, ReadsEveryItemIntoItsField) {
  const MapHeader map =
      Read("\"c:\\maps\\site map.raw\"\n2515000.5, 6859000.25\n0.5 0.25\n3000,2000\n7\n");
  EXPECT_EQ(map.MapFileName.Trimmed(), "c:\\maps\\site map.raw");
  EXPECT_EQ(map.MapOriginX, 2515000.5);
  EXPECT_EQ(map.MapOriginY, 6859000.25);
  EXPECT_EQ(map.MapPixelSizeY, 0.5);
  EXPECT_EQ(map.MapPixelSizeX, 0.25);
  EXPECT_EQ(map.MapWidth, 3000);
  EXPECT_EQ(map.MapHeight, 2000);
  EXPECT_EQ(map.MapFlag, 7);
}

TEST(MapHeader, AFileNameIsCutTo60Characters) {
  const MapHeader map = Read(std::string(70, 'm') + ",0,0,1,1,10,10,0");
  EXPECT_EQ(map.MapFileName.Trimmed(), std::string(60, 'm'));
}

TEST(MapHeader, ATextForANumberNamesFileLineAndItem) {
  const std::string text =
      Expect_Failure(Failure::TypeMismatch, [] { Read("a.raw\n0\n0\nhalf 1 1"); });
  EXPECT_TRUE(Contains(text, "site.hdr, line 4, item 4")) << text;
}

TEST(MapHeader, AMissingItemIsInputPastEnd) {
  Expect_Failure(Failure::InputPastEnd, [] { Read("a.raw 0 0 1 1 10 10"); });
}

TEST(MapHeader, ASizeBelowOnePixelIsRejected) {
  const std::string text =
      Expect_Failure(Failure::BadContent, [] { Read("a.raw 0 0 1 1 0 10 0"); });
  EXPECT_TRUE(Contains(text, "the map has 0 columns")) << text;
  Expect_Failure(Failure::BadContent, [] { Read("a.raw 0 0 1 1 10 -4 0"); });
}

TEST(MapHeader, AnEmptyFileNameIsRejected) {
  Expect_Failure(Failure::BadContent, [] { Read("\"\" 0 0 1 1 10 10 0"); });
}

}  // namespace
}  // namespace sylvomex
