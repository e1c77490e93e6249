// SPDX-License-Identifier: MIT
#include "mapview/map_renderer.h"

#include <gtest/gtest.h>

#include <array>

#include "imageblock/expect_failure.h"

namespace sylvomex {
namespace {

constexpr int kWidth = 40;
constexpr int kHeight = 30;

/// Red is the column, green the row (both from 0), blue 200.
std::vector<std::uint8_t> Map_Bytes() {
  std::vector<std::uint8_t> bytes;
  for (int row = 0; row < kHeight; ++row) {
    for (int col = 0; col < kWidth; ++col) {
      bytes.insert(bytes.end(), {static_cast<std::uint8_t>(col), static_cast<std::uint8_t>(row),
                                 std::uint8_t{200}});
    }
  }
  return bytes;
}

MapHeader Header() {
  MapHeader map;
  map.MapWidth = kWidth;
  map.MapHeight = kHeight;
  return map;
}

struct Rendered {
  PaneBitmap bitmap;
  int exceeding = 0;

  /// Red, green, blue of a pane pixel.
  [[nodiscard]] std::array<int, 3> At(int px, int py) const {
    const std::size_t at = 3 * (static_cast<std::size_t>(py) * bitmap.width + px);
    return {bitmap.bgr[at + 2], bitmap.bgr[at + 1], bitmap.bgr[at]};
  }
};

Rendered Render(const MapView& view) {
  static const FilePath file{"c:\\maps\\a.raw", "/maps/a.raw"};
  Rendered rendered;
  rendered.bitmap = Render_Map(Map_Bytes(), file, Header(), view, [&] { ++rendered.exceeding; });
  return rendered;
}

MapView Pane(int width, int height) {
  MapView view;
  view.MapPaneWidth = width;
  view.MapPaneHeight = height;
  Show_Map_Start(view);
  return view;
}

using Rgb = std::array<int, 3>;

TEST(MapRenderer, ColumnOneAndRowOneAreTheFilesFirstPixel) {
  const Rendered rendered = Render(Pane(8, 6));
  EXPECT_EQ(rendered.bitmap.width, 8);
  EXPECT_EQ(rendered.bitmap.height, 6);
  EXPECT_EQ(rendered.At(0, 0), (Rgb{0, 0, 200}));
  EXPECT_EQ(rendered.At(7, 5), (Rgb{7, 5, 200}));
}

TEST(MapRenderer, AtTwoToOneEveryPixelIsABlockOfTwoByTwo) {
  MapView view = Pane(8, 6);
  view.MapZoom = 2;
  Centre_Map_View(view, kHeight, {11, 12});
  // first col 11 - 2 = 9 (file column 8), first row 12 - 1.5 = 10.5 to 10 (file row 9).
  const Rendered rendered = Render(view);
  EXPECT_EQ(rendered.At(0, 0), (Rgb{8, 9, 200}));
  EXPECT_EQ(rendered.At(1, 1), (Rgb{8, 9, 200}));
  EXPECT_EQ(rendered.At(2, 2), (Rgb{9, 10, 200}));
}

TEST(MapRenderer, BelowHundredPercentEveryRoundedInverseZoomthPixelIsTaken) {
  MapView view = Pane(8, 8);
  view.MapZoom = 0.4;  // 1 / 0.4 = 2.5 rounds to 2
  view.MapLastCol = 20;
  view.MapLastRow = 20;
  const Rendered rendered = Render(view);
  EXPECT_EQ(rendered.At(3, 2), (Rgb{6, 4, 200}));
  EXPECT_EQ(rendered.exceeding, 0);
}

TEST(MapRenderer, ColumnsBeyondTheMapShowWhatTheFileHolds) {
  MapView view = Pane(8, 6);
  view.MapFirstCol = 37;
  view.MapLastCol = 44;
  const Rendered rendered = Render(view);
  EXPECT_EQ(rendered.At(3, 0), (Rgb{39, 0, 200}));
  EXPECT_EQ(rendered.At(4, 0), (Rgb{0, 1, 200}));  // the next row begins
}

TEST(MapRenderer, AFileShorterThanItsHeaderIsRejected) {
  const FilePath file{"c:\\maps\\a.raw", "/maps/a.raw"};
  const std::vector<std::uint8_t> bytes(100);
  const std::string text = Expect_Failure(
      Failure::InputPastEnd, [&] { Render_Map(bytes, file, Header(), Pane(8, 6), {}); });
  EXPECT_TRUE(Contains(text, "c:\\maps\\a.raw")) << text;
}

}  // namespace
}  // namespace sylvomex
