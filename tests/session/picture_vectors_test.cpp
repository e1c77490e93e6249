// SPDX-License-Identifier: MIT
#include "session/picture_vectors.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/run_time_error.h"
#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

TEST(ScaleBar, IsOneTwoOrFiveTimesAPowerOfTen) {
  // A quarter of 600 pixels holds 150 m, 30 m, 7.5 m and 0.15 m at these scales.
  EXPECT_EQ(Scale_Bar_For(1, 600).metres, 100);
  EXPECT_EQ(Scale_Bar_For(5, 600).metres, 20);
  EXPECT_EQ(Scale_Bar_For(20, 600).metres, 5);
  EXPECT_NEAR(Scale_Bar_For(1000, 600).metres, 0.1, 1e-12);
  EXPECT_EQ(Scale_Bar_For(5, 600).pixels, 100);
  EXPECT_EQ(Scale_Bar_For(5, 600).Text(), "20 m");
}

TEST(PictureVectors, EndingsAskForThem) {
  EXPECT_TRUE(Is_Vector_File("a.svg"));
  EXPECT_TRUE(Is_Vector_File("a.PDF"));
  EXPECT_FALSE(Is_Vector_File("a.png"));
  EXPECT_FALSE(Is_Vector_File("svg"));
}

struct SavedPane : testing::Test {
  SmallSite site;
  const TemporaryFolder& folder = site.Folder();

  std::string Script(const std::string& file) {
    SmallImage image;
    const std::string header = site.Write_Image("a", image);
    return "file " + header +
           "\nmenu Add_images_to_set\ninput 0\ninput 0\ninput 100\nmenu Set_3D_solution\n"
           "click Picture1(0) 100 100\nsave Picture1(0) " +
           (folder.Path() / file).string() + "\n";
  }
};

TEST_F(SavedPane, IsAnSvgOfShapesWithAScaleBar) {
  const PlayedSession played = Play_Script(folder, Script("pane.svg"));
  ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
  const std::string svg = folder.Read("pane.svg");
  EXPECT_EQ(svg.rfind("<?xml", 0), 0U);
  EXPECT_NE(svg.find("<image"), std::string::npos);
  EXPECT_NE(svg.find("<path"), std::string::npos);
  EXPECT_NE(svg.find("</svg>"), std::string::npos);
}

TEST_F(SavedPane, IsAPdf) {
  const PlayedSession played = Play_Script(folder, Script("pane.pdf"));
  ASSERT_EQ(played.status, 0) << played.reason << played.transcript;
  const std::string pdf = folder.Read("pane.pdf");
  EXPECT_EQ(pdf.rfind("%PDF-", 0), 0U);
  EXPECT_NE(pdf.find("%%EOF"), std::string::npos);
}

TEST_F(SavedPane, AFileThatCannotBeWrittenFailsTheStep) {
  EXPECT_EQ(Play_Script(folder, Script("none/pane.svg")).status, 1);
}

TEST(PictureVectors, APictureWithoutASizeIsRefused) {
  EXPECT_THROW(Save_Picture_Vectors(Picture{}, std::nullopt, "a.svg"), RunTimeError);
}

}  // namespace
}  // namespace sylvomex
