// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdlib>

#include "commands/surfaces/surface_site.h"

namespace sylvomex {
namespace {

constexpr const char* kPair = "menu Get_Surface_Height_InCdll\n";
constexpr const char* kTriplet = "menu Triplet_Matching\n";
constexpr const char* kPolygon = "c/data/IMA_polyline.txt";
constexpr const char* kNodes = "c/temp/maa.nod";

double Number(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

std::vector<double> Numbers(const std::string& text, char separator) {
  std::istringstream in(text);
  std::vector<double> values;
  for (std::string item; std::getline(in, item, separator);) values.push_back(Number(item));
  return values;
}

/// A rectangle on the film.
std::string Rectangle(double left, double bottom, double right, double top) {
  const auto vertex = [](double x, double y) {
    return std::to_string(x) + "," + std::to_string(y) + "\n";
  };
  return vertex(left, bottom) + vertex(right, bottom) + vertex(right, top) + vertex(left, top);
}

// The pair's grid: at 445 m the scale number is 10000, so that 20 m are 0.002 on the film, 200
// pixels. From a start at film (-0.002, 0.003), which lies above the raster, columns are at x =
// -0.002, 0, 0.002, 0.004 ... and rows at y = 0.001, -0.001 ..., each with up to 0.00001 of
// shake: image columns 400, 600, 800, 1000 and rows 300 and 100 from the bottom.
constexpr const char* kPairStart = "set Text1(0) -0.002\nset Text1(1) 0.003\n";
const std::string kPairArea = Rectangle(-0.0025, -0.0012, 0.0045, 0.0013);

std::vector<std::vector<double>> Nodes(const SurfaceSite& site) {
  std::vector<std::vector<double>> nodes;
  for (const std::string& line : site.Lines(kNodes)) nodes.push_back(Numbers(line, ','));
  return nodes;
}

/// Film position in image 0 of a node.
std::pair<double, double> Film_Of(const std::vector<double>& node, double X0 = 0) {
  const double scale = 0.1 / (1445 - node.at(2));
  return {(node.at(0) - X0) * scale, node.at(1) * scale};
}

TEST(PairPolygon, VisitsColumnsAlternatelyDownAndUp) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  const PlayedSession played = site.Play(std::string(kPairStart) + kPair);
  ASSERT_EQ(played.status, 0) << played.transcript << played.reason;
  const auto nodes = Nodes(site);
  ASSERT_EQ(nodes.size(), 8U);
  const double xs[] = {-0.002, -0.002, 0, 0, 0.002, 0.002, 0.004, 0.004};
  const double ys[] = {0.001, -0.001, -0.001, 0.001, 0.001, -0.001, -0.001, 0.001};
  for (std::size_t k = 0; k < 8; ++k) {
    const auto [x, y] = Film_Of(nodes[k]);
    EXPECT_NEAR(x, xs[k], 1.1e-5) << k;
    EXPECT_NEAR(y, ys[k], 1.1e-5) << k;
    EXPECT_NEAR(nodes[k].at(2), 445, 5.1) << k;  // one pixel is 5 m here
  }
}

TEST(PairPolygon, TellsThePointsWithoutTextureAtTheEnd) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  // Flat from column 900 of image 0: the last column of the grid.
  site.Write_Image(
      0, 0, [](int col, int row) { return col < 900 ? Plane_Noise(col, row) : std::uint8_t{80}; });
  const PlayedSession played =
      site.Play(std::string(kPairStart) + kPair + "print Label10\nprint SolutionValid\n");
  EXPECT_EQ(Lines_With(played, "message ").back(),
            "message \"Points with no texture: 2\" title=\"\" buttons=ok -> ok");
  EXPECT_EQ(Nodes(site).size(), 6U);
  EXPECT_EQ(Printed(played, "Label10"), "Surface points: 8 of 8 done, 6 accepted");
  EXPECT_EQ(Printed(played, "SolutionValid"), "-1");
}

TEST(PairPolygon, LeavesTheLastPointInBoxesSolutionAndRecord) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  const PlayedSession played =
      site.Play(std::string(kPairStart) + kPair +
                "print Text1(0)\nprint Text1(1)\nprint Solution3D\nprint Label4(0)\n"
                "print ObservationRecord.Rmse\nprint ObservationRecord.DemZ\n");
  EXPECT_NEAR(Number(Printed(played, "Text1(0)")), 0.004, 1.1e-5);
  EXPECT_NEAR(Number(Printed(played, "Text1(1)")), 0.001, 1.1e-5);
  EXPECT_NEAR(Numbers(Printed(played, "Solution3D"), ' ').at(0), Nodes(site).back().at(0), 1e-9);
  EXPECT_NEAR(Number(Printed(played, "Label4(0)")), Nodes(site).back().at(0), 0.0051);
  EXPECT_EQ(Printed(played, "ObservationRecord.Rmse"), "1");
  EXPECT_EQ(Printed(played, "ObservationRecord.DemZ"), "-99");
  EXPECT_FALSE(site.Has("c/data/testi.txt"));
}

