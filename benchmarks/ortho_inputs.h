// SPDX-License-Identifier: MIT
// Inputs of the orthoimage kernel: a colour frame of 7500 x 11500 pixels, a ground model of 1001 x
// 1001 cells of 1 m, and 4000 x 4000 cells of 0.18 m.
#pragma once

#include <vector>

#include "bench_inputs.h"
#include "matching_inputs.h"
#include "products/ortho_image.h"
#include "relief_model.h"

namespace sylvomex::bench {

inline constexpr int kFrameWidth = 7500, kFrameHeight = 11500;
inline constexpr int kOrthoSide = 4000, kModelSide = 1001;
inline constexpr double kElsewhere = 160;

struct OrthoInputs {
  OrthoInputs()
      : frame(std::size_t{3} * kFrameWidth * kFrameHeight),
        cells(std::size_t{3} * kOrthoSide * kOrthoSide) {
    for (int row = 0; row < kFrameHeight; ++row) {
      Fill_Frame_Row(
          72, row,
          std::span(frame).subspan(std::size_t{3} * kFrameWidth * static_cast<std::size_t>(row),
                                   std::size_t{3} * kFrameWidth));
    }
    model = Relief_Model(kPlotX - 500, kPlotY - 500, kModelSide);
    source = {Patch_Camera(0).camera, frame, kFrameWidth, kFrameHeight, 3};
  }

  std::vector<std::uint8_t> frame, cells;
  RasterModel model;
  OrthoSource source;
  OrthoGrid grid{kPlotX - 360, kPlotY - 360, 0.18, kOrthoSide, kOrthoSide};
};

/// Ground position of a cell's pixel, one cell further north and east.
inline Point3D Ground_Of_Cell(const OrthoInputs& in, int col, int row) {
  const double X = in.grid.X0 + col * in.grid.pixel + in.grid.pixel;
  const double Y = in.grid.Y0 + row * in.grid.pixel + in.grid.pixel;
  const double Z = Raster_Height(in.model, X, Y);
  return {X, Y, Z < 100 ? kElsewhere : Z};
}

}  // namespace sylvomex::bench
