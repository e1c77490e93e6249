// SPDX-License-Identifier: MIT
#include "commands/imageblock/image_set.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

std::string Add(const std::string& header) {
  return "file " + header + "\nmenu Add_images_to_set\n";
}

const char* const kDialogLine =
    "file title=\"Header file for an image\" filter=\"Set files (*.hdr)|*.hdr\" folder=\"\" -> ";

TEST(AddImage, ShowsTheImageAroundItsStartPosition) {
  SmallSite site;
  SmallImage image;
  image.X0 = 2515000.25;
  image.Y0 = 6860000.5;
  const PlayedSession played = Play_Script(
      site.Folder(), Add(site.Write_Image("a", image)) +
                         "print ImageCount\nprint PaneViews(0)\nprint Label10\n"
                         "print PanCenter\nprint DefaultPanCenter\nprint ImageKinds(0)\n"
                         "print Check1(0).Caption\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  // Side 944; first = 500 - 472 + 1.
  EXPECT_EQ(played.transcript, std::string(kDialogLine) +
                                   "\"c:\\data\\a.hdr\"\nImageCount = 1\n"
                                   "PaneViews(0) = 29 29 944 944 1 1\nLabel10 = 1/1 images read\n"
                                   "PanCenter = 2515005.25 6860002.5 200\n"
                                   "DefaultPanCenter = 2515005.25 6860002.5 200\n"
                                   "ImageKinds(0) = 1\nCheck1(0).Caption = Use: 1\n");
}

TEST(AddImage, WritesTheScratchBitmapByteByByte) {
  SmallSite site;
  Play_Script(site.Folder(), Add(site.Write_Image("a", {})));
  const std::string bmp = site.Folder().Read("c/data/pic0.bmp");
  ASSERT_EQ(bmp.size(), 54U + 3 * 944 * 944);
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bmp[i]); };
  const auto int32 = [&](std::size_t i) {
    return static_cast<std::int32_t>(byte(i) | byte(i + 1) << 8 | byte(i + 2) << 16 |
                                     static_cast<unsigned>(byte(i + 3)) << 24);
  };
  EXPECT_EQ(bmp.substr(0, 2), "BM");
  EXPECT_EQ(int32(2), 3 * 944 * 944);  // the header bytes are not counted
  EXPECT_EQ(int32(10), 54);
  EXPECT_EQ(int32(18), 944);
  EXPECT_EQ(int32(22), -944);
  // Pane (10, 20) shows raw (39, 49): blue 7, green 49, red 39.
  const std::size_t pixel = 54 + 3 * (20 * 944 + 10);
  EXPECT_EQ(byte(pixel), 7);
  EXPECT_EQ(byte(pixel + 1), 49);
  EXPECT_EQ(byte(pixel + 2), 39);
}

TEST(AddImage, PanCentreFollowsImageZeroOnlyWithoutASolution) {
  SmallSite site;
  SmallImage second;
  second.X0 = 77;
  const std::string add_two =
      Add(site.Write_Image("a", {})) + "menu Open_Options_Window\nset Form2.Text14 123\n" +
      "menu Form2.Apply\nexpect PanCenter \"123 2 200\"\n" + Add(site.Write_Image("b", second));
  PlayedSession played = Play_Script(site.Folder(), add_two + "expect PanCenter \"5 2 200\"\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  played = Play_Script(
      site.Folder(),
      "input 0\ninput 0\ninput 0\nmenu Set_3D_solution\n" + Add("c:\\data\\a.hdr") +
          "expect PanCenter \"0 0 0\"\nexpect Label10 \"Images centered to given XYZ\"\n");
  EXPECT_EQ(played.status, 0) << played.reason;
}

TEST(AddImage, WidthOf32768PassesTheCheckAndOneMoreWarns) {
  SmallSite site;
  SmallImage image;
  site.Write_Image("a", image);
  image.width = 32768;
  image.height = 32769;
  site.Folder().Write("c/data/a.hdr", SmallSite::Header_Text(image, "c:\\data\\a.raw"));
  const PlayedSession played = Play_Script(site.Folder(),
                                           "file c:\\data\\a.hdr\n"
                                           "try menu Add_images_to_set\n");
  EXPECT_EQ(played.transcript.find("width"), std::string::npos);
  EXPECT_NE(played.transcript.find("message \"Image (0-(N-1)): 0Parameter: Sub-image "
                                   "height:32769 in set file?\""),
            std::string::npos)
      << played.transcript;
}