TEST(PairPolygon, ColoursEachPointByItsHeightInTheTwoImages) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  const PlayedSession played =
      site.Play("menu Center_to_xyz_click\nmenu Clear_ima\n" + std::string(kPairStart) + kPair +
                "marks Picture1(1)\nprint PaneViews(1)\n");
  const auto points = Lines_With(played, "point ");
  const auto nodes = Nodes(site);
  ASSERT_EQ(points.size(), nodes.size());
  const double view_col = Numbers(Printed(played, "PaneViews(1)"), ' ').at(0);
  for (std::size_t k = 0; k < points.size(); ++k) {
    // The map's red counts its rows.
    const int row = static_cast<int>(std::nearbyint(255 * (nodes[k].at(2) - 400) / 90 / 4));
    const std::string tail = " " + std::to_string(row) + " 7 9 3";
    EXPECT_EQ(points[k].substr(points[k].size() - tail.size()), tail) << points[k];
    const double col = 600 + 10000 * (nodes[k].at(0) - 20) / (1445 - nodes[k].at(2));
    EXPECT_NEAR(Numbers(points[k].substr(6), ' ').at(0), col - view_col, 1e-4);
  }
  EXPECT_TRUE(
      Lines_With(site.Play(std::string(kPairStart) + kPair + "marks Picture1(2)\n"), "text ")
          .size() <= 1U);
}

// A ramp: the noise of raw column c stands at 445 m + 0.05 (c - 400) m, which shifts image 1 by
// 200000 / (1000 - 0.05 (c - 400)) columns; over the grid's columns 400 to 1000 the plane rises by
// 30 m, more than the search reaches from the start.
TEST(PairPolygon, FollowsTheSurfaceFromPointToPoint) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  site.Write_Image(1, 0, [](int col, int row) {
    // Blocks of 100 columns about the grid's columns keep one shift.
    for (int grid = 400; grid <= 1000; grid += 200) {
      const double rise = 0.05 * (grid - 400);
      const int shift = static_cast<int>(std::lround(200000 / (1000 - rise)));
      if (std::abs(col + shift - grid) < 50) return Plane_Noise(col + shift, row);
    }
    return std::uint8_t{100};
  });
  ASSERT_EQ(site.Play(std::string(kPairStart) + kPair).status, 0);
  const auto nodes = Nodes(site);
  ASSERT_EQ(nodes.size(), 8U);
  for (std::size_t k = 0; k < 8; ++k) {
    EXPECT_NEAR(nodes[k].at(2), 445 + 10 * static_cast<double>(k / 2), 7.6) << k;
  }
}

TEST(PairPolygon, FirstPointWithoutTextureKeepsTheSearchCentre) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  site.Write_Image(
      0, 0, [](int col, int row) { return col > 500 ? Plane_Noise(col, row) : std::uint8_t{80}; });
  // From 462 m the search reaches down to 442; from anywhere else it would miss the plane.
  ASSERT_EQ(site.Play(std::string(kPairStart) + kPair, 462).status, 0);
  const auto nodes = Nodes(site);
  ASSERT_GE(nodes.size(), 4U);
  EXPECT_NEAR(nodes.front().at(2), 445, 5.1);
}

TEST(PairPolygon, EndsAtTheLimitsOfTheScannedArea) {
  const SurfaceSite site;
  // Everything left of the start lies in the polygon but not in the area.
  site.Write(kPolygon, Rectangle(-0.5, -0.0012, 0.0025, 0.0013));
  ASSERT_EQ(site.Play(std::string(kPairStart) + kPair).status, 0);
  EXPECT_EQ(Nodes(site).size(), 6U);
}

