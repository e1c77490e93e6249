// SPDX-License-Identifier: MIT
#include "demo/write/stereo_session.h"

#include <cmath>
#include <cstdlib>

#include "demo/scene/surface_photographs.h"
#include "demo/write/exact_text.h"
#include "demo/write/session_steps.h"
#include "demo/write/surface_session.h"
#include "platform/rounding.h"
#include "stereo/normal_case.h"
#include "stereo/stereo_view.h"

namespace sylvomex::demo {
namespace {

constexpr int kPixelMicrometres = 20;
constexpr std::size_t kTops = 30;
constexpr int kWindowWidth = 1050, kWindowHeight = 830;
constexpr double kRoughStep = 2;      // metres to which an operator guesses a height
constexpr double kHeightStep = 0.01;  // metres of a key

double To_Half_Pixel(double value) { return Round_Half_Even(2 * value) / 2; }

Point3D Guessed(const Point3D& top) {
  return {top.X, top.Y, kRoughStep * Round_Half_Even(top.Z / kRoughStep)};
}

/// The viewer after a point was retrieved.
StereoState View_On(const StereoPair& pair, const Point3D& point) {
  StereoState state;
  state.Pair = pair;
  state.StereoSolution = point;
  Set_Picture_Size(state, kWindowWidth, kWindowHeight);
  Center_On_Mark(state);
  return state;
}

/// Pane column of the mark in the right image when its left image stands at a position.
double Right_Column(StereoState state, const PanePosition& left, double Z) {
  state.StereoSolution.Z = Z;
  const auto point = Point_Under_Pointer(state, left.px, left.py);
  return Object_To_Picture(state, point.value_or(state.StereoSolution)).right.px;
}

/// The height at which the mark's right image stands at a pane column, by regula falsi.
double Height_For(const StereoState& state, const PanePosition& left, double right_px) {
  double low = state.StereoSolution.Z - 5, high = state.StereoSolution.Z + 5;
  for (int step = 0; step < 20; ++step) {
    const double at_low = Right_Column(state, left, low) - right_px;
    const double at_high = Right_Column(state, left, high) - right_px;
    if (at_high == at_low) break;
    const double Z = low - at_low * (high - low) / (at_high - at_low);
    low = high;
    high = Z;
  }
  return high;
}

std::string Key_Steps(double rise) {
  const auto presses = std::lround(rise / kHeightStep);
  const std::string step = presses > 0 ? "key Form5 U\n" : "key Form5 D\n";
  std::string text;
  for (long k = 0; k < std::labs(presses); ++k) text += step;
  return text;
}

std::string Top_Steps(const std::vector<Photograph>& stereo, const StereoPair& pair,
                      const Point3D& top) {
  const Point3D rough = Guessed(top);
  const StereoState state = View_On(pair, rough);
  const RasterPosition left = Seen_On_Raster(stereo[0], pair, pair.left, top);
  const RasterPosition right = Seen_On_Raster(stereo[1], pair, pair.right, top);
  const PanePosition hand{To_Half_Pixel(left.col - state.WindowLeft.first_col),
                          To_Half_Pixel(left.row - state.WindowLeft.first_row)};
  const double right_px = To_Half_Pixel(right.col - state.WindowRight.first_col);
  const std::string place = Fixed_Decimals(hand.px, 1) + " " + Fixed_Decimals(hand.py, 1) + "\n";
  return Solution_Steps(rough) + "menu Form5.Retrieve\n" +
         Key_Steps(Height_For(state, hand, right_px) - rough.Z) + "move Form5.Picture1 " + place +
         "doubleclick Form5.Picture1 " + place;
}

std::string Make_And_Open_Steps() {
  return "input " + std::to_string(kPixelMicrometres) +
         "\nbutton ok\ninput c:\\data\\demo\\\ninput " + kPairFile +
         "\nmenu Create_anaglyph_pair\nresize Form5 " + std::to_string(kWindowWidth) + " " +
         std::to_string(kWindowHeight) + "\nmenu Open_Stereo_window\nfile " + kPairFile +
         "\nmenu Form5.Open_Pair\n";
}

}  // namespace

std::vector<Photograph> Stereo_Photographs(const std::vector<Photograph>& photos) {
  std::vector<Photograph> stereo = Whole_Image_Photographs(photos);
  stereo.resize(2);
  return stereo;
}

StereoPair Session_Pair(const std::vector<Photograph>& stereo) {
  const ImageRecord& left = stereo[0].image;
  const ImageRecord& right = stereo[1].image;
  const RotationMatrix normal = Normal_Rotation(Angles_Of_Base(left, right));
  StereoPair pair;
  pair.left = Make_Stereo_Image(left, normal);
  pair.right = Make_Stereo_Image(right, normal);
  pair.PixelWidth = kPixelMicrometres * 1e-6;
  Set_Raster_Size(pair, Extent_Of_Pair(left, right, pair));
  return pair;
}

RasterPosition Seen_On_Raster(const Photograph& photo, const StereoPair& pair,
                              const StereoImage& side, const Point3D& point) {
  const PixelPosition pixel = Object_To_Pixel(photo.camera, point);
  const FilmPosition film = Pixel_To_Image(photo.camera, {pixel.col - 0.5, pixel.row + 0.5});
  return Normal_To_Raster(pair, Film_To_Normal(side, film));
}

std::vector<Point3D> Stereo_Tops(const Scene& scene, const std::vector<Photograph>& stereo) {
  std::vector<Point3D> tops;
  for (const SurfacePlace& place : Crown_Places(scene, stereo, 0)) {
    if (tops.size() < kTops) tops.push_back(place.truth);
  }
  return tops;
}

std::string Stereo_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const std::vector<Photograph> stereo = Stereo_Photographs(photos);
  const StereoPair pair = Session_Pair(stereo);
  std::string text = "# Tree tops measured with the floating mark in a normalised pair.\n" +
                     Load_Steps(stereo) + Make_And_Open_Steps();
  bool first = true;
  for (const Point3D& top : Stereo_Tops(scene, stereo)) {
    text += "\nsay \"stereo top " + Fixed_Decimals(top.X, 3) + " " + Fixed_Decimals(top.Y, 3) +
            " " + Fixed_Decimals(top.Z, 3) + "\"\n" + Top_Steps(stereo, pair, top);
    if (!first) continue;
    first = false;
    text += "move Form5.Picture1 500 400\n" + Window_Picture("Form5", "stereo_tree");
  }
  return text + "\nfile " + kStereoTopsFile + "\nmenu Form5.Save_point_File\n";
}

}  // namespace sylvomex::demo
