// SPDX-License-Identifier: MIT
// The fast renderer compared with the plain one, on many random views.
#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <vector>

#include "imageblock/pane_kernels.h"
#include "imageblock/pane_renderer.h"
#include "plain_renderer.h"
#include "platform/run_time_error.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Random = std::mt19937;

int Draw(Random& random, int low, int high) {
  return std::uniform_int_distribution<int>(low, high)(random);
}

double Draw_Of(Random& random, const std::vector<double>& values) {
  return values[static_cast<std::size_t>(Draw(random, 0, static_cast<int>(values.size()) - 1))];
}

Bytes Random_Bytes(Random& random, std::size_t count) {
  Bytes bytes(count);
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random() & 255);
  return bytes;
}

ViewWindow Random_Window(Random& random, double width, double height,
                         const RenderRequest& request) {
  if (Draw(random, 0, 1) == 0) {
    const int col = Draw(random, -20, 170);
    const int row = Draw(random, -20, 170);
    return Compute_View_Window(width, height, col, row,
                               static_cast<int>(request.pane_width / request.zoom_x),
                               static_cast<int>(request.pane_height / request.zoom_y));
  }
  const int col = Draw(random, -2, 140);
  const int row = Draw(random, 0, 140);
  return {col, row, col + Draw(random, -2, 60), row + Draw(random, -2, 60),
          Draw(random, 0, 3) != 0};
}

struct View {
  Bytes bytes;
  double width = 0;
  double height = 0;
  RenderRequest request;
};

View Random_View(Random& random, bool colour, const std::vector<double>& zooms) {
  View view;
  view.width = Draw(random, 1, 160) + Draw_Of(random, {0, 0, 0, 0.25, 0.5});
  view.height = Draw(random, 1, 160) + Draw_Of(random, {0, 0, 0, 0.5});
  const double bytes = view.width * view.height * (colour ? 3 : 1);
  view.bytes = Random_Bytes(
      random, static_cast<std::size_t>(bytes) + 1 + static_cast<std::size_t>(Draw(random, 0, 5)));
  view.request.zoom_x = Draw_Of(random, zooms);
  view.request.zoom_y = Draw(random, 0, 3) == 0 ? Draw_Of(random, zooms) : view.request.zoom_x;
  view.request.pane_width = Draw(random, 0, 150);
  view.request.pane_height =
      Draw(random, 0, 3) == 0 ? Draw(random, 0, 150) : view.request.pane_width;
  const double gamma = Draw_Of(random, {0, 0, 0.4, 0.5, 0.6, 1.4, 2, 3});
  if (gamma > 0) view.request.gamma = Make_Gamma_Table(gamma);
  view.request.window = Random_Window(random, view.width, view.height, view.request);
  return view;
}

/// Both renderers reject the view, or both give the same bytes. True when they gave some.
bool Same_As_Plain(View& view, bool colour, PaneBitmap& out) {
  const RawPixels raw{view.bytes, view.width, view.height, nullptr};
  int exceeding = 0;
  view.request.on_exceeding = [&] { ++exceeding; };
  bool fast_gave = true;
  bool plain_gave = true;
  PlainRender plain;
  try {
    colour ? Render_Colour(raw, view.request, out) : Render_Grey(raw, view.request, out);
  } catch (const RunTimeError&) {
    fast_gave = false;
  }
  try {
    plain = Render_Plainly(raw, view.request, colour);
  } catch (const std::exception&) {
    plain_gave = false;
  }
  EXPECT_EQ(fast_gave, plain_gave);
  if (!fast_gave || !plain_gave) return false;
  EXPECT_EQ(out.bgr, plain.picture.bgr);
  EXPECT_EQ(exceeding, plain.exceeding);
  return true;
}

void Compare_Many(bool colour, unsigned seed, const std::vector<double>& zooms) {
  Random random(seed);
  PaneBitmap out;
  int pictures = 0;
  for (int k = 0; k < 600; ++k) {
    View view = Random_View(random, colour, zooms);
    pictures += Same_As_Plain(view, colour, out) ? 1 : 0;
    ASSERT_FALSE(testing::Test::HasFailure())
        << "view " << k << ", zoom " << view.request.zoom_x << ", raw " << view.width << " x "
        << view.height << ", pane " << view.request.pane_width << ", window from "
        << view.request.window.first_col << ", " << view.request.window.first_row;
  }
  EXPECT_GT(pictures, 200);
}

const std::vector<double> kOneToOne{1, 1.05, 0.995};
const std::vector<double> kZoomIn{1.1, 1.5, 2, 2.5, 3, 4, 6, 10, 16, 17, 40};
const std::vector<double> kZoomOut{0.99, 0.7, 0.5, 1.0 / 3, 0.25, 1.0 / 6, 0.1, 0.03, -0.5, -3};

TEST(RenderedBesidePlain, GreyOneToOne) { Compare_Many(false, 1, kOneToOne); }
TEST(RenderedBesidePlain, ColourOneToOne) { Compare_Many(true, 2, kOneToOne); }
TEST(RenderedBesidePlain, GreyZoomIn) { Compare_Many(false, 3, kZoomIn); }
TEST(RenderedBesidePlain, ColourZoomIn) { Compare_Many(true, 4, kZoomIn); }
TEST(RenderedBesidePlain, GreyZoomOut) { Compare_Many(false, 5, kZoomOut); }
TEST(RenderedBesidePlain, ColourZoomOut) { Compare_Many(true, 6, kZoomOut); }

void Expect_Swapped(Random& random, std::size_t pixels) {
  const Bytes rgb = Random_Bytes(random, 3 * pixels);
  Bytes bgr(3 * pixels + 64, 77);
  Swap_Rgb_Row(rgb.data(), pixels, bgr.data());
  for (std::size_t at = 0; at < 3 * pixels; ++at) {
    ASSERT_EQ(bgr[at], rgb[at / 3 * 3 + 2 - at % 3]) << pixels << " pixels, byte " << at;
  }
  for (std::size_t at = 3 * pixels; at < bgr.size(); ++at) ASSERT_EQ(bgr[at], 77);
}

TEST_F(OnEveryVectorUnit, SwapsEveryLengthAndTouchesNothingBeyond) {
  Random random(7);
  Run([&] {
    for (std::size_t pixels = 0; pixels < 300; ++pixels) Expect_Swapped(random, pixels);
  });
}

TEST_F(OnEveryVectorUnit, RendersAsThePlainRenderer) {
  Run([&] {
    Compare_Many(true, 8, kOneToOne);
    Compare_Many(true, 9, kZoomIn);
    Compare_Many(false, 10, kZoomIn);
  });
}

}  // namespace
}  // namespace sylvomex