TEST(PairPolygon, EscTickedBeforeTheStartEndsAtOnceWithAnEmptyFileAndNoMessage) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  site.Write(kNodes, "1,2,3\n");
  const PlayedSession played = site.Play("set Check4 1\n" + std::string(kPairStart) + kPair);
  EXPECT_EQ(played.status, 0);
  EXPECT_TRUE(Lines_With(played, "message ").empty());
  EXPECT_EQ(site.Text(kNodes), "");
}

TEST(PairPolygon, EscDuringTheRunStopsAtTheNextPoint) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  const PlayedSession played =
      site.Play(std::string(kPairStart) + "during 3 set Check4 1\n" + kPair + "print Label10\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(Nodes(site).size(), 3U);
  EXPECT_EQ(Printed(played, "Label10"), "Surface points: 3 of 8 done, 3 accepted");
  EXPECT_EQ(Lines_With(played, "message ").size(), 1U);
}

TEST(PairPolygon, ShowsThePointsInTheBoxesWhileItRuns) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  const PlayedSession played = site.Play(
      std::string(kPairStart) + "during 2 print Text1(1)\nduring 3 print Label10\n" + kPair);
  EXPECT_NEAR(Number(Printed(played, "Text1(1)")), -0.001, 1.1e-5);
  EXPECT_EQ(Printed(played, "Label10").substr(0, 15), "Surface points:");
}

TEST(PairPolygon, PolygonsOfFewerThanThreeVerticesHoldNoPoint) {
  for (const std::string& polygon :
       {std::string(), std::string("0.0,0.0\n"), std::string("-0.0025,0\n0.0045,0\n")}) {
    const SurfaceSite site;
    site.Write(kPolygon, polygon);
    site.Write(kNodes, "1,2,3\n");
    const PlayedSession played = site.Play(std::string(kPairStart) + kPair);
    EXPECT_EQ(played.status, 0);
    EXPECT_EQ(Lines_With(played, "message ").back(),
              "message \"Points with no texture: 0\" title=\"\" buttons=ok -> ok");
    EXPECT_EQ(site.Text(kNodes), "");
  }
}

TEST(PairPolygon, SelfCrossingPolygonTakesItsTwoLobes) {
  const SurfaceSite site;
  // A bow tie with its knot at (0.001, 0): at columns 0 and 0.002 its lobes are 0.00037 high, at
  // -0.002 and 0.004 they hold both rows.
  site.Write(kPolygon, "-0.0025,-0.0013\n0.0045,0.0013\n0.0045,-0.0013\n-0.0025,0.0013\n");
  ASSERT_EQ(site.Play(std::string(kPairStart) + kPair).status, 0);
  const auto nodes = Nodes(site);
  ASSERT_EQ(nodes.size(), 4U);
  const double xs[] = {-0.002, -0.002, 0.004, 0.004};
  for (std::size_t k = 0; k < 4; ++k) EXPECT_NEAR(Film_Of(nodes[k]).first, xs[k], 1.1e-5);
}

TEST(PairPolygon, MoreThan101VerticesAreNamed) {
  const SurfaceSite site;
  std::string polygon;
  for (int k = 0; k < 102; ++k) polygon += "0." + std::to_string(k) + ",0\n";
  site.Write(kPolygon, polygon);
  const PlayedSession played = site.Play(std::string(kPairStart) + "try " + kPair);
  EXPECT_NE(Lines_With(played, "error ").at(0).find("a polygon has 101 vertices at most"),
            std::string::npos);
}

TEST(PairPolygon, MissingFilesAndFoldersAreNamed) {
  const SurfaceSite site;
  EXPECT_EQ(Lines_With(site.Play(std::string(kPairStart) + "try " + kPair), "error ").at(0),
            "error Get_Surface_Height_InCdll \"File not found: c:\\data\\IMA_polyline.txt\"");
  std::filesystem::remove(site.Path() / "c/data/JetColorMAP.csv");
  EXPECT_NE(Lines_With(site.Play(std::string(kPairStart) + "try " + kPair), "error ")
                .at(0)
                .find("JetColorMAP.csv"),
            std::string::npos);
  std::filesystem::remove_all(site.Path() / "c/temp");
  EXPECT_EQ(Lines_With(site.Play(std::string(kPairStart) + "try " + kPair), "error ").at(0),
            "error Get_Surface_Height_InCdll \"Path not found: c:\\temp\\maa.nod\"");
}

