// SPDX-License-Identifier: MIT
#include "products/ortho_columns.h"

#include <cmath>
#include <cstring>

namespace sylvomex {
namespace {

constexpr std::uint8_t kBlack[4] = {};

const std::uint8_t* Pixel_At(const std::uint8_t* bytes, std::uint32_t offset) {
  return offset == kNoOffset ? kBlack : bytes + offset;
}

// Four bytes at a time, of which the next cell overwrites the last.
void Copy_Colour(const std::uint8_t* bytes, std::span<const std::uint32_t> offsets,
                 std::uint8_t* cells) {
  if (offsets.empty()) return;
  for (const std::uint32_t offset : offsets.first(offsets.size() - 1)) {
    std::memcpy(cells, Pixel_At(bytes, offset), 4);
    cells += 3;
  }
  std::memcpy(cells, Pixel_At(bytes, offsets.back()), 3);
}

}  // namespace

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

void OrthoColumns::Find_Heights(double Y, RowHeights& scratch) const {
  const RasterModel* model = heights_.model;
  const std::uint64_t model_row = model == nullptr ? 0 : Raster_Row(*model, Y);
  if (scratch.model_row == model_row) return;
  scratch.model_row = model_row;
  scratch.Z.resize(X_.size());
  for (std::size_t k = 0; k < X_.size(); ++k) {
    scratch.Z[k] = model == nullptr
                       ? heights_.Without_Model()
                       : heights_.Replaced(Raster_Cell(*model, model_cols_[k], model_row));
  }
}

void OrthoColumns::Find_Positions(std::int32_t row, RowHeights& scratch,
                                  std::span<double> positions) const {
  const double Y = Y_Of(row);
  Find_Heights(Y, scratch);
  Find_Byte_Positions(source_, {axis_r_, axis_s_, axis_q_}, Y - source_.camera.centre.Y, scratch.Z,
                      positions.first(X_.size()));
  for (std::size_t k = 0; k < X_.size(); ++k) {
    if (!std::isnan(positions[k])) continue;
    positions[k] =
        Byte_Position(source_, Object_To_Pixel(source_.camera, {X_[k], Y, scratch.Z[k]}));
  }
}

RowCells OrthoColumns::Find_Offsets(std::int32_t row, RowHeights& scratch, double lowest,
                                    std::span<std::uint32_t> offsets) const {
  const double Y = Y_Of(row);
  Find_Heights(Y, scratch);
  return Find_Byte_Offsets(source_, {axis_r_, axis_s_, axis_q_}, Y - source_.camera.centre.Y,
                           scratch.Z, lowest, offsets.first(X_.size()));
}

void Copy_Pixels(const OrthoSource& source, std::span<const std::uint32_t> offsets,
                 std::uint8_t* cells) {
  const std::uint8_t* bytes = source.bytes.data();
  if (source.pixel_bytes == 3) return Copy_Colour(bytes, offsets, cells);
  for (const std::uint32_t offset : offsets) *cells++ = *Pixel_At(bytes, offset);
}

}  // namespace sylvomex