TEST(AddImage, AColourFlagAboveOneWarnsAndLoadsTheOldBitmap) {
  SmallSite site;
  SmallImage image;
  site.Write_Image("a", image);
  Play_Script(site.Folder(), Add("c:\\data\\a.hdr"));  // leaves pic0.bmp
  image.colour = 2;
  site.Folder().Write("c/data/a.hdr", SmallSite::Header_Text(image, "c:\\data\\a.raw"));
  const PlayedSession played =
      Play_Script(site.Folder(), Add("c:\\data\\a.hdr") + "print ImageCount\n");
  EXPECT_EQ(played.status, 0) << played.transcript;
  EXPECT_NE(played.transcript.find("message \"Image (0-(N-1)): 0Parameter: image color:2 in set "
                                   "file should be 1 (color) or 0 (grayscale)?\""),
            std::string::npos);
  EXPECT_NE(played.transcript.find("ImageCount = 1\n"), std::string::npos);
}

TEST(AddImage, StaysWithoutAPictureWhenTheValidationOnlyWarns) {
  SmallSite site;
  SmallImage image;
  image.colour = 2;
  const std::string header = site.Write_Image("a", image);
  const PlayedSession without = Play_Script(
      site.Folder(), "file " + header +
                         "\ntry menu Add_images_to_set\nexpect ImageCount 1\n"
                         "expect Picture1(0).Visible -1\nexpect ImageBlock(0).ImageId 1\n");
  EXPECT_EQ(without.status, 0) << without.reason;
  const std::string warning =
      "message \"Image (0-(N-1)): 0Parameter: image color:2 in set file should be 1 (color) or 0 "
      "(grayscale)?\" title=\"\" buttons=ok -> ok\n";
  EXPECT_EQ(without.transcript,
            std::string(kDialogLine) + "\"c:\\data\\a.hdr\"\n" + warning +
                "error Add_images_to_set \"File not found: image 0 stays without a picture: "
                "c:\\data\\pic0.bmp\"\n");
}

TEST(AddImage, StaysWithoutAPictureOnAValidSolutionByBothDialogs) {
  SmallSite site;
  SmallImage image;
  image.colour = 2;
  site.Write_Image("a", image);
  site.Folder().Write("c/data/ImaFiles/hit.txt", "1,c:\\data\\a.hdr,1,2,3\n");
  for (const char* road : {"file c:\\data\\a.hdr\nmenu Add_images_to_set\n",
                           "file c:\\data\\ImaFiles\\hit.txt\nmenu Add_Image_Center_to_XYZ\n"}) {
    const PlayedSession played =
        Play_Script(site.Folder(), "input 1\ninput 2\ninput 3\nmenu Set_3D_solution\nsay add\n" +
                                       std::string(road) + "expect ImageCount 1\n");
    EXPECT_EQ(played.status, 0) << played.reason;
    const std::string told = played.transcript.substr(played.transcript.find("message"));
    EXPECT_EQ(
        told,
        "message \"Image (0-(N-1)): 0Parameter: image color:2 in set file should be 1 (color) "
        "or 0 (grayscale)?\" title=\"\" buttons=ok -> ok\n"
        "message \"An error occurred in sub Center_to_xyz_Click() \" title=\"\" buttons=ok -> "
        "ok\n");
  }
}

TEST(AddImage, TheTenthImagePassesTheLimitTestAndFailsOnTheNinePanes) {
  SmallSite site;
  const std::string header = site.Write_Image("a", {});
  std::string script;
  for (int k = 0; k < 9; ++k) script += Add(header);
  script += "expect ImageCount 9\nfile " + header + "\ntry menu Add_images_to_set\n" +
            "expect ImageCount 10\nfile " + header + "\nmenu Add_images_to_set\n";
  const PlayedSession played = Play_Script(site.Folder(), script);
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_NE(played.transcript.find("error Add_images_to_set \"Subscript out of range"),
            std::string::npos)
      << played.transcript;
  EXPECT_NE(played.transcript.find("message \"At the moment cannot allow more than 9 images (three "
                                   "rows of Picture-boxes to hold the images!)\""),
            std::string::npos);
}