TEST(PairPolygon, ShortColourTableLeavesItsOtherRowsBlack) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  site.Write("c/data/JetColorMAP.csv", "9,9,9\n");
  const PlayedSession played = site.Play("menu Center_to_xyz_click\nmenu Clear_ima\n" +
                                         std::string(kPairStart) + kPair + "marks Picture1(0)\n");
  for (const std::string& point : Lines_With(played, "point ")) {
    EXPECT_EQ(point.substr(point.size() - 8), " 0 0 0 3");
  }
}

TEST(PairPolygon, WindowThatLeavesTheRasterEndsTheRunWithThePointsBeforeOnTheDisk) {
  const SurfaceSite site;
  // The area reaches below image row 0: the third point of the first column leaves the raster.
  site.Write(kPolygon, Rectangle(-0.0025, -0.0032, 0.0045, 0.0013));
  const PlayedSession played = site.Play(std::string(kPairStart) + "try " + kPair);
  const auto errors = Lines_With(played, "error ");
  ASSERT_EQ(errors.size(), 1U);
  EXPECT_NE(errors[0].find("image 7000: the window of columns "), std::string::npos) << errors[0];
  EXPECT_NE(errors[0].find("leaves the raster of 1200 x 400 pixels"), std::string::npos);
  EXPECT_EQ(Nodes(site).size(), 2U);
}

TEST(PairPolygon, StartFarOutsideIsNamedAndEndsTheRun) {
  for (const int colour : {0, 1}) {
    const SurfaceSite site({colour, colour});
    site.Write(kPolygon, kPairArea);
    const PlayedSession played =
        site.Play("set Text1(0) 1e300\nset Text1(1) 1e300\ntry " + std::string(kPair));
    const auto errors = Lines_With(played, "error ");
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_NE(errors[0].find(colour == 1 ? "image 7000, first row of the colour strip: "
                                         : "the start point lies too far out"),
              std::string::npos)
        << errors[0];
    EXPECT_EQ(site.Text(kNodes), "");
  }
}

TEST(PairPolygon, ColourStripBeginsAtTheStartPointsRow) {
  const SurfaceSite site({1, 1});
  // A start inside the area, at image row 310: its window begins 7.5 rows above the strip.
  const std::string start = "set Text1(0) -0.002\nset Text1(1) 0.0011\n";
  site.Write(kPolygon, kPairArea);
  const PlayedSession failed = site.Play(start + "try " + kPair);
  ASSERT_EQ(Lines_With(failed, "error ").size(), 1U);
  EXPECT_NE(Lines_With(failed, "error ")[0].find("image 7000: the window of columns 39"),
            std::string::npos);
  EXPECT_NE(Lines_With(failed, "error ")[0].find("leaves the strip of rows 8"), std::string::npos);
  EXPECT_EQ(site.Text(kNodes), "");
  // Without the start's row all windows lie inside.
  site.Write(kPolygon, Rectangle(-0.0025, -0.0012, 0.0045, 0.0009));
  EXPECT_EQ(site.Play(start + kPair).status, 0);
  EXPECT_EQ(Nodes(site).size(), 4U);
}

TEST(PairPolygon, GreyAndColourImagesGiveTheSameNodes) {
  const std::string polygon = Rectangle(-0.0025, -0.0012, 0.0045, 0.0009);
  std::string nodes;
  for (const std::vector<int>& colours : {std::vector<int>{0, 0}, {0, 1}, {1, 0}, {1, 1}}) {
    const SurfaceSite site(colours);
    site.Write(kPolygon, polygon);
    ASSERT_EQ(site.Play(std::string(kPairStart) + kPair).status, 0);
    if (nodes.empty()) nodes = site.Text(kNodes);
    EXPECT_EQ(site.Text(kNodes), nodes);
  }
  EXPECT_NE(nodes, "");
}

