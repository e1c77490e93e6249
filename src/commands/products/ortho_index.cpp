// SPDX-License-Identifier: MIT
#include "commands/products/ortho_index.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <vector>

#include "commands/products/ortho_inputs.h"
#include "imageblock/image_header.h"
#include "platform/memory_room.h"
#include "platform/number_text.h"
#include "platform/replacing_file.h"
#include "platform/written_pieces.h"
#include "platform/zeroed_array.h"
#include "products/ortho_index.h"
#include "services/line_count.h"
#include "services/progress.h"
#include "solver/camera_table.h"
#include "solver/random_id.h"
#include "state/cause.h"

namespace sylvomex {
namespace {

constexpr std::size_t kPieceCells = std::size_t{1} << 20;

struct IndexOrder {
  std::string table;  // file of the cameras
  double pixel = 0;   // metres
  bool colour = false;
};

std::optional<IndexOrder> Ask_Order(Workspace& w) {
  const auto number = w.screen->Input_Box("Number of the camera data list?", kOrthoTitle, "533");
  if (!number) return std::nullopt;
  const auto pixel =
      Ask_Number(w, {"Pixel size in orthoimage? (m)", 0, ""}, BadAnswer::EndsCommand);
  if (!pixel) return std::nullopt;
  const auto colour = Ask_Number(w, {"Color (1) or BW (0)?", 0, ""}, BadAnswer::EndsCommand);
  if (!colour) return std::nullopt;
  return IndexOrder{"c:\\data\\Cam_Data_j_" + *number + ".csv", *pixel, *colour == 1};
}

struct CoveringImage {
  ImageRecord record;
  Camera camera;
  GroundLimits limits;
  std::uint8_t number = 0;
};

/// Every image of the table that sees the ground, in table order.
std::vector<CoveringImage> Read_Images(Workspace& w, const std::string& table) {
  CameraTableReader cameras(w.Drives.Locate(table));
  Progress progress(w, w.Form1.Label2);
  WorkMeter meter(Lines_To_Come(w.Drives.Locate(table)));
  std::vector<CoveringImage> images;
  for (std::size_t place = 0; const auto line = cameras.Next(); ++place) {
    progress.Report("Image: " + std::to_string(place + 1));
    ListReader header = Named_In(w, table + ", line " + Plain_Text(std::int32_t{line->line}),
                                 [&] { return ListReader(w.Drives.Locate(line->header)); });
    const ImageRecord record = Read_Image_Header(header);
    const Camera camera = Make_Camera(record);
    const auto limits = Limits_Of_Border(record, camera);
    if (limits) images.push_back({record, camera, *limits, Index_Number(place)});
    meter.Task();
  }
  return images;
}

/// The grid over all images; their cells will be written, so that their memory is needed.
OrthoGrid Grid_Of_All(const std::vector<CoveringImage>& images, const IndexOrder& order) {
  if (images.empty()) {
    throw RunTimeError(Failure::BadContent, order.table + " lists no image that sees the ground");
  }
  std::vector<GroundLimits> limits;
  limits.reserve(images.size());
  for (const CoveringImage& image : images) limits.push_back(image.limits);
  const OrthoGrid grid = Grid_Over(
      std::accumulate(limits.begin(), limits.end(), limits.front(), Around_Both), order.pixel);
  const double bytes = Cells_Within(grid, limits) * (sizeof(float) + sizeof(std::uint8_t));
  Require_Memory(static_cast<std::uint64_t>(bytes), "an index of " + Plain_Text(grid.columns) +
                                                        " x " + Plain_Text(grid.rows) + " cells");
  return grid;
}

void Mark_All(const std::vector<CoveringImage>& images, const OrthoGrid& grid, std::span<float> ids,
              std::span<std::uint8_t> numbers) {
  WorkMeter meter(static_cast<double>(images.size()));
  for (const CoveringImage& image : images) {
    Mark_Covered_Cells(grid, image.record, image.camera, image.limits, image.number, ids, numbers);
    meter.Step();
  }
}

std::string New_Result_Name(Workspace& w) {
  return "C:\\temp\\" + Random_Id8(w.screen->Random()) + ".raw";
}

void Write_Result(Workspace& w, std::span<const std::uint8_t> content) {
  const std::string name = New_Result_Name(w);
  Replace_By_Pieces(w.Drives.Locate(name), content);
  Say_Written(w, name);
}

void Write_Three_A_Cell(Workspace& w, std::span<const std::uint8_t> numbers) {
  const std::string name = New_Result_Name(w);
  ReplacingFile file(w.Drives.Locate(name), 3 * numbers.size());
  std::vector<std::uint8_t> piece;
  WorkMeter meter(static_cast<double>(numbers.size()) / static_cast<double>(kPieceCells));
  for (std::size_t at = 0; at < numbers.size(); at += kPieceCells) {
    piece.resize(3 * std::min(kPieceCells, numbers.size() - at));
    for (std::size_t k = 0; k < piece.size(); ++k) piece[k] = numbers[at + k / 3];
    file.Write_At(3 * at, piece);
    meter.Step();
  }
  file.Commit();
  Say_Written(w, name);
}

std::span<const std::uint8_t> Bytes_Of(std::span<const float> floats) {
  return {reinterpret_cast<const std::uint8_t*>(floats.data()), floats.size_bytes()};
}

}  // namespace

void Create_An_OrthoIndex(Workspace& w) {
  const auto order = Ask_Order(w);
  if (!order) return;
  const std::vector<CoveringImage> images = Read_Images(w, order->table);
  const OrthoGrid grid = Grid_Of_All(images, *order);
  ZeroedArray<float> ids(grid.Cells());
  ZeroedArray<std::uint8_t> numbers(grid.Cells());
  Mark_All(images, grid, ids.All(), numbers.All());
  Write_Result(w, Bytes_Of(ids.All()));
  if (!order->colour) return Write_Result(w, numbers.All());
  Write_Three_A_Cell(w, numbers.All());
}

}  // namespace sylvomex
