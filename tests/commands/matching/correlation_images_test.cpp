// SPDX-License-Identifier: MIT
#include "commands/matching/correlation_images.h"

#include "commands/matching/matching_site.h"

namespace sylvomex {
namespace {

using Texts = std::vector<std::string>;

double Volume_At(MatchingState& m, int image, int col, int row) {
  return m.CorrelationVolume.All()[static_cast<std::size_t>(image + 9 * (col + 1201 * row))];
}

TEST_F(MatchingSite, CorrelationNeedsASolution) {
  w.SolutionValid = false;
  w.Form1.Check1(0).Value = 1;
  Choose("Compute_Correlation_Images");
  EXPECT_EQ(screen.messages, Texts{"Solution X;Y;Z does not exist!"});
  EXPECT_EQ(w.ImageKinds(0), 1);
}

TEST_F(MatchingSite, WithoutATickCorrelationEndsQuietly) {
  Untick_All();
  const std::string status = w.Form1.Label10.Caption;
  Choose("Compute_Correlation_Images");
  EXPECT_TRUE(screen.messages.empty());
  EXPECT_TRUE(screen.errors.empty());
  EXPECT_EQ(w.Form1.Label10.Caption, status);
  EXPECT_EQ(w.ImageKinds(0), 1);
}

TEST_F(MatchingSite, APatchIsCutAroundThePlot) {
  // g = (200 - 2) x 10 / (10^6 x 0.02) = 0.099 m, 21 m are 212 pixels: 301. The plot lies at
  // column 500 + 2000 x 33 / 198 = 833.3, raw row 1000 - 500 - 2000 x 3 / 198 = 469.7.
  Capture();
  Choose("Compute_Correlation_Images");
  EXPECT_EQ(m.PlotRadius, 6);
  EXPECT_EQ(m.PatchSize, 21);
  EXPECT_EQ(Data("ccor_ima0.img"), "301\n301\n");
  const std::string raw = Data("im0.raw");
  const std::string patch = Data("ccor_ima0.raw");
  ASSERT_EQ(patch.size(), 301U * 301);
  EXPECT_EQ(patch[0], raw[(470 - 150) * 1000 + 833 - 150]);
  EXPECT_EQ(patch[300 * 301 + 300], raw[(470 + 150) * 1000 + 833 + 150]);
}

TEST_F(MatchingSite, PatchesOfColourImagesAreMeansOfThreeBytes) {
  Capture();
  Choose("Compute_Correlation_Images");
  // Column 500 + 2000 x 3 / 198 = 530.3; the bytes are grey - 9, grey and grey.
  const std::string raw = Data("im1.raw");
  const auto grey = static_cast<unsigned char>(raw[(320 * 1000 + 380) * 3 + 1]);
  EXPECT_EQ(static_cast<unsigned char>(Data("ccor_ima1.raw")[0]), grey - 3);
}

TEST_F(MatchingSite, TheRecordDescribesThePatchFromTheBottom) {
  Capture();
  Choose("Compute_Correlation_Images");
  const ImageRecord& record = w.CorrelationRecords(0);
  EXPECT_EQ(record.SubColOrigin, 683);
  EXPECT_EQ(record.SubRowOrigin, 1000 - 320);
  EXPECT_EQ(record.RawFileName.Trimmed(), "c:\\data\\ccor_ima0.raw");
  EXPECT_EQ(record.SubWidth, 301);
  EXPECT_EQ(record.Z0, 200);
}

TEST_F(MatchingSite, ThePaneShowsTheCorrelationImageAndItsOwnViewStays) {
  Capture();
  const PaneView before = w.PaneViews(1);
  w.CorrelationPaneViews(1) = {5, 6, 7, 8, 2, 2};
  Choose("Compute_Correlation_Images");
  EXPECT_EQ(w.ImageKinds(1), 2);
  EXPECT_EQ(w.PaneViews(1).ViewCol, before.ViewCol);
  EXPECT_EQ(w.PaneViews(1).ViewWidth, before.ViewWidth);
  const PaneView& view = w.CorrelationPaneViews(1);
  EXPECT_EQ(view.ViewCol, 0);
  EXPECT_EQ(view.ViewRow, 0);
  EXPECT_EQ(view.ViewWidth, 0);
  EXPECT_EQ(view.ViewHeight, 0);
  EXPECT_EQ(view.ZoomX, 1);
  EXPECT_EQ(view.ZoomY, 1);
  const Picture& pane = w.Form1.Picture1(1);
  EXPECT_TRUE(pane.marks.empty());
  ASSERT_NE(pane.bitmap, nullptr);
  EXPECT_EQ(pane.bitmap->width, 301);
  const std::string bytes = Data("corimage1.raw");
  EXPECT_EQ(static_cast<char>(pane.bitmap->bgr[3 * 301 * 7 + 30]), bytes[301 * 7 + 10]);
}

TEST_F(MatchingSite, TheBestCorrelationLiesOnTheModelTreesTop) {
  Capture();
  Choose("Compute_Correlation_Images");
  // The top: column 500 + 2000 x 35 / 189.1, raw row 500 - 2000 x 4 / 189.1.
  const int col = 870 - 683, row = 458 - 320;
  EXPECT_NEAR(Volume_At(m, 0, col, row), 1, 1e-9);
  EXPECT_EQ(
      static_cast<unsigned char>(Data("corimage0.raw")[static_cast<std::size_t>(row * 301 + col)]),
      255);
  EXPECT_EQ(Volume_At(m, 0, 0, 0), 0);  // the template leaves the patch
  EXPECT_EQ(static_cast<unsigned char>(Data("corimage0.raw")[0]), 128);
}

TEST_F(MatchingSite, ThePictureIsAGreyBitmapOfTheBytes) {
  Capture();
  Choose("Compute_Correlation_Images");
  const std::string picture = Data("rkuva0.bmp");
  ASSERT_EQ(picture.size(), 1082U + 304 * 301);
  EXPECT_EQ(picture[1082 + 300 * 304 + 5], Data("corimage0.raw")[5]);  // rows from the bottom
}

TEST_F(MatchingSite, EachImageReportsItsTimeAndServicesEvents) {
  Capture();
  Texts seen;
  screen.on_service = [&] { seen.push_back(w.Form1.Label10.Caption); };
  Choose("Compute_Correlation_Images");
  EXPECT_EQ(seen,
            (Texts{".00 Seconds cross-corr for image: 0", ".00 Seconds cross-corr for image: 1",
                   ".00 Seconds cross-corr for image: 2"}));
}

TEST_F(MatchingSite, OnlyTickedImagesAreCorrelated) {
  Capture();
  w.Form1.Check1(1).Value = 0;
  Choose("Compute_Correlation_Images");
  EXPECT_EQ(w.ImageKinds(0), 2);
  EXPECT_EQ(w.ImageKinds(1), 1);
  EXPECT_FALSE(Has_Data("corimage1.raw"));
}

// Computes the correlation images while an image is removed after the first one's correlation.
class RemovalMeanwhile : public MatchingSite {
 protected:
  void Compute_While_Removing(const char* answer) {
    Capture();
    screen.on_service = [this, answer] {
      screen.on_service = nullptr;
      screen.inputs.emplace_back(answer);
      Choose("Remove_an_image");
    };
    Choose("Compute_Correlation_Images");
    EXPECT_TRUE(screen.errors.empty());
  }
  void Expect_Not_Shown(int image) {
    EXPECT_EQ(w.ImageKinds(image), 1);
    EXPECT_FALSE(Has_Data("corimage" + std::to_string(image) + ".raw"));
    EXPECT_FALSE(Has_Data("rkuva" + std::to_string(image) + ".bmp"));
  }
};

TEST_F(RemovalMeanwhile, TheLastImageIsSkippedAndTheOthersAreDone) {
  Compute_While_Removing("2");
  EXPECT_EQ(w.ImageCount, 2);
  EXPECT_EQ(w.ImageKinds(0), 2);
  EXPECT_EQ(w.ImageKinds(1), 2);
  Expect_Not_Shown(2);
  EXPECT_FALSE(Has_Data("ccor_ima2.raw"));
  EXPECT_EQ(w.Form1.Picture1(2).bitmap, nullptr);
}

TEST_F(RemovalMeanwhile, ImagesThatMovedAreSkippedLikeTheRemovedOne) {
  Compute_While_Removing("0");
  EXPECT_EQ(w.ImageCount, 2);
  for (int k = 0; k < 3; ++k) Expect_Not_Shown(k);
  EXPECT_FALSE(Has_Data("ccor_ima1.raw"));
  EXPECT_FALSE(Has_Data("ccor_ima2.raw"));
  EXPECT_EQ(w.Form1.Label10.Caption, "Removed an image from the set succesfully");
}

TEST_F(RemovalMeanwhile, NothingIsShownInAnEmptyBlock) {
  Compute_While_Removing("100");
  EXPECT_EQ(w.ImageCount, 0);
  for (int k = 0; k < 3; ++k) {
    Expect_Not_Shown(k);
    EXPECT_EQ(w.Form1.Picture1(k).bitmap, nullptr);
  }
  EXPECT_FALSE(Has_Data("ccor_ima1.raw"));
}

TEST_F(MatchingSite, RadiusZeroGivesAPatchOfOnePixel) {
  Capture();
  w.Form1.Text4.Text = "0";
  Choose("Compute_Correlation_Images");
  EXPECT_TRUE(screen.errors.empty());
  EXPECT_EQ(Data("ccor_ima2.img"), "1\n1\n");
  EXPECT_EQ(Data("corimage2.raw"), "\x80");
}

TEST_F(MatchingSite, AtTheRawFilesBorderThePatchIsWhatTheWindowGives) {
  // The plot at X 15: column 500 + 2000 x 45 / 198 = 954.5 in the first image.
  Capture();
  m.PlotCenter.PlotX = 15;
  Choose("Compute_Correlation_Images");
  EXPECT_EQ(Data("ccor_ima0.img"), "302\n301\n");
  EXPECT_EQ(w.CorrelationRecords(0).SubColOrigin, 999 - 301);
  EXPECT_EQ(Data("ccor_ima1.img"), "301\n301\n");
}

TEST_F(MatchingSite, APatchLargerThanTheRawFileIsTheWholeFile) {
  Capture();
  Untick_All();
  w.Form1.Check1(0).Value = 1;
  w.Form1.Text4.Text = "30";  // 105 m are 1061 pixels: 1101
  Choose("Compute_Correlation_Images");
  EXPECT_EQ(screen.messages, Texts{"Pan window is too large"});
  EXPECT_EQ(Data("ccor_ima0.img"), "1000\n1000\n");
}

TEST_F(MatchingSite, ASizeAboveTheSeriesEndsTheCommandForTheFirstImage) {
  Capture();
  w.Form1.Text4.Text = "400";
  Choose("Compute_Correlation_Images");
  EXPECT_EQ(screen.messages,
            Texts{"There's a problem defining the size of the corr-image-patch: 0"});
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("10001"), std::string::npos);
  EXPECT_EQ(w.ImageKinds(0), 1);
}

TEST_F(MatchingSite, ASizeAboveTheSeriesIsThatOfThePreviousImage) {
  Capture();
  w.ImageBlock(1).PrincipalDistance = 2;  // a hundred times the pixels
  w.ImageBlock(1).X0 = 3;                 // the plot in the middle column
  Choose("Compute_Correlation_Images");
  ASSERT_EQ(screen.messages.size(), 1U);
  EXPECT_EQ(screen.messages[0], "There's a problem defining the size of the corr-image-patch: 1");
  EXPECT_EQ(w.CorrelationRecords(1).SubWidth, 301);
}

TEST_F(MatchingSite, APatchLargerThanTheTableEndsTheCommandAndEarlierImagesStayDone) {
  Capture();
  w.ImageBlock(1).SubWidth = w.ImageBlock(1).SubHeight = 2000;
  w.ImageBlock(1).PrincipalDistance = 0.11;  // 1167 pixels become 1201, and 1202 at the right edge
  m.PlotCenter.PlotX = 25;
  w.ImageBlock(1).X0 = 5;
  Choose("Compute_Correlation_Images");
  EXPECT_EQ(w.ImageKinds(0), 2);
  EXPECT_EQ(w.ImageKinds(1), 1);
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("1202 x 1201"), std::string::npos) << screen.errors[0];
}

TEST_F(MatchingSite, AMissingTemplateEndsTheCommandAndEarlierImagesStayDone) {
  Capture();
  std::filesystem::remove(files.site.Folder().Path() / "c/data/temp1.img");
  Choose("Compute_Correlation_Images");
  EXPECT_EQ(w.ImageKinds(0), 2);
  EXPECT_EQ(w.ImageKinds(1), 1);
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("temp1.img"), std::string::npos);
}

}  // namespace
}  // namespace sylvomex
