// SPDX-License-Identifier: MIT
#include "imageblock/pane_renderer.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "expect_failure.h"

namespace sylvomex {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

const FilePath kFile{"c:\\data\\a.raw", "/nowhere/a.raw"};

/// Grey file in which pixel (col, raw_row) is 10 x raw_row + col.
Bytes Grey_File(int width, int height) {
  Bytes bytes;
  for (int row = 0; row < height; ++row) {
    for (int col = 0; col < width; ++col)
      bytes.push_back(static_cast<std::uint8_t>(10 * row + col));
  }
  return bytes;
}

/// Colour file in which the pixel's red is 10 x raw_row + col, green 100 and blue 200 more.
Bytes Colour_File(int width, int height) {
  Bytes bytes;
  for (const std::uint8_t value : Grey_File(width, height)) {
    for (const int more : {0, 100, 200}) bytes.push_back(static_cast<std::uint8_t>(value + more));
  }
  return bytes;
}

RawPixels Raw(const Bytes& bytes, double width, double height) {
  return {bytes, width, height, &kFile};
}

RenderRequest Request(ViewWindow window, double zoom, int size) {
  RenderRequest request;
  request.window = window;
  request.zoom_x = zoom;
  request.zoom_y = zoom;
  request.pane_width = size;
  request.pane_height = size;
  return request;
}

PaneBitmap Grey(const RawPixels& raw, const RenderRequest& request) {
  PaneBitmap out;
  Render_Grey(raw, request, out);
  return out;
}

PaneBitmap Colour(const RawPixels& raw, const RenderRequest& request) {
  PaneBitmap out;
  Render_Colour(raw, request, out);
  return out;
}

/// Blue of each pixel, row after row; grey pictures have it in all three.
Bytes First_Channel(const PaneBitmap& bitmap) {
  Bytes values;
  for (std::size_t at = 0; at < bitmap.bgr.size(); at += 3) values.push_back(bitmap.bgr[at]);
  return values;
}

Bytes Grey_Values(const RawPixels& raw, const RenderRequest& request) {
  const PaneBitmap bitmap = Grey(raw, request);
  for (std::size_t at = 0; at < bitmap.bgr.size(); at += 3) {
    EXPECT_EQ(bitmap.bgr[at], bitmap.bgr[at + 1]);
    EXPECT_EQ(bitmap.bgr[at], bitmap.bgr[at + 2]);
  }
  return First_Channel(bitmap);
}

TEST(GammaTable, FollowsThePowerLawAndKeepsItsEnds) {
  const GammaTable square = Make_Gamma_Table(2.0);
  EXPECT_EQ(square[0], 0);
  EXPECT_EQ(square[128], 64);  // 16384 / 255 = 64.25
  EXPECT_EQ(square[16], 1);    // 256 / 255
  EXPECT_EQ(square[255], 255);
  const GammaTable root = Make_Gamma_Table(0.5);
  EXPECT_EQ(root[64], 128);  // 8 x 15.9687 = 127.75
  EXPECT_EQ(root[1], 16);    // 255 / 15.9687 = 15.97
  const GammaTable cube = Make_Gamma_Table(3.0);
  EXPECT_EQ(cube[128], 32);  // 2097152 / 65025 = 32.25
}

TEST(GammaTable, ExponentsWithoutATableAreAnOverflow) {
  Expect_Failure(Failure::Overflow, [] { Make_Gamma_Table(-1); });
  Expect_Failure(Failure::Overflow, [] { Make_Gamma_Table(kNan); });
}

TEST(PaneRenderer, OneToOneGreyGivesThreeEqualBytes) {
  const Bytes file = Grey_File(5, 4);
  EXPECT_EQ(Grey_Values(Raw(file, 5, 4), Request({1, 2, 2, 3}, 1, 2)), (Bytes{21, 22, 31, 32}));
}

TEST(PaneRenderer, OneToOneColourGivesBlueGreenRed) {
  const Bytes file = Colour_File(5, 4);
  const PaneBitmap out = Colour(Raw(file, 5, 4), Request({1, 2, 2, 3}, 1, 2));
  EXPECT_EQ(out.bgr, (Bytes{221, 121, 21, 222, 122, 22, 231, 131, 31, 232, 132, 32}));
}

TEST(PaneRenderer, ZoomOf1Point05IsOneToOneWithoutReplication) {
  const Bytes file = Grey_File(5, 4);
  EXPECT_EQ(Grey_Values(Raw(file, 5, 4), Request({1, 2, 2, 3}, 1.05, 2)), (Bytes{21, 22, 31, 32}));
}

TEST(PaneRenderer, OnlyTheHorizontalZoomDecidesThePath) {
  const Bytes file = Grey_File(5, 4);
  RenderRequest request = Request({1, 2, 2, 3}, 1, 2);
  request.zoom_y = 0;
  EXPECT_EQ(Grey_Values(Raw(file, 5, 4), request), (Bytes{21, 22, 31, 32}));
}

TEST(PaneRenderer, ZoomOf0Point99IsZoomOutAnd1Point1IsZoomIn) {
  // Both round to a step or block of one pixel; only zooming out tests its pixels.
  const Bytes file = Grey_File(2, 2);
  int exceeding = 0;
  RenderRequest request = Request({0, 0, 1, 1}, 0.99, 4);
  request.on_exceeding = [&] { ++exceeding; };
  Grey(Raw(file, 2, 2), request);
  EXPECT_EQ(exceeding, 7);  // row 3 and column 3 of 4 x 4
  exceeding = 0;
  request.zoom_x = 1.1;
  request.zoom_y = 1.1;
  EXPECT_EQ(Grey_Values(Raw(file, 2, 2), request),
            (Bytes{0, 1, 0, 0, 10, 11, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(exceeding, 0);
}

TEST(PaneRenderer, WindowSmallerThanThePaneLeavesTheRestBlack) {
  const Bytes file = Colour_File(2, 1);
  const PaneBitmap out = Colour(Raw(file, 2, 1), Request({0, 0, 1, 0}, 1, 3));
  Bytes expected{200, 100, 0, 201, 101, 1};
  expected.resize(27);
  EXPECT_EQ(out.bgr, expected);
}

TEST(PaneRenderer, RawFileTooSmallInOneAxisFillsOnlyItsPart) {
  const Bytes file = Grey_File(2, 5);
  ViewWindow whole{0, 0, 1, 4, false};
  EXPECT_EQ(Grey_Values(Raw(file, 2, 5), Request(whole, 1, 3)),
            (Bytes{0, 1, 0, 10, 11, 0, 20, 21, 0}));
  EXPECT_EQ(Grey_Values(Raw(file, 2, 5), Request(whole, 2, 5)),
            (Bytes{0,  0, 1,  1,  0,  0,  0, 1,  1,  0,  10, 10, 11,
                   11, 0, 10, 10, 11, 11, 0, 20, 20, 21, 21, 0}));
}

TEST(PaneRenderer, WholeFileTallerThanTheWorkArrayIsTruncatedAtThePane) {
  const Bytes file = Grey_File(2, 100);
  const ViewWindow whole{0, 0, 1, 99, false};
  EXPECT_EQ(Grey_Values(Raw(file, 2, 100), Request(whole, 4, 4))[15], 0);
  EXPECT_EQ(Grey_Values(Raw(file, 2, 100), Request(whole, 2, 4)),
            (Bytes{0, 0, 1, 1, 0, 0, 1, 1, 10, 10, 11, 11, 10, 10, 11, 11}));
}

TEST(PaneRenderer, OddWidthOverTheRightEdgeReadsOneColumnMore) {
  // The window is one column wider than the pane: its first column is shown, its last is not.
  const Bytes file = Grey_File(8, 3);
  const ViewWindow window = Compute_View_Window(8, 3, 7, 1, 3, 3);
  EXPECT_EQ(window.last_col - window.first_col + 1, 4);
  EXPECT_EQ(Grey_Values(Raw(file, 8, 3), Request(window, 1, 3)),
            (Bytes{4, 5, 6, 14, 15, 16, 24, 25, 26}));
}

TEST(PaneRenderer, WindowThatStartsLeftOfTheFileReadsFromTheComputedPosition) {
  const Bytes file = Grey_File(3, 4);
  EXPECT_EQ(Grey_Values(Raw(file, 3, 4), Request({-1, 1, 2, 3}, 1, 3)),
            (Bytes{2, 10, 11, 12, 20, 21, 22, 30, 31}));
}

TEST(PaneRenderer, PositionBeforeTheFilesStartIsAFileFailure) {
  const Bytes grey = Grey_File(3, 4);
  const std::string text = Expect_Failure(Failure::FileFailure, [&] {
    Grey(Raw(grey, 3, 4), Request({-1, 0, 2, 2}, 1, 3));
  });
  EXPECT_TRUE(Contains(text, "c:\\data\\a.raw")) << text;
  const Bytes colour = Colour_File(3, 4);
  for (const double zoom : {1.0, 2.0, 0.5}) {
    Expect_Failure(Failure::FileFailure, [&] {
      Colour(Raw(colour, 3, 4), Request({-1, 0, 0, 2}, zoom, 4));
    });
  }
}

TEST(PaneRenderer, WindowBelowTheFileIsBlack) {
  const Bytes file = Grey_File(3, 2);
  EXPECT_EQ(Grey_Values(Raw(file, 3, 2), Request({1, 1, 3, 3}, 1, 3)),
            (Bytes{11, 12, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(PaneRenderer, FileThatEndsWithinAPixelGivesItsFirstChannels) {
  Bytes file = Colour_File(2, 1);
  file.pop_back();
  // As a width of 5/3 pixels: five bytes; the second pixel has red and green only.
  EXPECT_EQ(Colour(Raw(file, 5.0 / 3, 1), Request({0, 0, 1, 0}, 1, 2)).bgr,
            (Bytes{200, 100, 0, 0, 101, 1, 0, 0, 0, 0, 0, 0}));
}

TEST(PaneRenderer, FractionalWidthPutsGreyRowsAtTheRoundedProduct) {
  Bytes file(12);
  for (std::size_t at = 0; at < 12; ++at) file[at] = static_cast<std::uint8_t>(at);
  // Width 2.5: rows start at 0, 2 (2.5 to even), 5, 8 (7.5 to even).
  EXPECT_EQ(Grey_Values(Raw(file, 2.5, 4), Request({0, 0, 0, 3}, 1, 4)),
            (Bytes{0, 0, 0, 0, 2, 0, 0, 0, 5, 0, 0, 0, 8, 0, 0, 0}));
}

TEST(PaneRenderer, FractionalWidthDiffersBetweenColourOneToOneAndZoomOut) {
  Bytes file(60);
  for (std::size_t at = 0; at < 60; ++at) file[at] = static_cast<std::uint8_t>(at);
  const RawPixels raw = Raw(file, 4.5, 4);
  // One to one and zooming in a row is round(4.5) x 3 = 12 bytes; red comes last.
  EXPECT_EQ(Colour(raw, Request({1, 1, 1, 1}, 1, 1)).bgr[2], 15);
  EXPECT_EQ(Colour(raw, Request({1, 1, 1, 1}, 2, 2)).bgr[2], 15);
  // Zooming out row 1 starts at round(13.5 + 3) = 16.
  EXPECT_EQ(Colour(raw, Request({1, 1, 1, 1}, 0.99, 1)).bgr[2], 16);
}

TEST(PaneRenderer, ZoomInRepeatsEachPixelInBlocks) {
  const Bytes file = Colour_File(3, 3);
  const PaneBitmap out = Colour(Raw(file, 3, 3), Request({0, 1, 1, 2}, 2, 4));
  const Bytes two_rows{210, 110, 10, 210, 110, 10, 211, 111, 11, 211, 111, 11};
  const Bytes two_more{220, 120, 20, 220, 120, 20, 221, 121, 21, 221, 121, 21};
  Bytes expected;
  for (const Bytes& row : {two_rows, two_rows, two_more, two_more}) {
    expected.insert(expected.end(), row.begin(), row.end());
  }
  EXPECT_EQ(out.bgr, expected);
}

TEST(PaneRenderer, ZoomInRoundsItsBlocksHalfToEven) {
  const Bytes file = Grey_File(3, 3);
  // 2.5 goes to blocks of 2, 1.5 as well.
  EXPECT_EQ(Grey_Values(Raw(file, 3, 3), Request({0, 0, 1, 0}, 2.5, 4)),
            (Bytes{0, 0, 1, 1, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Grey_Values(Raw(file, 3, 3), Request({0, 0, 1, 0}, 1.5, 2)), (Bytes{0, 0, 0, 0}));
}

TEST(PaneRenderer, LastBlocksMayExceedThePaneByTheWorkMargin) {
  const Bytes grey(200 * 200, 7);
  const Bytes colour(3 * 200 * 200, 7);
  // Blocks of 2 in a pane of 10: 20 columns reach index 39 = 10 - 1 + 30, 55 reach 109.
  EXPECT_EQ(Grey_Values(Raw(grey, 200, 200), Request({0, 0, 19, 19}, 2, 10)), Bytes(100, 7));
  EXPECT_EQ(Colour(Raw(colour, 200, 200), Request({0, 0, 54, 54}, 2, 10)).bgr, Bytes(300, 7));
}

TEST(PaneRenderer, BlocksThatExceedTheWorkMarginAreASubscriptError) {
  const Bytes grey(200 * 200, 7);
  const Bytes colour(3 * 200 * 200, 7);
  const RawPixels raw_grey = Raw(grey, 200, 200);
  const RawPixels raw_colour = Raw(colour, 200, 200);
  for (const ViewWindow& window : {ViewWindow{0, 0, 20, 19}, ViewWindow{0, 0, 19, 20}}) {
    Expect_Failure(Failure::SubscriptOutOfRange, [&] { Grey(raw_grey, Request(window, 2, 10)); });
  }
  for (const ViewWindow& window : {ViewWindow{0, 0, 55, 54}, ViewWindow{0, 0, 54, 55}}) {
    Expect_Failure(Failure::SubscriptOutOfRange,
                   [&] { Colour(raw_colour, Request(window, 2, 10)); });
  }
}

TEST(PaneRenderer, HugeZoomIsASubscriptErrorOrAnOverflowWithoutAllocation) {
  const Bytes file = Grey_File(4, 4);
  const RawPixels raw = Raw(file, 4, 4);
  Expect_Failure(Failure::SubscriptOutOfRange, [&] {
    Grey(raw, Request({0, 0, 1, 1}, 2000000000, 4));
  });
  Expect_Failure(Failure::Overflow, [&] { Grey(raw, Request({0, 0, 1, 1}, 1e300, 4)); });
  Expect_Failure(Failure::Overflow, [&] { Grey(raw, Request({0, 0, 1, 1}, kInfinity, 4)); });
}

TEST(PaneRenderer, BlocksWithoutHeightLeaveThePaneBlack) {
  const Bytes file(16, 9);
  for (const double zoom_y : {0.0, 0.3, -2.0}) {
    RenderRequest request = Request({0, 0, 1, 1}, 2, 4);
    request.zoom_y = zoom_y;
    EXPECT_EQ(Grey_Values(Raw(file, 4, 4), request), Bytes(16, 0));
  }
}

TEST(PaneRenderer, ZoomOutTakesEveryNthPixel) {
  const Bytes file = Grey_File(8, 8);
  EXPECT_EQ(Grey_Values(Raw(file, 8, 8), Request({1, 2, 6, 7}, 0.5, 3)),
            (Bytes{21, 23, 25, 41, 43, 45, 61, 63, 65}));
}

TEST(PaneRenderer, ZoomOutRoundsItsStepHalfToEven) {
  const Bytes file = Grey_File(9, 9);
  // 1 / 0.4 = 2.5 goes to 2.
  EXPECT_EQ(Grey_Values(Raw(file, 9, 9), Request({0, 0, 8, 8}, 0.4, 2)), (Bytes{0, 2, 20, 22}));
}

TEST(PaneRenderer, ZoomOutTestsTheRowCounterAgainstTheColumnLimit) {
  // 10 columns, 4 rows, step 2: i runs against SubWidth and j against SubHeight, so pane
  // columns 3 and 4 (6, 8 > 4) are outside and no row is, though raw rows end at 3.
  const Bytes file = Grey_File(10, 4);
  int exceeding = 0;
  RenderRequest request = Request({0, 0, 9, 3}, 0.5, 5);
  request.on_exceeding = [&] { ++exceeding; };
  EXPECT_EQ(Grey_Values(Raw(file, 10, 4), request),
            (Bytes{0,   2,   4, 255, 255, 20,  22,  24, 255, 255, 0,   0,  0,
                   255, 255, 0, 0,   0,   255, 255, 0,  0,   0,   255, 255}));
  EXPECT_EQ(exceeding, 10);
}

TEST(PaneRenderer, ZoomOutLimitsAreInclusive) {
  // Step 2 from column and row 0 of a 4 x 4 file: 4 is still allowed, 6 is not. Index 4 has
  // no byte in the columns read and no row in the file.
  const Bytes file = Grey_File(4, 4);
  EXPECT_EQ(Grey_Values(Raw(file, 4, 4), Request({0, 0, 3, 3}, 0.5, 4)),
            (Bytes{0, 2, 0, 255, 20, 22, 0, 255, 0, 0, 0, 255, 255, 255, 255, 255}));
}

TEST(PaneRenderer, ExceedingIsReportedOncePerPixelAfterThePictureIsComplete) {
  const Bytes file(16, 7);
  PaneBitmap out;
  std::vector<Bytes> seen;
  RenderRequest request = Request({0, 0, 3, 3}, 0.5, 4);
  request.on_exceeding = [&] { seen.push_back(out.bgr); };
  Render_Grey(Raw(file, 4, 4), request, out);
  ASSERT_EQ(seen.size(), 7U);
  for (const Bytes& picture : seen) EXPECT_EQ(picture, out.bgr);
}

TEST(PaneRenderer, ZoomOutWithoutACallbackStillGivesWhite) {
  const Bytes file(3 * 16, 7);
  EXPECT_EQ(Colour(Raw(file, 4, 4), Request({0, 0, 3, 3}, 0.5, 4)).bgr.back(), 255);
}

TEST(PaneRenderer, ZoomsWithoutAStepAreAnOverflow) {
  const Bytes file = Grey_File(4, 4);
  for (const double zoom : {0.0, -0.0, 1e-300, 1e-10, -1e-10, kNan}) {
    Expect_Failure(Failure::Overflow, [&] {
      Grey(Raw(file, 4, 4), Request({0, 0, 3, 3}, zoom, 4));
    });
  }
}

TEST(PaneRenderer, NegativeZoomNeverReadsOutside) {
  const Bytes file = Grey_File(6, 6);
  RenderRequest request = Request({4, 5, 5, 5}, -0.5, 3);
  // Steps of -2: i gives columns 4, 2, 0 and j rows 5, 3, 1, all inside, but the pixels lie
  // left of the bytes read except the first.
  EXPECT_EQ(Grey_Values(Raw(file, 6, 6), request), (Bytes{54, 0, 0, 34, 0, 0, 14, 0, 0}));
  request.zoom_x = -10;  // a step of -0.1 rounds to 0
  EXPECT_EQ(Grey_Values(Raw(file, 6, 6), request), (Bytes{54, 54, 54, 34, 34, 34, 14, 14, 14}));
  request.pane_height = 4;
  Expect_Failure(Failure::FileFailure, [&] { Grey(Raw(file, 6, 6), request); });
}

TEST(PaneRenderer, FileShorterThanTheHeaderStatesIsInputPastEnd) {
  Bytes file = Grey_File(5, 4);
  file.pop_back();
  for (const double zoom : {1.0, 2.0, 0.5}) {
    const std::string text = Expect_Failure(Failure::InputPastEnd, [&] {
      Grey(Raw(file, 5, 4), Request({0, 0, 1, 1}, zoom, 2));
    });
    EXPECT_TRUE(Contains(text, "c:\\data\\a.raw: the header tells 20 bytes, the file has 19"))
        << text;
  }
  const std::string text = Expect_Failure(Failure::InputPastEnd, [&] {
    Colour(Raw(file, 2.55, 2.5), Request({0, 0, 0, 0}, 1, 1));
  });
  EXPECT_TRUE(Contains(text, "tells 20 bytes")) << text;  // 19.125 bytes need a 20th
}

TEST(PaneRenderer, AbsurdRawSizesAreAnErrorOrBlack) {
  const Bytes file(100, 7);
  const RenderRequest request = Request({0, 0, 3, 3}, 1, 4);
  for (const double size : {1e9, 1e300, kInfinity, kNan}) {
    Expect_Failure(Failure::InputPastEnd, [&] { Grey(Raw(file, size, size), request); });
    Expect_Failure(Failure::InputPastEnd, [&] { Colour(Raw(file, size, 1), request); });
  }
  Expect_Failure(Failure::FileFailure, [&] { Grey(Raw(file, -5, 5), request); });
  Expect_Failure(Failure::FileFailure, [&] { Colour(Raw(file, -kInfinity, 5), request); });
}

TEST(PaneRenderer, AbsurdWindowsNeverReadOutside) {
  constexpr int kMost = std::numeric_limits<int>::max();
  constexpr int kLeast = std::numeric_limits<int>::min();
  const Bytes file(100, 7);
  const RawPixels raw = Raw(file, 10, 10);
  EXPECT_EQ(Grey_Values(raw, Request({kMost, kMost, kMost, kMost}, 1, 2)), Bytes(4, 0));
  EXPECT_EQ(Grey_Values(raw, Request({5, 5, 4, 4}, 1, 2)), Bytes(4, 0));
  EXPECT_EQ(Grey_Values(raw, Request({0, 0, kLeast, kLeast}, 2, 2)), Bytes(4, 0));
  EXPECT_EQ(Grey_Values(raw, Request({0, 0, kMost, kMost}, 1, 2)), Bytes(4, 7));
  EXPECT_EQ(Grey_Values(raw, Request({0, 0, kMost, kMost}, 0.5, 2)), Bytes(4, 7));
  Expect_Failure(Failure::SubscriptOutOfRange, [&] {
    Grey(raw, Request({0, 0, kMost, kMost}, 2, 2));
  });
  Expect_Failure(Failure::FileFailure, [&] { Grey(raw, Request({kLeast, kLeast, 0, 0}, 1, 2)); });
}

TEST(PaneRenderer, PaneSizesOutsideItsRangeAreASubscriptError) {
  const Bytes file(100, 7);
  for (const int size : {-1, 32768, std::numeric_limits<int>::min()}) {
    Expect_Failure(Failure::SubscriptOutOfRange, [&] {
      Grey(Raw(file, 10, 10), Request({0, 0, 3, 3}, 1, size));
    });
  }
  for (const double zoom : {1.0, 2.0, 0.5}) {
    EXPECT_TRUE(Grey(Raw(file, 10, 10), Request({0, 0, 0, 0}, zoom, 0)).bgr.empty());
  }
}

TEST(PaneRenderer, GammaChangesColourOnAllPathsAndNeverGrey) {
  const Bytes file(3 * 64, 128);
  for (const double zoom : {1.0, 2.0, 0.5}) {
    RenderRequest request = Request({0, 0, 1, 1}, zoom, 2);
    request.gamma = Make_Gamma_Table(2.0);
    EXPECT_EQ(Colour(Raw(file, 8, 8), request).bgr[0], 64) << zoom;
    EXPECT_EQ(Grey(Raw(file, 8, 8), request).bgr[0], 128) << zoom;
  }
}

TEST(PaneRenderer, WhiteAndBlackPixelsStayUnderGamma) {
  const Bytes file(3 * 16, 128);
  RenderRequest request = Request({0, 0, 3, 3}, 0.5, 4);
  request.gamma = Make_Gamma_Table(0.4);
  const PaneBitmap out = Colour(Raw(file, 4, 4), request);
  EXPECT_EQ(out.bgr[3 * 2], 0);    // inside by the test, but beyond the columns read
  EXPECT_EQ(out.bgr[3 * 3], 255);  // outside by the test
}

TEST(PaneRenderer, BitmapIsReusedWithoutRemainsOfTheOldPicture) {
  const Bytes file(3 * 16, 7);
  PaneBitmap out{4, 4, Bytes(48, 99)};
  const std::uint8_t* before = out.bgr.data();
  Render_Colour(Raw(file, 4, 4), Request({0, 0, 0, 0}, 1, 4), out);
  EXPECT_EQ(out.bgr.data(), before);
  Bytes expected(48, 0);
  expected[0] = expected[1] = expected[2] = 7;
  EXPECT_EQ(out.bgr, expected);
}

}  // namespace
}  // namespace sylvomex