TEST(PairPolygon, ImageRemovedWhileItRunsEndsTheRun) {
  const SurfaceSite site;
  site.Write(kPolygon, kPairArea);
  const PlayedSession played =
      site.Play(std::string(kPairStart) + "input 1\nduring 4 menu Remove_an_image\ntry " + kPair +
                "try print ImageCount\n");
  ASSERT_FALSE(Lines_With(played, "error ").empty()) << played.transcript << played.reason;
  EXPECT_NE(Lines_With(played, "error ").at(0).find("the image was removed"), std::string::npos);
  EXPECT_EQ(Nodes(site).size(), 3U);
}

// The triplet's grid: 3 m are 0.0003 on the film, 30 pixels, centred on the start.
constexpr const char* kTripletStart = "set Text1(2) 0.00001\nset Text1(3) 0.00001\n";
const std::string kTripletArea = Rectangle(-0.0005, -0.0005, 0.0005, 0.0005);

TEST(TripletPolygon, VisitsColumnsUpwardsAboutTheStart) {
  const SurfaceSite site;
  site.Write(kPolygon, kTripletArea);
  const PlayedSession played = site.Play(std::string(kTripletStart) + kTriplet);
  ASSERT_EQ(played.status, 0) << played.transcript;
  EXPECT_TRUE(Lines_With(played, "message ").empty());
  const auto nodes = Nodes(site);
  // The grid begins 100 m left and 125 m below: columns at 0.0002 and -0.0001 +- 0.0003 k of the
  // start, rows at -0.0125 + 0.0003 k, that is 0.0001 off it.
  ASSERT_EQ(nodes.size() % 3, 0U);
  ASSERT_GE(nodes.size(), 9U);
  const std::size_t height = nodes.size() / 3;
  for (std::size_t k = 0; k < nodes.size(); ++k) {
    const auto [x, y] = Film_Of(nodes[k], 20);
    const double start_x = -0.01 + 0.0003 * std::ceil((0.0095 - 0.00002) / 0.0003) + 0.00001;
    EXPECT_NEAR(x, start_x + 0.0003 * static_cast<double>(k / height), 1.1e-5) << k;
    EXPECT_GT(y, -0.0005);
    if (k % height != 0) {
      EXPECT_NEAR(y - Film_Of(nodes[k - 1], 20).second, 0.0003, 1e-9);
    }
    EXPECT_EQ(nodes[k].at(3), -99);
    EXPECT_NEAR(nodes[k].at(2), 445, 5.1);
  }
}

TEST(TripletPolygon, MarksThreeImagesWithTwoTextsAPoint) {
  const SurfaceSite site;
  site.Write(kPolygon, Rectangle(-0.00025, -0.0003, 0.0001, 0.00005));
  const PlayedSession played =
      site.Play("menu Center_to_xyz_click\nmenu Clear_ima\n" + std::string(kTripletStart) +
                kTriplet + "marks Picture1(2)\n");
  const auto nodes = Nodes(site);
  const auto points = Lines_With(played, "point ");
  const auto texts = Lines_With(played, "text ");
  ASSERT_GE(nodes.size(), 1U);
  ASSERT_EQ(points.size(), nodes.size());
  ASSERT_EQ(texts.size(), 2 * nodes.size());
  EXPECT_EQ(points[0].substr(points[0].size() - 12), "225 255 25 3");
  EXPECT_NE(texts[0].find("\"1.00 "), std::string::npos);
  EXPECT_NE(texts[0].find("\" 12 "), std::string::npos);
  EXPECT_NE(texts[0].find(" 125 255 125"), std::string::npos);
  EXPECT_NE(texts[1].find("\"DTM: -99.00 m\""), std::string::npos);
  const auto place = Numbers(points[0].substr(6), ' ');
  EXPECT_NEAR(Numbers(texts[0].substr(5), ' ').at(0), place.at(0) + 15, 1e-9);
  EXPECT_NEAR(Numbers(texts[0].substr(5), ' ').at(1), place.at(1) + 15, 1e-9);
  EXPECT_NEAR(Numbers(texts[1].substr(5), ' ').at(1), place.at(1) + 35, 1e-9);
}

// Stairs of 5 m a grid column, in blocks of 30 columns about columns 591 + 30 j of image 1, where
// the grid lies: 7 m about the solution do not reach the third stair, a search that followed would
// climb all four.
std::uint8_t Stairs_Noise(int image, int col, int row) {
  for (int j = -4; j <= 4; ++j) {
    const int shift = static_cast<int>(std::lround(200000.0 / (1000 - 5 * j)));
    const int middle_col = col + (image - 1) * shift;
    if (std::abs(middle_col - (591 + 30 * j)) < 15) return Plane_Noise(middle_col, row);
  }
  return 100;
}