const char* const kSetSolution = "input 1\ninput 2\ninput 3\nmenu Set_3D_solution\n";

const char* const kBlockOfOneImage =
    "expect ImageCount 1\nexpect PaneWidth 944\nexpect Picture1(0).Width 948\n"
    "expect Picture1(1).Visible 0\nexpect ImageBlock(1).ImageId 0\n"
    "expect ImageBlock(1).SubWidth 0\nexpect PaneViews(1) \"0 0 0 0 0 0\"\n";

// Effect of an invalid file, with and without a solution and through both dialogs: one message with
// its cause, and an unchanged block.
void Expect_Refused(const SmallSite& site, const std::string& message,
                    const std::string& warnings = "") {
  site.Folder().Write("c/data/ImaFiles/hit.txt", "1,c:\\data\\bad.hdr,1,2,3\n");
  for (const std::string solution : {"", kSetSolution}) {
    for (const std::string& road :
         {std::string("file c:\\data\\bad.hdr\nsay road\ntry menu Add_images_to_set\n"),
          std::string(
              "file c:\\data\\ImaFiles\\hit.txt\nsay road\ntry menu Add_Image_Center_to_XYZ\n")}) {
      const PlayedSession played = Play_Script(
          site.Folder(), Add("c:\\data\\good.hdr") + solution + "input 0\nmenu Remove_an_image\n" +
                             Add("c:\\data\\good.hdr") + "print Label10\n" + road +
                             "print Label10\n" + kBlockOfOneImage);
      EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
      const std::string& text = played.transcript;
      const std::size_t label = text.find("Label10 = ");
      const std::size_t told = text.find("file title", label);
      const std::size_t cause = text.find('\n', told) + 1;
      ASSERT_EQ(text.substr(cause, warnings.size()), warnings) << text;
      const std::size_t error = cause + warnings.size();
      EXPECT_TRUE(text.substr(error).starts_with("error Add_")) << text;
      EXPECT_TRUE(text.substr(text.find('"', error) + 1).starts_with(message)) << text;
      // No second message follows, and the status line keeps its text.
      EXPECT_EQ(text.substr(text.find('\n', error) + 1),
                text.substr(label, text.find('\n', label) - label + 1));
    }
  }
}

class BadHeader : public testing::Test {
 protected:
  BadHeader() {
    text_ = SmallSite::Header_Text({}, (site_.Write_Image("good", {}), "c:\\data\\good.raw"));
  }
  void Write(const std::string& text) { site_.Folder().Write("c/data/bad.hdr", text); }
  SmallSite site_;
  std::string text_;
};

TEST_F(BadHeader, Missing) { Expect_Refused(site_, "File not found: c:\\data\\bad.hdr"); }

TEST_F(BadHeader, Empty) {
  Write("");
  Expect_Refused(site_, "Input past end of file: c:\\data\\bad.hdr, line 1, item 1");
}

TEST_F(BadHeader, Truncated) {
  Write("7\n100\n");
  Expect_Refused(site_, "Input past end of file: c:\\data\\bad.hdr, line 3, item 3");
}

TEST_F(BadHeader, TextInPlaceOfANumber) {
  Write("7\n100 wide\n");
  Expect_Refused(site_,
                 "Type mismatch: c:\\data\\bad.hdr, line 2, item 3: \"\"wide\"\" is not a "
                 "number");
}

TEST_F(BadHeader, SixteenBitFieldOutOfRange) {
  SmallImage image;
  image.full_width = 70000;
  Write(SmallSite::Header_Text(image, "c:\\data\\good.raw"));
  Expect_Refused(site_, "Overflow: c:\\data\\bad.hdr, line 10, item 10: 70000");
}

TEST_F(BadHeader, MissingRawFile) {
  Write(SmallSite::Header_Text({}, "c:\\data\\none.raw"));
  Expect_Refused(site_, "File not found: c:\\data\\none.raw");
}

