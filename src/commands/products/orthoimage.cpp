// SPDX-License-Identifier: MIT
#include "commands/products/orthoimage.h"

#include <algorithm>
#include <new>
#include <optional>

#include "commands/products/ortho_inputs.h"
#include "platform/memory_room.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/sound_reads.h"
#include "platform/work_meter.h"
#include "platform/written_pieces.h"
#include "platform/zeroed_array.h"
#include "products/ortho_image.h"
#include "services/progress.h"
#include "state/followed_image.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

// Wide slabs are computed twice as fast as narrow ones; whether the image is still there is looked
// at more often.
constexpr std::int32_t kSlabColumns = 2048;
constexpr std::int32_t kCheckedColumns = 64;

struct OrthoOrder {
  int image = 0;
  OrthoGrid grid;
  double elsewhere = 170;  // metres
};

/// Asks until the number is one of the block's; nothing when the question was dismissed.
std::optional<int> Ask_Image(Workspace& w) {
  for (;;) {
    const auto number =
        Ask_Number(w, {"Which image is used, first = 0, 2nd = 1 etc.?", 0, ""}, BadAnswer::IsTold);
    if (!number) return std::nullopt;
    if (Round_Half_Even(*number) <= w.ImageCount - 1) return To_Int32(*number);
    w.screen->Message_Box("There are :" + Plain_Text(std::int32_t{w.ImageCount}) +
                          " photographs, numbered : 0-" +
                          Plain_Text(std::int32_t{w.ImageCount} - 1));
  }
}

std::optional<OrthoOrder> Ask_Order(Workspace& w) {
  OrthoOrder order;
  const auto image = Ask_Image(w);
  if (!image) return std::nullopt;
  order.image = *image;
  const auto extent = Ask_Extent(w, BadAnswer::IsTold);
  if (!extent) return std::nullopt;
  const auto elsewhere = Ask_Number(
      w, {"Elevation outside DEM? , Default = 170 (m)", order.elsewhere, "160"}, BadAnswer::IsTold);
  if (!elsewhere) return std::nullopt;
  order.elsewhere = *elsewhere;
  order.grid = Grid_Of(w, *extent);
  return order;
}

/// Every cell will be written, so that all of the memory is needed.
ZeroedArray<std::uint8_t> Black_Cells(const OrthoGrid& grid, int pixel_bytes) {
  const std::uint64_t bytes = grid.Cells() * static_cast<std::uint64_t>(pixel_bytes);
  Require_Memory(bytes, "an orthoimage of " + Plain_Text(grid.columns) + " x " +
                            Plain_Text(grid.rows) + " pixels");
  return ZeroedArray<std::uint8_t>(bytes);
}

/// The image as it is now: a command that ran while events were serviced may have moved it.
OrthoSource Present_Source(Workspace& w, const FollowedImage& image) {
  const ImageRecord& record = w.ImageBlock(image.Index());
  const MappedFile& file = w.RawFiles.Open(w.Drives.Locate(record.RawFileName.Trimmed()));
  return Make_Ortho_Source(record, Make_Camera(record, w.RotationTable(image.Index())),
                           file.Bytes());
}

void Fill_Cells(Workspace& w, const OrthoOrder& order, const FollowedImage& image, int pixel_bytes,
                std::span<std::uint8_t> cells) {
  Progress progress(w, w.Form1.Label2);
  const OrthoGrid& grid = order.grid;
  LastPixel last{};
  const std::int32_t slab_count = (grid.columns + kSlabColumns - 1) / kSlabColumns;
  WorkMeter slabs(slab_count);  // the columns between are told only
  for (std::int32_t col = 0; col < grid.columns; ++col) {
    progress.Report(Format(static_cast<double>(col) / grid.columns * 100, "0000.0000") + " %");
    Look_At_Work();
    if (col % kCheckedColumns != 0) continue;
    OrthoSource source = Present_Source(w, image);
    if (col % kSlabColumns != 0) continue;
    source.pixel_bytes = pixel_bytes;
    const OrthoHeights heights{w.RasterDemLoaded ? &w.RasterDem : nullptr, order.elsewhere};
    Fill_Ortho_Columns(grid, source, heights, col, std::min(grid.columns, col + kSlabColumns),
                       cells, last);
    Require_Sound_Reads();
    slabs.Task();
  }
}

void Ask_Name_And_Write(Workspace& w, std::span<const std::uint8_t> cells) {
  const auto file = Ask_Result_Name(w);
  if (!file) return;
  try {
    Replace_By_Pieces(*file, cells);
  } catch (const RunTimeError& error) {
    Require_Sound_Reads();
    return Say_Too_Wide(w, error);
  }
  Say_Written(w, file->name);
}

int Pixel_Bytes(const ImageRecord& record) { return record.ColorFlag == 1 ? 3 : 1; }

}  // namespace

void Orto(Workspace& w) {
  if (!w.RasterDemLoaded) {
    w.screen->Message_Box("Read height model first!");
    return;
  }
  ZeroedArray<std::uint8_t> cells;
  try {
    const auto order = Ask_Order(w);
    if (!order) return;
    Show_Size(w, order->grid);
    const FollowedImage image(w, order->image);
    const int pixel_bytes = Pixel_Bytes(w.ImageBlock(order->image));
    cells = Black_Cells(order->grid, pixel_bytes);
    Fill_Cells(w, *order, image, pixel_bytes, cells.All());
  } catch (const RunTimeError& error) {
    Require_Sound_Reads();
    Say_Too_Wide(w, error);
  } catch (const std::bad_alloc& error) {
    Say_Too_Wide(w, error);
  }
  Ask_Name_And_Write(w, cells.All());
}

}  // namespace sylvomex