TEST(TripletPolygon, KeepsOneSearchCentre) {
  const SurfaceSite site;
  for (const int image : {0, 1, 2}) {
    site.Write_Image(image, 0, [image](int col, int row) { return Stairs_Noise(image, col, row); });
  }
  site.Write(kPolygon, Rectangle(-0.0013, -0.0003, 0.0012, 0.0003));
  ASSERT_EQ(site.Play(std::string(kTripletStart) + kTriplet).status, 0);
  const auto nodes = Nodes(site);
  ASSERT_GE(nodes.size(), 3U);
  for (const auto& node : nodes) {
    const double stair = std::round((Film_Of(node, 20).first * 100000 + 600 - 591) / 30);
    // At the second stair one of the two images may agree within the range.
    EXPECT_LE(std::abs(stair), 2) << node.at(0);
    EXPECT_LE(std::abs(node.at(2) - 445), 7 + 1e-9);
  }
}

TEST(TripletPolygon, WithoutASolutionTheScaleIsThatOfHeight0AndTheCentre160) {
  const SurfaceSite site;
  site.Write(kPolygon, kTripletArea);
  const PlayedSession played =
      site.Play_Without_Solution(std::string(kTripletStart) + kTriplet + "print Solution3D\n");
  ASSERT_EQ(played.status, 0) << played.transcript;
  const double Z = Numbers(Printed(played, "Solution3D"), ' ').at(2);
  EXPECT_GE(Z, 153 - 1e-9);
  EXPECT_LE(Z, 167 + 1e-9);
}

TEST(TripletPolygon, TellsTheBytesOfTheColourStrips) {
  const SurfaceSite site({1, 1, 1});
  site.Write(kPolygon, kTripletArea);
  const PlayedSession played = site.Play(std::string(kTripletStart) + kTriplet);
  // All 400 rows of 1200 pixels lie in the 3000 rows about the start, times 9.
  EXPECT_EQ(Lines_With(played, "message ").at(0),
            "message \"Read 4320000 bytes\" title=\"\" buttons=ok -> ok");
  EXPECT_GE(Nodes(site).size(), 9U);
}

TEST(TripletPolygon, GreyFixedImageTellsNoBytes) {
  const SurfaceSite site({1, 0, 1});
  site.Write(kPolygon, kTripletArea);
  const PlayedSession played = site.Play(std::string(kTripletStart) + kTriplet);
  EXPECT_TRUE(Lines_With(played, "message ").empty());
  EXPECT_GE(Nodes(site).size(), 9U);
}

TEST(TripletPolygon, EscTickedBeforeTheStartEndsAtOnceWithAnEmptyFile) {
  const SurfaceSite site;
  site.Write(kPolygon, kTripletArea);
  site.Write(kNodes, "1,2,3,4\n");
  const PlayedSession played = site.Play("set Check4 1\n" + std::string(kTripletStart) + kTriplet);
  EXPECT_EQ(played.status, 0);
  EXPECT_TRUE(Lines_With(played, "message ").empty());
  EXPECT_EQ(site.Text(kNodes), "");
}

TEST(TripletPolygon, EmptyPolygonFileEndsWithAnEmptyFileAndNoMessage) {
  const SurfaceSite site;
  site.Write(kPolygon, "");
  site.Write(kNodes, "1,2,3,4\n");
  const PlayedSession played = site.Play(std::string(kTripletStart) + kTriplet);
  EXPECT_EQ(played.status, 0);
  EXPECT_TRUE(Lines_With(played, "message ").empty());
  EXPECT_EQ(site.Text(kNodes), "");
}

TEST(TripletPolygon, NamesTheImageThatIsMissing) {
  SurfaceSite site;
  site.Forget_Images_From(2);
  site.Write(kPolygon, kTripletArea);
  const PlayedSession played = site.Play(std::string(kTripletStart) + "try " + kTriplet);
  EXPECT_NE(Lines_With(played, "error ").at(0).find("image 2 is needed, the block holds 2"),
            std::string::npos);
}

}  // namespace
}  // namespace sylvomex
