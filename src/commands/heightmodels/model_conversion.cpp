// SPDX-License-Identifier: MIT
#include "commands/heightmodels/model_conversion.h"

#include <span>
#include <string>

#include "heightmodels/tin_raster.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/written_pieces.h"
#include "services/hourglass.h"
#include "services/progress.h"
#include "state/camera_access.h"
#include "state/tin_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr double kLeastGround = 1;  // metres; cells below it stay 0

struct GridPlan {
  std::int32_t columns = 0, rows = 0;
  double first_X = 0, first_Y = 0;  // metres; column 0, row 0
  double cell_size = 1;
  std::string name;  // name of cell and header file, without ".raw" and ".hdr"
};

bool Is_Agreed(Workspace& w) {
  return w.screen->Message_Box("This routine requires access to source code, Continue?",
                               Buttons::YesNo) == Answer::Yes;
}

std::span<const std::uint8_t> Bytes_Of(const ZeroedArray<float>& cells) {
  return {reinterpret_cast<const std::uint8_t*>(cells.All().data()), cells.All().size_bytes()};
}

std::string Header_Text(const GridPlan& plan) {
  std::string text;
  for (const double value : {static_cast<double>(plan.columns), static_cast<double>(plan.rows),
                             plan.first_X, plan.first_Y, plan.cell_size, -99.0}) {
    text += Plain_Text(value) + "\n";
  }
  return text + plan.name + ".raw\n";
}

void Write_Model(Workspace& w, const GridPlan& plan, const ZeroedArray<float>& cells) {
  Write_Whole_File(w.Drives.Locate(plan.name + ".raw"), Bytes_Of(cells));
  Write_Whole_File(w.Drives.Locate(plan.name + ".hdr"), Header_Text(plan));
  w.screen->Message_Box("Written " + Plain_Text(plan.columns) + " by " + Plain_Text(plan.rows) +
                        " elevations");
}

// Fills a grid column by column. text: status line for a column; height: height of a cell whose
// ground is at least 1 m.
template <class Text, class Height>
ZeroedArray<float> Fill_Grid(Workspace& w, const GridPlan& plan, Text&& text, Height&& height) {
  ZeroedArray<float> cells(static_cast<std::size_t>(plan.columns) *
                           static_cast<std::size_t>(plan.rows));
  const HourglassGuard hourglass(w);
  Progress progress(w);
  WorkMeter meter(plan.columns);
  for (std::int32_t column = 0; column < plan.columns; ++column) {
    progress.Report(text(column));
    meter.Step();
    const double X = plan.first_X + column * plan.cell_size;
    for (std::int32_t row = 0; row < plan.rows; ++row) {
      const double Y = plan.first_Y + row * plan.cell_size;
      if (Get_Raster_Elevation(w, X, Y) < kLeastGround) continue;
      cells[static_cast<std::size_t>(row * plan.columns + column)] =
          static_cast<float>(height(X, Y));
    }
  }
  return cells;
}

void Write_Raster(Workspace& w, const TinRaster& raster) {
  Write_Both({w.Drives.Locate("c:\\temp\\test.raw"), raster.greys},
             {w.Drives.Locate("c:\\temp\\varrio.raw"), Bytes_Of(raster.heights)});
}

// Loading another model during this loop replaces the triangles: they are read from the block one
// at a time.
TinRaster Rasterize_Model(Workspace& w) {
  const HourglassGuard hourglass(w);
  TinRaster raster = Make_Tin_Raster(w.TinDem);
  Progress progress(w);
  WorkMeter meter(w.TinDem.TriangleCount);
  for (std::int32_t i = 0; i < w.TinDem.TriangleCount; ++i) {
    meter.Step();
    Rasterize_Triangle(w.TinDem.Triangles[static_cast<std::size_t>(i)], raster);
    progress.Report(Plain_Text(i));
  }
  return raster;
}

}  // namespace

void Create_raster_CHM_from_TIN_CHM(Workspace& w) {
  if (!Is_Agreed(w)) return;
  const GridPlan plan{400, 300, 368000.5, 6671500.5, 1, "c:\\temp\\tin_chm"};
  const auto text = [&](std::int32_t column) {
    return Format(static_cast<double>(column) / plan.columns * 100, "0.0 ");
  };
  const auto height = [&w](double X, double Y) {
    std::int32_t hint = 0;
    return Get_Tin_Chm_Elevation(w, X, Y, hint);
  };
  Write_Model(w, plan, Fill_Grid(w, plan, text, height));
}

void Create_raster_DEM_from_TIN_DEM(Workspace& w) {
  if (!Is_Agreed(w)) return;
  const GridPlan plan{160, 140, 2516880.5, 6858340.5, 1, "c:\\temp\\tin_dem"};
  const auto text = [&](std::int32_t column) {
    return "Column " + Plain_Text(column) + " of " + Plain_Text(plan.columns);
  };
  TinTiles tiles(w.Drives);
  const auto height = [&](double X, double Y) {
    std::int32_t hint = 0;
    return Get_Tin_Elevation_Tiled(w, X, Y, hint, tiles);
  };
  Write_Model(w, plan, Fill_Grid(w, plan, text, height));
}

void TIN2RASTER_Fast(Workspace& w) {
  const TinRaster raster = Rasterize_Model(w);
  Write_Raster(w, raster);
  w.screen->Message_Box(std::to_string(raster.cells_written));
}

}  // namespace sylvomex
