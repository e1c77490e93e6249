// SPDX-License-Identifier: MIT
#include "panes/label_room.h"

#include <algorithm>

namespace sylvomex {
namespace {

constexpr int kSquare = 3;  // pixels

int Squares(int pixels) { return std::max(0, pixels / kSquare + 1); }

}  // namespace

LabelRoom::LabelRoom(int width, int height)
    : columns_(Squares(width)),
      rows_(Squares(height)),
      taken_(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_)) {}

bool LabelRoom::Take(const PixelRect& label) {
  const int left = std::clamp(label.left / kSquare, 0, columns_);
  const int right = std::clamp(label.right / kSquare, 0, columns_);
  const int top = std::clamp(label.top / kSquare, 0, rows_);
  const int bottom = std::clamp(label.bottom / kSquare, 0, rows_);
  const auto row_of = [&](int row) { return taken_.begin() + std::ptrdiff_t{row} * columns_; };
  for (int row = top; row < bottom; ++row) {
    if (std::find(row_of(row) + left, row_of(row) + right, true) != row_of(row) + right) {
      return false;
    }
  }
  for (int row = top; row < bottom; ++row) std::fill(row_of(row) + left, row_of(row) + right, true);
  return true;
}

}  // namespace sylvomex