TEST_F(BadHeader, RawFileShorterThanTheHeaderStates) {
  SmallImage image;
  image.height = 2000;
  Write(SmallSite::Header_Text(image, "c:\\data\\good.raw"));
  Expect_Refused(site_, "Input past end of file: c:\\data\\good.raw");
}

TEST_F(BadHeader, NoRawFileNamed) {
  Write(SmallSite::Header_Text({}, ""));
  Expect_Refused(site_, "Bad content: c:\\data\\bad.hdr, line 4, item 4: no raw file is named");
}

const char* const kPanTooLarge =
    "message \"Pan window is too large\" title=\"\" buttons=ok -> ok\n";

std::string Size_Warning(const std::string& side, const std::string& value) {
  return "message \"Image (0-(N-1)): 1Parameter: Sub-image " + side + ":" + value +
         " in set file?\" title=\"\" buttons=ok -> ok\n";
}

// An image with a validation warning, through both dialogs, with and without a solution, after a
// valid one: it stays, and every later command gives at most a message.
void Expect_Kept(const SmallSite& site, const std::string& told) {
  site.Folder().Write("c/data/ImaFiles/hit.txt", "1,c:\\data\\bad.hdr,1,2,3\n");
  const std::string later =
      "say later\nexpect ImageCount 2\nexpect Picture1(1).Visible -1\n"
      "expect ImageBlock(1).ImageId 1\nclick Picture1(1) 10 10\nclick Picture1(1) 20 20 shift\n"
      "click Picture1(1) 20 20 ctrl\nclick Picture1(1) 20 20 alt\nclick Picture1(0) 20 20\n"
      "menu Center_To_Sub_c_click\nmenu Center_to_pan_center_click\nmenu Center_to_xyz_click\n"
      "input 1\ninput 1\nmenu Center_To_Q\ntry menu Capture_templates\nmenu Point_Intersection\n"
      "menu Clear_all\ninput 1\nmenu Remove_an_image\nexpect ImageCount 1\n";
  for (const std::string solution : {"", kSetSolution}) {
    for (const std::string& road :
         {std::string("file c:\\data\\bad.hdr\nsay road\ntry menu Add_images_to_set\n"),
          std::string("file c:\\data\\ImaFiles\\hit.txt\nsay road\n"
                      "try menu Add_Image_Center_to_XYZ\n")}) {
      const PlayedSession played =
          Play_Script(site.Folder(), Add("c:\\data\\good.hdr") + solution + road + later);
      EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
      const std::string& text = played.transcript;
      const std::size_t first = text.find('\n', text.find("file title", text.find("say road"))) + 1;
      EXPECT_EQ(text.substr(first, told.size()), told) << text;
    }
  }
}

TEST_F(BadHeader, NoColumnsStayWithoutAPicture) {
  SmallImage image;
  image.width = 0;
  Write(SmallSite::Header_Text(image, "c:\\data\\good.raw"));
  Expect_Kept(site_, kPanTooLarge);
}

TEST_F(BadHeader, NegativeRowsWarnAndStayWithoutAPicture) {
  SmallImage image;
  image.height = -5;
  Write(SmallSite::Header_Text(image, "c:\\data\\none.raw"));
  Expect_Kept(site_, Size_Warning("height", "-5") + kPanTooLarge);
}

TEST_F(BadHeader, NegativeSidesWarnAndStayWithoutAPicture) {
  SmallImage image;
  image.width = -1000;
  image.height = -1000;
  Write(SmallSite::Header_Text(image, "c:\\data\\good.raw"));
  Expect_Kept(site_,
              Size_Warning("width", "-1000") + Size_Warning("height", "-1000") + kPanTooLarge);
}

TEST_F(BadHeader, ABillionColumnsWarnAndStay) {
  SmallImage image;
  image.width = 1000000000;
  Write(SmallSite::Header_Text(image, "c:\\data\\good.raw"));
  Expect_Kept(site_, Size_Warning("width", "1000000000"));
}

TEST_F(BadHeader, AnUnknownColourWithoutARawFileWarnsAndStays) {
  SmallImage image;
  image.colour = 2;
  Write(SmallSite::Header_Text(image, "c:\\data\\none.raw"));
  Expect_Kept(site_,
              "message \"Image (0-(N-1)): 1Parameter: image color:2 in set file should be 1 "
              "(color) or 0 (grayscale)?\" title=\"\" buttons=ok -> ok\n");
}

