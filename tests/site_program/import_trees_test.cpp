// SPDX-License-Identifier: MIT
// Tree lists by the command line, converted and drawn by the workstation, and out again.
#include <ogrsf_frmts.h>

#include <nlohmann/json.hpp>

#include "overlays/field_tree_file.h"
#include "site_program/imported_site.h"
#include "support/test_rasters.h"

namespace sylvomex {
namespace {

struct TreeSite : ImportedSite {
  std::string Path(const std::string& name) const { return (folder.Path() / name).string(); }
  std::string Csv(const std::string& content) {
    return folder.Write("list.csv", content).native.string();
  }

  /// The trees after the workstation's own conversion of the plot file.
  std::vector<FieldTree> Converted() {
    folder.Make_Folder("site/c/temp");
    Played(
        "file c:\\data\\vektorit\\list_plot.txt\nfile c:\\temp\\trees.bin\n"
        "command ConvertFieldDataToBinary\n");
    return Read_Field_Trees(folder.File("site/c/temp/trees.bin"));
  }
};

constexpr const char* kColumns =
    "X=east,Y=north,Z=ground,Dbh=d13,TreeHeight=h,TreeId=no,TreeSpecies=sp,TreeCode=code";

TEST_F(TreeSite, APlotFileOfAListGivesItsTreesBack) {
  const std::string list =
      Csv("no;sp;h;d13;east;north;ground;code\n"
          "17;1;18.5;205;384010.25;6675020.5;150.75;0\n"
          "18;spruce;21.25;250.5;384000.125;6675001;151;4\n");
  const SitePlayed played = Import("trees", {list, "--columns", kColumns});
  ASSERT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(nlohmann::json::parse(played.out)["trees"], 2);
  const std::vector<FieldTree> trees = Converted();
  ASSERT_EQ(trees.size(), 2U);
  EXPECT_NEAR(trees[0].MapX, 384010.25 - Shift().X, 1e-6);
  EXPECT_NEAR(trees[0].MapY, 6675020.5 - Shift().Y, 1e-6);
  EXPECT_NEAR(trees[0].BaseZ, 150.75, 1e-9);
  EXPECT_NEAR(trees[0].TopZ, 169.25, 1e-9);
  EXPECT_EQ(trees[0].Dbh, 205);
  EXPECT_EQ(trees[0].TreeId, 17);
  EXPECT_EQ(trees[1].TreeSpecies, 2);
  EXPECT_EQ(trees[1].TreeCode, 4);
  for (const char* input : {"c/temp/trees.bin", "c/data/vektorit/list_plot.txt"}) {
    ASSERT_EQ(Export("trees", Native(input), Path("t.gpkg")).status, 0);
    const GDALDatasetUniquePtr out(GDALDataset::Open(Path("t.gpkg").c_str(), GDAL_OF_VECTOR));
    const OGRFeatureUniquePtr first(out->GetLayer(0)->GetNextFeature());
    EXPECT_NEAR(first->GetFieldAsDouble("X"), 384010.25, 1e-3);
    EXPECT_NEAR(first->GetGeometryRef()->toPoint()->getY(), 6675020.5, 1e-3);
    EXPECT_EQ(first->GetFieldAsInteger("TreeId"), 17);
    EXPECT_EQ(first->GetFieldAsDouble("Dbh"), 205);
  }
}

TEST_F(TreeSite, TheVectorFileHasRowsOfMeasuredTrees) {
  ASSERT_EQ(
      Import("trees", {Csv("x,y,h\n384010.5,6675020,18.5\n"), "--columns", "X=x,Y=y,TreeHeight=h"})
          .status,
      0);
  char expected[100];
  std::snprintf(expected, sizeof expected, "%.10g,%.10g,0,0,18.5,1,1\n", 384010.5 - Shift().X,
                6675020 - Shift().Y);
  EXPECT_EQ(folder.Read("site/c/data/vektorit/list_trees.txt"), expected);
}

TEST_F(TreeSite, WithoutHeightsOfTheGroundTreesStandOnTheTerrain) {
  ASSERT_EQ(Import("dem", {TestRaster().Write(Path("a.tif"))}).status, 0);
  const SitePlayed played =
      Import("trees", {Csv("x,y,h\n384005,6675997,18\n"), "--columns", "X=x,Y=y,TreeHeight=h"});
  EXPECT_NE(played.err.find("taken from the terrain model"), std::string::npos);
  EXPECT_NEAR(Converted().at(0).BaseZ, 102.25, 1e-6);
}

TEST_F(TreeSite, PointsOfAGeopackageAreBroughtToTheSite) {
  const std::string file = Path("list.gpkg");
  {
    GDALAllRegister();
    const GDALDatasetUniquePtr made(GetGDALDriverManager()->GetDriverByName("GPKG")->Create(
        file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReference degrees;
    degrees.importFromEPSG(4326);
    OGRLayer& layer = *made->CreateLayer("trees", &degrees, wkbPoint, nullptr);
    OGRFieldDefn field("height", OFTReal);
    ASSERT_EQ(layer.CreateField(&field), OGRERR_NONE);
    OGRFeature feature(layer.GetLayerDefn());
    feature.SetField(0, 12.5);
    const OGRPoint point(27, 62);  // on the central meridian: X = 500000
    feature.SetGeometry(&point);
    ASSERT_EQ(layer.CreateFeature(&feature), OGRERR_NONE);
  }
  const SitePlayed played = Import("trees", {file, "--columns", "TreeHeight=height"});
  ASSERT_EQ(played.status, 0) << played.err;
  const std::vector<FieldTree> trees = Converted();
  EXPECT_NEAR(trees.at(0).MapX + Shift().X, 500000, 1e-3);
  EXPECT_EQ(trees.at(0).TreeHeight, 12.5);
}

TEST_F(TreeSite, WhatDoesNotFitIsRefusedWithItsPlace) {
  const auto before = Content();
  const SitePlayed text = Import(
      "trees", {Csv("x,y,h\n1,2,3\n384010,6675020,tall\n"), "--columns", "X=x,Y=y,TreeHeight=h"});
  EXPECT_EQ(text.status, 1);
  EXPECT_NE(text.err.find("list.csv, line 3, column h: \"tall\" is no number"), std::string::npos)
      << text.err;
  EXPECT_EQ(Import("trees", {Csv("x,y,h\n1,2\n"), "--columns", "X=x,Y=y,TreeHeight=h"}).status, 1);
  EXPECT_EQ(Import("trees", {Csv("x,y,h\n"), "--columns", "X=x,Y=y,TreeHeight=h"}).status, 1);
  EXPECT_EQ(Import("trees", {Csv("x,y,h\n1,2,3\n"), "--columns", "X=x,Y=y,TreeHeight=z"}).status,
            1);
  EXPECT_EQ(Import("trees", {Csv("x,y,h\n1,2,3\n"), "--columns", "TreeHeight=h"}).status, 1);
  EXPECT_EQ(Import("trees", {Path("none.gpkg"), "--columns", "TreeHeight=h"}).status, 1);
  EXPECT_EQ(Import("trees", {Csv("x,y,h\n1,2,3\n"), "--columns", "Height=h"}).status, 2);
  EXPECT_EQ(Import("trees", {Csv("x,y,h\n1,2,3\n"), "--columns", "X=x,X=y"}).status, 2);
  EXPECT_EQ(Content(), before);
}

}  // namespace
}  // namespace sylvomex
