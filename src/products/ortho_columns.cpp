// SPDX-License-Identifier: MIT
#include "products/ortho_columns.h"

#include <algorithm>
#include <cmath>

#include "products/ortho_positions.h"

namespace sylvomex {

OrthoColumns::OrthoColumns(const OrthoGrid& grid, const OrthoSource& source,
                           const OrthoHeights& heights, std::int32_t first_col, std::int32_t count,
                           double shift)
    : source_(source), heights_(heights), Y0_(grid.Y0), pixel_(grid.pixel), shift_(shift) {
  const Camera& camera = source_.camera;
  for (std::int32_t col = first_col; col < first_col + count; ++col) {
    const double X = grid.X0 + col * grid.pixel + shift;
    const double dX = X - camera.centre.X;
    X_.push_back(X);
    axis_r_.push_back(camera.m.m11 * dX);
    axis_s_.push_back(camera.m.m21 * dX);
    axis_q_.push_back(camera.m.m31 * dX);
    if (heights_.model != nullptr) model_cols_.push_back(Raster_Column(*heights_.model, X));
  }
}

void OrthoColumns::Find_Heights(double Y, std::span<double> Z) const {
  if (heights_.model == nullptr) {
    std::fill(Z.begin(), Z.end(), heights_.Without_Model());
    return;
  }
  const std::uint64_t model_row = Raster_Row(*heights_.model, Y);
  for (std::size_t k = 0; k < X_.size(); ++k) {
    Z[k] = heights_.Replaced(Raster_Cell(*heights_.model, model_cols_[k], model_row));
  }
}

void OrthoColumns::Find_Positions(std::int32_t row, std::span<double> Z,
                                  std::span<double> positions) const {
  const double Y = Y0_ + row * pixel_ + shift_;
  Find_Heights(Y, Z);
  Find_Byte_Positions(source_, {axis_r_, axis_s_, axis_q_}, Y - source_.camera.centre.Y, Z,
                      positions.first(X_.size()));
  for (std::size_t k = 0; k < X_.size(); ++k) {
    if (!std::isnan(positions[k])) continue;
    positions[k] = Byte_Position(source_, Object_To_Pixel(source_.camera, {X_[k], Y, Z[k]}));
  }
}

}  // namespace sylvomex