TEST_F(BadHeader, AnImageWithoutPixelsIsCompletedWithoutASolution) {
  SmallImage image;
  image.width = -3;
  image.X0 = 100;
  Write(SmallSite::Header_Text(image, "c:\\data\\good.raw"));
  const PlayedSession played =
      Play_Script(site_.Folder(), Add("c:\\data\\bad.hdr") +
                                      "expect Label10 \"1/1 images read\"\n"
                                      "expect PanCenter \"105 2 200\"\nmarks Picture1(0)\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_FALSE(site_.Folder().Has("c/data/pic0.bmp"));
}

TEST_F(BadHeader, AnImageWithoutPixelsLeavesThePicturesOfLaterPanes) {
  SmallImage image;
  image.width = -3;
  Write(SmallSite::Header_Text(image, "c:\\data\\none.raw"));
  // 997 m below the camera: col 500 + 100 / 9.97, raw row 500 - 200 / 9.97; first = 510 - 300 + 1.
  const PlayedSession played = Play_Script(
      site_.Folder(), Add("c:\\data\\bad.hdr") + Add("c:\\data\\good.hdr") + kSetSolution +
                          "menu Center_to_xyz_click\nexpect Label10 \"Images centered to given "
                          "XYZ\"\nexpect PaneViews(1) \"211 181 600 600 1 1\"\n");
  EXPECT_EQ(played.status, 0) << played.reason << played.transcript;
}

TEST(AddImage, ADismissedDialogEndsQuietly) {
  SmallSite site;
  const PlayedSession played =
      Play_Script(site.Folder(), "cancel\nmenu Add_images_to_set\nexpect ImageCount 0\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(played.transcript, std::string(kDialogLine) + "cancel\n");
}

TEST(AddImage, AHeaderChosenWithoutItsExtensionOrByItsNativePathGetsADriveName) {
  SmallSite site;
  site.Write_Image("a", {});
  PlayedSession played = Play_Script(site.Folder(), Add("c:\\data\\a") + "expect ImageCount 1\n");
  EXPECT_EQ(played.status, 0) << played.reason;
  std::filesystem::remove(site.Folder().Path() / "c/data/a.hdr");
  const std::string native = (site.Folder().Path() / "c/data/a.hdr").string();
  played = Play_Script(site.Folder(), "file " + native + "\ntry menu Add_images_to_set\n");
  EXPECT_NE(played.transcript.find("\"File not found: c:\\data\\a.hdr\""), std::string::npos)
      << played.transcript;
}

TEST(Gamma, AtMostOneItemIsChecked) {
  SmallSite site;
  const PlayedSession played =
      Play_Script(site.Folder(),
                  "menu Gamma_2\nexpect Gamma_2 1\nmenu Gamma_5\nexpect Gamma_2 0\n"
                  "expect Gamma_5 1\nmenu Gamma_5\nexpect Gamma_5 0\nexpect Gamma_2 0\n");
  EXPECT_EQ(played.status, 0) << played.reason;
}

TEST(Gamma, AppliesAtTheNextRenderAndNoGammaAfterUnchecking) {
  SmallSite site;
  const std::string add = Add(site.Write_Image("a", {}));
  const auto green_of_49 = [&](const std::string& script) {
    Play_Script(site.Folder(), script);
    return static_cast<unsigned char>(
        site.Folder().Read("c/data/pic0.bmp")[54 + 3 * (20 * 944 + 10) + 1]);
  };
  EXPECT_EQ(green_of_49(add + "menu Gamma_5\n"), 49);  // does not change the picture yet
  // 49^2 x 255 / 255^2 = 9.42.
  EXPECT_EQ(green_of_49(add + "menu Gamma_5\nmenu Center_To_Sub_c_click\n"), 9);
  EXPECT_EQ(green_of_49(add + "menu Gamma_5\nmenu Gamma_5\nmenu Center_To_Sub_c_click\n"), 49);
}

}  // namespace
}  // namespace sylvomex
