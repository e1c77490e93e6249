// SPDX-License-Identifier: MIT
#include "region/region_text.h"

#include <gtest/gtest.h>

#include "interchange/failures.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

const std::string kStart =
    "site = 'site'\ncrs = 'EPSG:3067'\nheaders = ['c:\\data\\*.hdr']\ndem = 'c:\\data\\d.hdr'\n";
const std::string kTops =
    kStart + "chm = 'c:\\data\\c.hdr'\nplots = [{id = 'a', x = 1, y = 2.5, radius = 7}]\n" +
    "[model_trees]\nfile = 'trees.csv'\n";

RegionOrder Parse(const std::string& text) { return Parse_Region(text, "/f", "r.toml"); }

std::string Refusal_Of(const std::string& text) try {
  (void)Parse(text);
  return "";
} catch (const Refused& refusal) {
  return refusal.what();
}

#define EXPECT_REFUSED(text, words) \
  EXPECT_NE(Refusal_Of(text).find(words), std::string::npos) << Refusal_Of(text)

TEST(RegionText, IsReadWithTheValuesThatTheWorkstationStartsWith) {
  const RegionOrder order = Parse(kTops);
  EXPECT_EQ(order.site, "/f/site");
  EXPECT_EQ(order.model_trees, "/f/trees.csv");
  ASSERT_EQ(order.plots.size(), 1U);
  EXPECT_EQ(order.plots[0].Y, 2.5);
  EXPECT_EQ(order.plots[0].radius, 7);
  EXPECT_EQ(order.numbers.crown.Tw, 1.5);
  EXPECT_EQ(order.numbers.crown.Zd, 3);
  EXPECT_EQ(order.numbers.crown.EZA, 0);
  EXPECT_EQ(order.numbers.fHDOM, 1.15);
  EXPECT_EQ(order.numbers.Hlow, 0.6);
  EXPECT_EQ(order.numbers.Mesh, 0.5);
  EXPECT_EQ(order.numbers.XYt, 1.5);
  EXPECT_EQ(order.numbers.Rl, 0.3);
}

TEST(RegionText, TakesBoxesAndAFileOnTheDrives) {
  const RegionOrder order = Parse(kStart +
                                  "chm = 'c:\\data\\c.hdr'\nplots = [{id = 'a', x = 1, y = 2}]\n"
                                  "[boxes]\nr = 12\nEZA = -1.5\n"
                                  "[model_trees]\nfile = 'c:\\data\\p.txt'\nreach = 90\n");
  EXPECT_EQ(order.plots[0].radius, 12);
  EXPECT_EQ(order.numbers.crown.EZA, -1.5);
  EXPECT_EQ(order.model_trees, "/f/site/c/data/p.txt");
  EXPECT_EQ(order.reach, 90);
}

TEST(RegionText, TakesAnAreaAndAnOrthoimage) {
  const RegionOrder order =
      Parse(kStart +
            "chm = 'c:\\data\\c.hdr'\n[area]\nwest = 0\nsouth = 0\neast = 100\nnorth = 50\n"
            "tile = 25\n[model_trees]\nfile = 't.csv'\n[orthoimage]\nwest = 0\nsouth = 0\n"
            "east = 100\nnorth = 50\ncell = 0.5\n");
  ASSERT_TRUE(order.area.has_value());
  EXPECT_EQ(order.area->tile, 25);
  ASSERT_TRUE(order.orthoimage.has_value());
  EXPECT_EQ(order.orthoimage->tile, 512);
}

TEST(RegionText, NamesWhatItRefuses) {
  EXPECT_REFUSED("site = ", "r.toml, line 1: no TOML");
  EXPECT_REFUSED("", "\"site\" is missing");
  EXPECT_REFUSED(kStart, "neither plots nor an [area] nor an [orthoimage]");
  EXPECT_REFUSED("colour = 1\n" + kTops, "\"colour\" is not known");
  EXPECT_REFUSED(kTops + "reech = 5\n", "[model_trees] \"reech\" is not known");
  EXPECT_REFUSED(kTops + "reach = -5\n", "\"reach\" must be above 0");
  EXPECT_REFUSED(kTops + "reach = nan\n", "\"reach\" is out of range");
  EXPECT_REFUSED(kTops + "reach = 'far'\n", "\"reach\" is missing or no number");
  EXPECT_REFUSED(kTops + "[boxes]\nMesh = 0\n", "[boxes] \"Mesh\" must be above 0");
  EXPECT_REFUSED(kTops + "[boxes]\nText5 = 1\n", "[boxes] \"Text5\" is not known");
  EXPECT_REFUSED("least_images = 1\n" + kTops, "whole number from 2 to 9");
  EXPECT_REFUSED("least_images = 4\nmost_images = 3\n" + kTops, "least_images is above");
  EXPECT_REFUSED("cameras = 'c:\\data\\t.csv'\n" + kTops, "either \"headers\" or \"cameras\"");
  EXPECT_REFUSED(kTops + "[area]\nwest = 5\nsouth = 0\neast = 5\nnorth = 1\ntile = 1\n",
                 "[area] is empty");
}

TEST(RegionText, RefusesPlotsWithoutModelTreesOrCanopy) {
  EXPECT_REFUSED(kStart + "plots = [{id = 'a', x = 1, y = 2}]\n", "\"chm\" is missing");
  EXPECT_REFUSED(kStart + "chm = 'c'\nplots = [{id = 'a', x = 1, y = 2}]\n",
                 "[model_trees] is missing");
}

TEST(RegionText, RefusesTwoPlotsOfOneId) {
  EXPECT_REFUSED(kStart + "plots = [{id = 'a', x = 1, y = 2}, {id = 'a', x = 3, y = 4}]\n",
                 "r.toml, plot 2: the id a stands in r.toml, plot 1 already");
}

TEST(RegionText, RefusesAnIdThatCannotNameAFolder) {
  for (const char* id : {"../x", ".a", "a/b", "", "a b"}) {
    EXPECT_FALSE(Is_Task_Name(id)) << id;
  }
  EXPECT_REFUSED(kStart + "plots = [{id = '../x', x = 1, y = 2}]\n", "is no id");
  // The failures of a plot "p1" are noted under this name.
  EXPECT_REFUSED(kStart + "plots = [{id = 'p1.failed.json', x = 1, y = 2}]\n", "is no id");
}

TEST(RegionText, ReadsPlotsFromATableAndNamesItsLine) {
  const TemporaryFolder folder;
  folder.Write("plots.csv", "id,X,Y,radius\np1,10,20,5\np2,30,40,\n");
  const std::string text = kStart + "chm = 'c'\nplots = 'plots.csv'\n[model_trees]\nfile = 't'\n";
  const RegionOrder order = Parse_Region(text, folder.Path(), "r.toml");
  ASSERT_EQ(order.plots.size(), 2U);
  EXPECT_EQ(order.plots[0].radius, 5);
  EXPECT_EQ(order.plots[1].radius, 23);  // the box r
  folder.Write("plots.csv", "id,X,Y\np1,1e300,20\n");
  EXPECT_THROW((void)Parse_Region(text, folder.Path(), "r.toml"), Refused);
  folder.Write("plots.csv", "id,X,Y\np1,10,20\np1,30,40\n");
  try {
    (void)Parse_Region(text, folder.Path(), "r.toml");
    FAIL() << "two plots of one id";
  } catch (const Refused& refusal) {
    EXPECT_NE(std::string(refusal.what()).find("plots.csv, line 3: the id p1"), std::string::npos)
        << refusal.what();
  }
}

}  // namespace
}  // namespace sylvomex
