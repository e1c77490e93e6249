// SPDX-License-Identifier: MIT
#include "interchange/site_survey.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "interchange/image_import.h"
#include "interchange/site.h"
#include "interchange/survey_map.h"
#include "support/photo_site.h"

namespace sylvomex {
namespace {

/// How often a part stands in a text.
int Count_Of(const std::string& text, const std::string& part) {
  int found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++found;
  }
  return found;
}

/// Two vertical photographs 100 m above flat ground at 150 m, 400 x 300 pixels of 0.1 m; the second
/// stands 30 m farther east.
class SurveySite : public testing::Test {
 protected:
  SurveySite() {
    Init_Site(site_.Path(), "EPSG:3067");
    ImageImportSettings settings;
    std::vector<TablePhoto> photos(2);
    for (std::size_t i = 0; i < 2; ++i) {
      photos[i].name = i == 0 ? "a<b" : "second";
      photos[i].centre = {385000 + 30.0 * static_cast<double>(i), 6672000, 250};
      settings.files.push_back(Write_Tiff(source_, photos[i].name + ".tif", 400, 300, 1, GDT_Byte,
                                          Mixed_Values(400, 300, 1)));
    }
    settings.site = site_.Path();
    settings.table = source_.Write("t.csv", Plain_Table(photos)).native;
    Import_Images(settings);
  }

  /// A flat model of 60 x 60 cells of 2 m around the first photograph, one cell without data.
  void Write_Terrain() {
    const Point3D middle = Open_Site(site_.Path()).Working({385000, 6672000, 0});
    std::vector<float> cells(3600, 150.0F);
    cells[0] = -9999;
    std::string bytes(cells.size() * sizeof(float), '\0');
    std::memcpy(bytes.data(), cells.data(), bytes.size());
    site_.Write("c/data/models/dem.raw", bytes);
    site_.Write("c/data/models/dem.hdr", "60\n60\n" + std::to_string(middle.X - 59) + "\n" +
                                             std::to_string(middle.Y - 58) +
                                             "\n2\n0\nc:\\data\\models\\dem.raw\n");
  }

