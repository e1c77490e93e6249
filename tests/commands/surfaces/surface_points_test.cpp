// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <utility>

#include "commands/surfaces/surface_site.h"

namespace sylvomex {
namespace {

/// Column 700.3, row 250.3 of image 0.
constexpr const char* kPairPlace = "set Text1(0) 0.001003\nset Text1(1) 0.000503\n";
/// Column 600.3, row 250.3 of image 1.
constexpr const char* kTripletPlace = "set Text1(2) 0.000003\nset Text1(3) 0.000503\n";
constexpr const char* kPair = "menu Get_Surface_Height\n";
constexpr const char* kTriplet = "menu Get_surface_single_point_triplet\n";

// The fixed window of the pair begins at column round(691.8) = 692. Image 1 shows the same noise
// where round(691.8 - s) = 492, from s = 199.3 to 200.3: the lowest of these heights in steps of
// half a metre about 445 is 441.5, where s = 199.3024.
constexpr double kPairX = 1003.5 * 0.01003, kPairY = 1003.5 * 0.00503;

double Number(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

std::vector<double> Numbers(const std::string& text, char separator) {
  std::istringstream in(text);
  std::vector<double> values;
  for (std::string item; std::getline(in, item, separator);) values.push_back(Number(item));
  return values;
}

TEST(PairPoint, FindsThePlaneAndTellsItEverywhere) {
  const SurfaceSite site;
  const PlayedSession played =
      site.Play(std::string(kPairPlace) + kPair +
                "print Solution3D\nprint SolutionValid\nprint Label4(0)\nprint Label4(1)\n"
                "print Label4(2)\nprint ObservationRecord.Rmse\nprint ObservationRecord.DemZ\n"
                "print ObservationRecord.Z\nprint ObservationRecord.MeasurementNumber\n"
                "print Label10\n");
  ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
  const auto solution = Numbers(Printed(played, "Solution3D"), ' ');
  EXPECT_NEAR(solution.at(0), kPairX, 1e-9);
  EXPECT_NEAR(solution.at(1), kPairY, 1e-9);
  EXPECT_EQ(solution.at(2), 441.5);
  EXPECT_EQ(Printed(played, "SolutionValid"), "-1");
  EXPECT_EQ(Printed(played, "Label4(0)"), "10.07");
  EXPECT_EQ(Printed(played, "Label4(1)"), "5.05");
  EXPECT_EQ(Printed(played, "Label4(2)"), "441.50");
  EXPECT_EQ(Printed(played, "ObservationRecord.Rmse"), "1");
  EXPECT_EQ(Printed(played, "ObservationRecord.DemZ"), "-99");
  EXPECT_EQ(Printed(played, "ObservationRecord.Z"), "441.5");
  EXPECT_EQ(Printed(played, "ObservationRecord.MeasurementNumber"), "1");
  EXPECT_EQ(Printed(played, "Label10"), "Images centered to given XYZ");
}

TEST(PairPoint, WritesEveryCandidateAndTheAcceptedPoint) {
  const SurfaceSite site;
  site.Write("c/data/testi.txt", std::string(40000, 'x'));
  site.Write("c/temp/maa.nod", "1,2,3\n");
  ASSERT_EQ(site.Play(std::string(kPairPlace) + kPair).status, 0);
  const auto rows = site.Lines("c/data/testi.txt");
  ASSERT_EQ(rows.size(), 121U);
  EXPECT_EQ(Numbers(rows.front(), ',').at(3), 415);
  EXPECT_EQ(Numbers(rows.back(), ',').at(3), 475);
  EXPECT_EQ(rows[53], "1,10.065105,5.047605,441.5");
  EXPECT_LT(Numbers(rows[52], ',').at(0), 0.5);
  EXPECT_EQ(site.Text("c/temp/maa.nod"), "1,2,3\n10.065105,5.047605,441.5\n");
  // 441.5 - -99.
  EXPECT_EQ(site.Text("c/data/testi_89_manual2.txt"), "10.065105,5.047605,441.5,540.50 \n");
}

TEST(PairPoint, MarksBothImagesAfterTheCentring) {
  const SurfaceSite site;
  const PlayedSession played = site.Play(std::string(kPairPlace) + kPair +
                                         "print PaneViews(1)\nsay marks\nmarks Picture1(1)\n");
  const auto view = Numbers(Printed(played, "PaneViews(1)"), ' ');
  const double px = 700.3 - 200000 / 1003.5 - view.at(0);
  const double py = 399 - 250.3 - view.at(1);
  const auto points = Lines_With(played, "point ");
  ASSERT_EQ(points.size(), 2U);  // the centring's white one and the result's
  EXPECT_EQ(points[0].substr(points[0].size() - 13), "255 255 255 3");
  const auto place = Numbers(points[1].substr(6), ' ');
  EXPECT_NEAR(place.at(0), px, 1e-6);
  EXPECT_NEAR(place.at(1), py, 1e-6);
  EXPECT_EQ(points[1].substr(points[1].size() - 12), "225 255 25 3");
  const auto texts = Lines_With(played, "text ");
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_NE(texts[1].find("\"1.00 441.5\" \"Arial\" 12 bold 225 255 25"), std::string::npos);
  EXPECT_NEAR(Numbers(texts[1].substr(5), ' ').at(0), px + 15, 1e-6);
  EXPECT_NEAR(Numbers(texts[1].substr(5), ' ').at(1), py + 15, 1e-6);
  EXPECT_NE(texts[2].find("\"DTM: -99.00 m\" \"Arial\" 12 bold"), std::string::npos);
  EXPECT_NEAR(Numbers(texts[2].substr(5), ' ').at(0), px + 15, 1e-6);
  EXPECT_NEAR(Numbers(texts[2].substr(5), ' ').at(1), py + 35, 1e-6);
}

TEST(PairPoint, ThirdImageGetsNoMark) {
  const PlayedSession played =
      SurfaceSite().Play(std::string(kPairPlace) + kPair + "marks Picture1(2)\n");
  EXPECT_EQ(Lines_With(played, "point ").size(), 1U);  // the centring's
}

TEST(PairPoint, WithoutASolutionTheSearchIsCentredOn160) {
  const SurfaceSite site;
  // The film position of a place that both images see from 130 to 190 m.
  const PlayedSession played = site.Play_Without_Solution(
      std::string(kPairPlace) + kPair + "print SolutionValid\nprint Solution3D\n");
  ASSERT_EQ(played.status, 0) << played.transcript;
  const auto rows = site.Lines("c/data/testi.txt");
  ASSERT_EQ(rows.size(), 121U);
  EXPECT_EQ(Numbers(rows.front(), ',').at(3), 130);
  EXPECT_EQ(Numbers(rows.back(), ',').at(3), 190);
  EXPECT_EQ(Printed(played, "SolutionValid"), "0");
}

TEST(PairPoint, LowCorrelationMovesTheSolutionButWritesAndMarksNothing) {
  const SurfaceSite site;
  site.Write_Image(1, 0, [](int col, int row) { return Plane_Noise(col + 3000, row); });
  const PlayedSession played = site.Play(std::string(kPairPlace) + kPair +
                                         "print ObservationRecord.Rmse\nprint Solution3D\n"
                                         "marks Picture1(0)\n");
  ASSERT_EQ(played.status, 0);
  EXPECT_LT(Number(Printed(played, "ObservationRecord.Rmse")), 0.55);
  EXPECT_NE(Numbers(Printed(played, "Solution3D"), ' ').at(0), 0);
  EXPECT_FALSE(site.Has("c/temp/maa.nod"));
  EXPECT_FALSE(site.Has("c/data/testi_89_manual2.txt"));
  EXPECT_EQ(Lines_With(played, "point ").size(), 1U);
}

/// 0 to 288 in a shuffled order, by the place in a window of 17 x 17.
std::vector<int> Shuffled_Places() {
  std::vector<int> order(289);
  std::iota(order.begin(), order.end(), 0);
  std::sort(order.begin(), order.end(), [](int a, int b) {
    return std::pair(Plane_Noise(a, 999), a) < std::pair(Plane_Noise(b, 999), b);
  });
  return order;
}

// Two windows of 85 bright pixels each among 289, 58 of them common: r = (289 x 58 - 85^2) /
// (289 x 85 - 85^2) = 9537 / 17340 = 0.55 exactly.
std::uint8_t Grey_At(int image, int shuffled) {
  const int first = image == 0 ? 0 : 27;
  return shuffled >= first && shuffled < first + 85 ? 150 : 50;
}

TEST(PairPoint, ExactlyTheThresholdIsNotAccepted) {
  const SurfaceSite site;
  const std::vector<int> order = Shuffled_Places();
  // The windows of the place: columns 692 and 492, raw rows 140 to 156.
  for (const int image : {0, 1}) {
    const int left = image == 0 ? 692 : 492;
    site.Write_Image(image, 0, [&](int col, int row) -> std::uint8_t {
      const bool inside = col >= left && col < left + 17 && row >= 140 && row < 157;
      if (inside)
        return Grey_At(image, order[static_cast<std::size_t>((row - 140) * 17 + col - left)]);
      return Plane_Noise(col + 2000 * image, row);
    });
  }
  const PlayedSession played = site.Play(std::string(kPairPlace) + kPair +
                                         "print Solution3D\nprint Label4(2)\nmarks Picture1(0)\n");
  ASSERT_EQ(played.status, 0);
  EXPECT_EQ(site.Lines("c/data/testi.txt").at(53).substr(0, 5), "0.55,");
  EXPECT_EQ(Printed(played, "Label4(2)"), "441.50");
  EXPECT_NEAR(Numbers(Printed(played, "Solution3D"), ' ').at(0), kPairX, 1e-9);
  EXPECT_FALSE(site.Has("c/temp/maa.nod"));
  EXPECT_FALSE(site.Has("c/data/testi_89_manual2.txt"));
  EXPECT_EQ(Lines_With(played, "point ").size(), 1U);
}

TEST(PairPoint, FlatWindowEndsInSilenceWithNothingChanged) {
  const SurfaceSite site;
  for (const std::uint8_t level : {std::uint8_t{0}, std::uint8_t{90}}) {
    site.Write_Image(0, 0, [level](int, int) { return level; });
    const PlayedSession played = site.Play(std::string(kPairPlace) + "say begin\n" + kPair +
                                           "print Solution3D\nprint Label10\n");
    ASSERT_EQ(played.status, 0);
    EXPECT_NE(played.transcript.find("say begin\nSolution3D = 0 0 445\nLabel10 = 3D-value set"),
              std::string::npos)
        << played.transcript;
    EXPECT_FALSE(site.Has("c/data/testi.txt"));
  }
}

TEST(PairPoint, GreyAndColourImagesMayBeMixed) {
  for (const std::vector<int>& colours : {std::vector<int>{0, 1}, {1, 0}, {1, 1}}) {
    const SurfaceSite site(colours);
    ASSERT_EQ(site.Play(std::string(kPairPlace) + kPair).status, 0);
    EXPECT_EQ(site.Text("c/temp/maa.nod"), "10.065105,5.047605,441.5\n");
  }
}

TEST(PairPoint, ThirdColourFlagOfTheFixedImageIsNamed) {
  const SurfaceSite site({2, 0});
  const PlayedSession played = site.Play(std::string(kPairPlace) + "try " + kPair);
  EXPECT_EQ(Lines_With(played, "error Get_Surface_Height").at(0),
            "error Get_Surface_Height \"Bad content: image 7000: ColorFlag is 2, grey is 0 and "
            "colour 1\"");
}

TEST(PairPoint, MovingImageOfAThirdColourFlagKeepsTheLowestHeight) {
  const SurfaceSite site({0, 2});
  const PlayedSession played = site.Play(std::string(kPairPlace) + kPair +
                                         "print Label4(2)\nprint ObservationRecord.Rmse\n");
  EXPECT_EQ(played.status, 0) << played.transcript;
  EXPECT_EQ(Printed(played, "Label4(2)"), "415.00");
  EXPECT_EQ(Printed(played, "ObservationRecord.Rmse"), "0");
}

TEST(PairPoint, WindowThatLeavesTheRasterNamesImageColumnsAndRowsAndWritesNothing) {
  const SurfaceSite site;
  // Column 150.3 of image 0 is column -50 or so of image 1.
  const PlayedSession played = site.Play("set Text1(0) -0.004497\nset Text1(1) 0.000503\ntry " +
                                         std::string(kPair) + "print Solution3D\n");
  const auto errors = Lines_With(played, "error ");
  ASSERT_EQ(errors.size(), 1U);
  EXPECT_NE(errors[0].find("image 7001: the window of columns -"), std::string::npos) << errors[0];
  EXPECT_NE(errors[0].find("and rows 140 to 156 leaves the raster of 1200 x 400 pixels"),
            std::string::npos);
  EXPECT_EQ(Printed(played, "Solution3D"), "0 0 445");
  EXPECT_FALSE(site.Has("c/data/testi.txt"));
  EXPECT_FALSE(site.Has("c/temp/maa.nod"));
}

TEST(PairPoint, NamesTheImageThatIsMissing) {
  SurfaceSite site;
  site.Forget_Images_From(1);
  const PlayedSession played = site.Play(std::string(kPairPlace) + "try " + kPair);
  EXPECT_NE(Lines_With(played, "error ").at(0).find("image 1 is needed, the block holds 1"),
            std::string::npos);
}

TEST(PairPoint, NamesTheBoxThatHoldsNoNumber) {
  const SurfaceSite site;
  EXPECT_NE(Lines_With(site.Play(std::string("try ") + kPair), "error ").at(0).find("Text1(0)"),
            std::string::npos);
  const PlayedSession played =
      site.Play("set Text1(0) 0.001\nset Text1(1) north\ntry " + std::string(kPair));
  EXPECT_NE(Lines_With(played, "error ").at(0).find("Text1(1)"), std::string::npos);
}

TEST(PairPoint, MissingTempFolderIsNamedAfterTheSolutionHasMoved) {
  const SurfaceSite site;
  std::filesystem::remove(site.Path() / "c/temp");
  const PlayedSession played =
      site.Play(std::string(kPairPlace) + "try " + kPair + "print Label4(2)\n");
  EXPECT_EQ(Lines_With(played, "error ").at(0),
            "error Get_Surface_Height \"Path not found: c:\\temp\\maa.nod\"");
  EXPECT_EQ(Printed(played, "Label4(2)"), "441.50");
}

TEST(PairPoint, AClickInTheSurfaceModeMeasuresAtOnce) {
  const SurfaceSite site;
  const PlayedSession played = site.Play(
      "menu Measure_Surface\nmenu Center_to_xyz_click\nclick Picture1(0) 150 150\n"
      "print Check1(0)\nprint ObservationRecord.Rmse\n");
  ASSERT_EQ(played.status, 0) << played.transcript << played.reason;
  EXPECT_EQ(site.Lines("c/temp/maa.nod").size(), 1U);
  EXPECT_EQ(Printed(played, "ObservationRecord.Rmse"), "1");
  EXPECT_EQ(Printed(played, "Check1(0)"), "1");
}

TEST(PairPoint, AClickInAnotherPaneDoesNotMeasure) {
  const SurfaceSite site;
  ASSERT_EQ(site.Play("menu Measure_Surface\nmenu Center_to_xyz_click\nclick Picture1(1) 150 150\n")
                .status,
            0);
  EXPECT_FALSE(site.Has("c/data/testi.txt"));
}

// The windows of the triplet: image 1 begins at column round(593.8) = 594, image 2 agrees from
// s = 199.3 to 200.3, image 0 from 199.7 to 200.7. Both agree from 443.498 to 446.50 m.
TEST(TripletPoint, FindsTheLowestHeightAtWhichBothImagesAgree) {
  const SurfaceSite site;
  const PlayedSession played = site.Play(std::string(kTripletPlace) + kTriplet +
                                         "print Solution3D\nprint ObservationRecord.Rmse\n");
  ASSERT_EQ(played.status, 0) << played.transcript;
  const auto solution = Numbers(Printed(played, "Solution3D"), ' ');
  EXPECT_NEAR(solution.at(0), 20 + 1001.5 * 0.00003, 1e-9);
  EXPECT_NEAR(solution.at(1), 1001.5 * 0.00503, 1e-9);
  EXPECT_NEAR(solution.at(2), 443.5, 1e-9);
  EXPECT_EQ(Printed(played, "ObservationRecord.Rmse"), "1");
  EXPECT_EQ(site.Lines("c/data/testi.txt").size(), 161U);
  EXPECT_EQ(site.Text("c/temp/FotoKork_Asfalttitie.nod"), "20.030045,5.037545,443.5,-99\n");
  EXPECT_FALSE(site.Has("c/temp/maa.nod"));
  EXPECT_FALSE(site.Has("c/data/testi_89_manual2.txt"));
}

TEST(TripletPoint, MarksAllThreeImagesWithThreeTexts) {
  const SurfaceSite site;
  for (const char* image : {"0", "1", "2"}) {
    const PlayedSession played =
        site.Play(std::string(kTripletPlace) + kTriplet + "marks Picture1(" + image + ")\n");
    const auto points = Lines_With(played, "point ");
    const auto texts = Lines_With(played, "text ");
    ASSERT_EQ(points.size(), 2U);
    ASSERT_EQ(texts.size(), 4U);
    const auto place = Numbers(points[1].substr(6), ' ');
    EXPECT_NE(texts[1].find("\"1.00 443.5\" \"Arial\" 9 bold 225 255 25"), std::string::npos);
    EXPECT_NE(texts[2].find("\"DTM: -99.00 m\" \"Arial\" 13 bold 225 255 25"), std::string::npos);
    EXPECT_NE(texts[3].find("\"H: 542.5 m\" \"Arial\" 13 bold 225 255 25"), std::string::npos);
    const double below[] = {15, 35, 50};
    for (std::size_t line = 0; line < 3; ++line) {
      const auto at = Numbers(texts[line + 1].substr(5), ' ');
      EXPECT_NEAR(at.at(0), place.at(0) + 15, 1e-9);
      EXPECT_NEAR(at.at(1), place.at(1) + below[line], 1e-9);
    }
  }
}

// Image 2 is flat: its correlation is 0 at every height, so that the score of agreement is 1 / 2.
TEST(TripletPoint, OneAgreeingImageIsNotEnoughWhereThePairPasses) {
  const SurfaceSite site;
  site.Write_Image(2, 0, [](int, int) { return std::uint8_t{80}; });
  const PlayedSession played =
      site.Play(std::string(kTripletPlace) + kTriplet +
                "print ObservationRecord.Rmse\nmarks Picture1(2)\n" + kPairPlace + kPair);
  ASSERT_EQ(played.status, 0);
  EXPECT_EQ(Printed(played, "ObservationRecord.Rmse"), "0.5");
  EXPECT_FALSE(site.Has("c/temp/FotoKork_Asfalttitie.nod"));
  EXPECT_EQ(site.Lines("c/temp/maa.nod").size(), 1U);
  // The marks come whatever the score.
  EXPECT_EQ(Lines_With(played, "text ").size(), 4U);
}

TEST(TripletPoint, BestScoreAtTheLastHeightIsAccepted) {
  // 435.5 + 8 is the first height at which both images agree.
  const SurfaceSite site;
  const PlayedSession played =
      site.Play(std::string(kTripletPlace) + kTriplet + "print Label4(2)\n", 435.5);
  EXPECT_EQ(Printed(played, "Label4(2)"), "443.50");
  EXPECT_EQ(site.Lines("c/temp/FotoKork_Asfalttitie.nod").size(), 1U);
}

TEST(TripletPoint, BestScoreAtTheFirstHeightIsAccepted) {
  // 454.4 - 8 is the last height at which both images agree.
  const SurfaceSite site;
  const PlayedSession played =
      site.Play(std::string(kTripletPlace) + kTriplet + "print Label4(2)\n", 454.4);
  EXPECT_EQ(Printed(played, "Label4(2)"), "446.40");
  EXPECT_EQ(site.Lines("c/temp/FotoKork_Asfalttitie.nod").size(), 1U);
}

TEST(TripletPoint, NamesTheImageThatIsMissing) {
  SurfaceSite site;
  site.Forget_Images_From(2);
  const PlayedSession played = site.Play(std::string(kTripletPlace) + "try " + kTriplet);
  EXPECT_NE(Lines_With(played, "error ").at(0).find("image 2 is needed, the block holds 2"),
            std::string::npos);
}

TEST(TripletPoint, AClickInTheSecondPaneMeasuresAtOnce) {
  const SurfaceSite site;
  ASSERT_EQ(site.Play("menu Measure_Triplet\nmenu Center_to_xyz_click\nclick Picture1(1) 150 150\n")
                .status,
            0);
  EXPECT_EQ(site.Lines("c/temp/FotoKork_Asfalttitie.nod").size(), 1U);
}

}  // namespace
}  // namespace sylvomex
