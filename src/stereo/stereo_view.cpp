// SPDX-License-Identifier: MIT
#include "stereo/stereo_view.h"

#include <algorithm>
#include <cmath>

#include "platform/rounding.h"
#include "stereo/normal_plane.h"

namespace sylvomex {
namespace {

constexpr double kBesidePicture = 50;  // pixels of the window's width
constexpr double kAbovePicture = 30;   // the mark's line and the frame of the picture, pixels

double Whole_Steps(double length, double step) {
  return std::max(step, step * std::floor(length / step));
}

struct MarkPixel {
  std::int16_t row = 0, col = 0;
};

MarkPixel Pixel_Of_Mark(const StereoState& state, const NormalPosition& at) {
  const RasterPosition raster = Normal_To_Raster(state.Pair, at);
  return {To_Int16(raster.row), To_Int16(raster.col)};
}

StereoWindow Window_Around(const StereoState& state, std::int16_t row, std::int16_t col) {
  const std::int32_t half_width = state.StereoWidth / 2;
  const std::int32_t half_height = state.StereoHeight / 2;
  return {row - half_height, col - half_width, row + half_height, col + half_width};
}

NormalPosition Corner_Around(const StereoState& state, const NormalPosition& mark) {
  const double pixel = state.Pair.PixelWidth;
  const std::int32_t half_width = state.StereoWidth / 2;
  const std::int32_t half_height = state.StereoHeight / 2;
  return {mark.xn - half_width * pixel, mark.yn + half_height * pixel};
}

PanePosition From_Corner(const StereoState& state, const NormalPosition& at, double corner_x,
                         double corner_y) {
  const double pixel = state.Pair.PixelWidth;
  return {(at.xn - corner_x) / pixel, (corner_y - at.yn) / pixel};
}

void Place_Mark(StereoState& state) {
  const StereoPair& pair = state.Pair;
  const MarkPixel left = Pixel_Of_Mark(state, Object_To_Normal(pair.left, state.StereoSolution));
  const MarkPixel right = Pixel_Of_Mark(state, Object_To_Normal(pair.right, state.StereoSolution));
  state.LeftRow = left.row;
  state.LeftCol = left.col;
  state.RightRow = right.row;
  state.RightCol = right.col;
}

void Measure_Parallax(StereoState& state) {
  state.Parallax(0) = To_Int16(state.LeftRow - state.WindowLeft.first_row);
  state.Parallax(1) = To_Int16(state.LeftCol - state.WindowLeft.first_col);
  state.Parallax(2) = To_Int16(state.RightRow - state.WindowRight.first_row);
  state.Parallax(3) = To_Int16(state.RightCol - state.WindowRight.first_col);
}

}  // namespace

void Set_Picture_Size(StereoState& state, double client_width, double client_height) {
  const std::int16_t width = To_Int16(Whole_Steps(client_width - kBesidePicture, 4));
  const std::int16_t height = To_Int16(Whole_Steps(client_height - kAbovePicture, 2));
  state.StereoWidth = width;
  state.StereoHeight = height;
}

void Center_On_Mark(StereoState& state) {
  const NormalPosition left = Object_To_Normal(state.Pair.left, state.StereoSolution);
  const NormalPosition right = Object_To_Normal(state.Pair.right, state.StereoSolution);
  Place_Mark(state);
  state.WindowLeft = Window_Around(state, state.LeftRow, state.LeftCol);
  state.WindowRight = Window_Around(state, state.RightRow, state.RightCol);
  Measure_Parallax(state);
  const NormalPosition left_corner = Corner_Around(state, left);
  const NormalPosition right_corner = Corner_Around(state, right);
  state.OriginLeftX = left_corner.xn;
  state.OriginLeftY = left_corner.yn;
  state.OriginRightX = right_corner.xn;
  state.OriginRightY = right_corner.yn;
  state.Anchor = state.StereoSolution;
}

void Move_Mark(StereoState& state, const Point3D& to) {
  StereoState moved = state;
  moved.StereoSolution = to;
  Place_Mark(moved);
  Measure_Parallax(moved);
  state = moved;
}

StereoPosition Object_To_Picture(const StereoState& state, const Point3D& point) {
  const NormalPosition left = Object_To_Normal(state.Pair.left, point);
  const NormalPosition right = Object_To_Normal(state.Pair.right, point);
  return {From_Corner(state, left, state.OriginLeftX, state.OriginLeftY),
          From_Corner(state, right, state.OriginRightX, state.OriginRightY)};
}

std::optional<Point3D> Point_Under_Pointer(const StereoState& state, double px, double py) {
  const double pixel = state.Pair.PixelWidth;
  const NormalPosition at{state.OriginLeftX + px * pixel, state.OriginLeftY - py * pixel};
  return Normal_To_Object_At_Z(state.Pair.left, at, state.StereoSolution.Z);
}

}  // namespace sylvomex