  TemporaryFolder site_;
  TemporaryFolder source_;
};

TEST_F(SurveySite, FootprintsLieAtTheHeightOfTheTerrain) {
  Write_Terrain();
  const SiteSurvey survey = Survey_Site(Open_Site(site_.Path()));
  ASSERT_EQ(survey.images.size(), 2U);
  const SurveyedImage& image = survey.images[0];
  EXPECT_EQ(image.name, "a<b");
  ASSERT_TRUE(image.has_footprint);
  EXPECT_NEAR(image.ground_pixel, 0.1, 1e-9);
  EXPECT_NEAR(image.corners[0].X, 385000 - 20, 1e-6);  // upper left
  EXPECT_NEAR(image.corners[0].Y, 6672000 + 15, 1e-6);
  EXPECT_NEAR(image.corners[2].X, 385000 + 20, 1e-6);  // lower right
  EXPECT_NEAR(image.corners[2].Y, 6672000 - 15, 1e-6);
  EXPECT_EQ(image.terrain->mean, 150);
  // 40 m wide and 30 m apart: a quarter is shown by both.
  EXPECT_NEAR(image.overlap, 0.25, 1e-9);
  EXPECT_EQ(image.neighbours, 1);
}

TEST_F(SurveySite, ModelsAreToldByTheirOuterBorders) {
  Write_Terrain();
  const SiteSurvey survey = Survey_Site(Open_Site(site_.Path()));
  ASSERT_EQ(survey.models.size(), 1U);
  EXPECT_NEAR(survey.models[0].west, 385000 - 60, 1e-6);
  EXPECT_NEAR(survey.models[0].east, 385000 + 60, 1e-6);
  EXPECT_NEAR(survey.models[0].south, 6672000 - 60, 1e-6);
  EXPECT_EQ(survey.models[0].without_data, 1U);
  EXPECT_EQ(survey.models[0].heights.low, 150);
}

TEST_F(SurveySite, LidarIsComparedWithTheTerrain) {
  Write_Terrain();
  // Three pulses of 2004 with last echoes 0.5 m and 1.5 m above the ground in two squares of 5 m,
  // and a higher one in the first square.
  const Point3D at = Open_Site(site_.Path()).Working({385002, 6672002, 0});
  std::string tile(4 + 3 * 100, '\0');
  const std::int32_t count = 3;
  std::memcpy(tile.data(), &count, 4);
  const double X[] = {at.X, at.X, at.X + 10};
  const float Z[] = {150.5F - 0.18F, 160, 151.5F - 0.18F};
  for (std::size_t i = 0; i < 3; ++i) {
    char* const record = tile.data() + 4 + 100 * i;
    std::memcpy(record + 72, &X[i], 8);
    std::memcpy(record + 80, &at.Y, 8);
    std::memcpy(record + 88, &Z[i], 4);
  }
  site_.Write("c/data/als2004_path.hdr", "c:\\data\\als2004\\\n");
  site_.Write("c/data/als2004/" + Tile_Name("", Campaign::Als2004, at.X, at.Y), tile);
  const SiteSurvey survey = Survey_Site(Open_Site(site_.Path()));
  ASSERT_EQ(survey.campaigns.size(), 1U);
  const SurveyedCampaign& campaign = survey.campaigns[0];
  EXPECT_EQ(campaign.pulses, 3);
  EXPECT_DOUBLE_EQ(campaign.pulses_a_square_metre, 3.0 / 10000);
  EXPECT_EQ(campaign.missing_tiles, 0);
  EXPECT_EQ(campaign.compared, 2U);
  EXPECT_NEAR(campaign.mean_difference, 1, 1e-4);
  EXPECT_NEAR(campaign.rms_difference, std::sqrt((0.25 + 2.25) / 2), 1e-4);
}

TEST_F(SurveySite, AFileThatCannotBeReadIsToldAndTheRestStands) {
  site_.Write("c/data/models/dem.hdr", "60\n");
  site_.Write("c/data/images/zero.hdr", "no header");
  const SiteSurvey survey = Survey_Site(Open_Site(site_.Path()));
  EXPECT_EQ(survey.faults.size(), 2U);
  EXPECT_EQ(survey.images.size(), 2U);
  EXPECT_NE(Survey_Text(survey).find("zero.hdr"), std::string::npos);
}

TEST_F(SurveySite, ThePageHasAMapAndNoForeignTags) {
  const std::string page = Survey_Html(Survey_Site(Open_Site(site_.Path())));
  EXPECT_NE(page.find("<svg"), std::string::npos);
  EXPECT_NE(page.find("a&lt;b"), std::string::npos);
  EXPECT_EQ(page.find("a<b"), std::string::npos);
}

TEST_F(SurveySite, TheMapMarksNoTilesBetweenDistantPlaces) {
  SiteSurvey survey;
  SurveyedCampaign campaign;
  campaign.tiles = {{385000, 6672000, 20000}, {435000, 6722000, 20000}};
  survey.campaigns = {campaign, SurveyedCampaign{}};
  const std::string map = Survey_Map(survey);
  EXPECT_EQ(map.find("no tile"), std::string::npos);
  EXPECT_LT(map.size(), 20000U);
}

TEST_F(SurveySite, TheMapTellsGapsMissingTilesAndRoundCoordinates) {
  Write_Terrain();
  SiteSurvey survey = Survey_Site(Open_Site(site_.Path()));
  // One cell of 2 m without data, the south-western one.
  ASSERT_EQ(survey.models[0].gaps.size(), 1U);
  const MapRectangle& gap = survey.models[0].gaps[0];
  EXPECT_NEAR(gap.west, 385000 - 60, 1e-6);
  EXPECT_NEAR(gap.south, 6672000 - 60, 1e-6);
  EXPECT_NEAR(gap.east - gap.west, 2, 1e-6);
  EXPECT_NEAR(gap.north - gap.south, 2, 1e-6);
  // Three tiles of a square of four; one has half as many pulses as the others.
  SurveyedCampaign campaign;
  campaign.tiles = {{385000, 6672000, 20000}, {385100, 6672000, 20000}, {385000, 6672100, 10000}};
  survey.campaigns.push_back(campaign);
  const std::string map = Survey_Map(survey);
  const auto count = [&](const std::string& part) { return Count_Of(map, part); };
  EXPECT_EQ(count("no tile"), 1);
  EXPECT_EQ(count("dem: no data"), 1);
  EXPECT_EQ(count("20000 pulses, 2.00 a square metre"), 2);
  EXPECT_EQ(count("fill-opacity=\"0.60\""), 2);  // the densest
  EXPECT_EQ(count("fill-opacity=\"0.35\""), 1);  // half as dense
  // 260 m of ground, 60 m of it west of 385000, on 800 pixels: 50 m lie 154 pixels apart.
  EXPECT_EQ(count(">385100</text>"), 1);
  EXPECT_EQ(count(">6672150</text>"), 1);
  EXPECT_EQ(count(">385110</text>"), 0);
  EXPECT_EQ(count(">50 m</text>"), 1);
}

/// The texts of a map, as boxes of letters that are narrower and lower than usual.
std::vector<std::array<double, 4>> Boxes_Of_Texts(const std::string& map) {
  constexpr double kLetter = 5.5, kHeight = 9;
  std::vector<std::array<double, 4>> boxes;
  for (std::size_t at = map.find("<text"); at != std::string::npos;
       at = map.find("<text", at + 1)) {
    double x = 0, y = 0;
    std::array<char, 16> anchor{};
    std::array<char, 80> words{};
    EXPECT_EQ(
        std::sscanf(map.c_str() + at, R"(<text x="%lf" y="%lf" text-anchor="%15[a-z]">%79[^<])", &x,
                    &y, anchor.data(), words.data()),
        4);
    const double wide = kLetter * static_cast<double>(std::strlen(words.data()));
    const std::string side = anchor.data();
    const double left = side == "end" ? x - wide : side == "middle" ? x - wide / 2 : x;
    boxes.push_back({left, y - kHeight, left + wide, y});
  }
  return boxes;
}

SurveyedImage Image_At(const std::string& name, double X, double Y) {
  SurveyedImage image;
  image.name = name;
  image.centre = {X, Y, 1000};
  return image;
}

void Expect_Texts_Apart_And_Inside(const std::string& map) {
  double width = 0;
  ASSERT_EQ(std::sscanf(map.c_str(), "<svg xmlns=%*s width=\"%lf\"", &width), 1);
  const auto boxes = Boxes_Of_Texts(map);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    EXPECT_GE(boxes[i][0], 0);
    EXPECT_LE(boxes[i][2], width);
    for (std::size_t k = 0; k < i; ++k) {
      const bool apart = boxes[i][0] >= boxes[k][2] || boxes[k][0] >= boxes[i][2] ||
                         boxes[i][1] >= boxes[k][3] || boxes[k][1] >= boxes[i][3];
      EXPECT_TRUE(apart) << i << " and " << k;
    }
  }
}

// On 800 pixels for 1000 m; the third name has no room to the right of its photograph, the first
// stands below the line of the coordinates.
TEST(SurveyMap, TheNamesOfPhotographsStandApartAndInside) {
  SiteSurvey survey;
  survey.images = {Image_At("flight_12_2004_0001", 385010, 6672990),
                   Image_At("flight_12_2004_0002", 385500, 6672400),
                   Image_At("flight_12_2004_0003", 386000, 6672400),
                   Image_At("flight_12_2004_0004", 385000, 6672000)};
  const std::string map = Survey_Map(survey);
  EXPECT_EQ(Count_Of(map, ">flight_12_2004_000"), 8) << "a label and a tip each";
  Expect_Texts_Apart_And_Inside(map);
}

TEST(SurveyMap, OfManyPhotographsNamesThatWouldMeetAreTipsAlone) {
  SiteSurvey survey;
  for (int k = 0; k < 400; ++k) {
    survey.images.push_back(
        Image_At("frame_" + std::to_string(1000 + k), 385000 + 10.0 * (k % 20), 6672000 + k / 20));
  }
  const std::string map = Survey_Map(survey);
  EXPECT_EQ(Count_Of(map, "<title>frame_"), 400);
  EXPECT_GT(Count_Of(map, "</text>"), 10);
  Expect_Texts_Apart_And_Inside(map);
}

// A strip from south to north: 16 pixels of ground and the margins.
TEST(SurveyMap, ANarrowSiteHasRoomForItsScaleBar) {
  SiteSurvey survey;
  survey.images = {Image_At("a", 385000, 6672000), Image_At("b", 385100, 6677000)};
  const std::string map = Survey_Map(survey);
  Expect_Texts_Apart_And_Inside(map);
  EXPECT_EQ(Count_Of(map, ">1000 m</text>"), 1);
}

TEST_F(SurveySite, FootprintsDoNotCoverTheLidarTiles) {
  const std::string map = Survey_Map(Survey_Site(Open_Site(site_.Path())));
  EXPECT_EQ(Count_Of(map, "<polygon"), 2);
  EXPECT_EQ(Count_Of(map, "fill=\"none\" stroke=\"#2060c0\""), 2);
}

// A browser with a dark ground and light letters, and a narrow one.
TEST_F(SurveySite, ThePageFollowsTheLookAndTheWidthOfTheBrowser) {
  Write_Terrain();
  const std::string page = Survey_Html(Survey_Site(Open_Site(site_.Path())));
  EXPECT_EQ(Count_Of(page, "color-scheme:light dark"), 1);
  EXPECT_EQ(Count_Of(page, "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>"), 1)
      << "the map keeps its own ground";
  EXPECT_EQ(Count_Of(page, "div{overflow-x:auto}"), 1);
  EXPECT_EQ(Count_Of(page, "<div><svg "), 1);
  EXPECT_EQ(Count_Of(page, "<div><table>"), Count_Of(page, "<table>"));
  EXPECT_EQ(Count_Of(page, "</table></div>"), Count_Of(page, "<table>"));
}

TEST(SurveyOfAnEmptySite, HasNoMap) {
  const TemporaryFolder folder;
  Init_Site(folder.Path(), "EPSG:3067");
  const SiteSurvey survey = Survey_Site(Open_Site(folder.Path()));
  EXPECT_EQ(Survey_Html(survey).find("<svg"), std::string::npos);
}

}  // namespace
}  // namespace sylvomex
