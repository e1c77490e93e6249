// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "heightmodels/raster_model.h"
#include "interchange/site.h"
#include "platform/files.h"
#include "region/region_images.h"

namespace sylvomex {

/// Seconds since its last answer.
class LapClock {
 public:
  double Lap() {
    const auto now = std::chrono::steady_clock::now();
    return std::chrono::duration<double>(now - std::exchange(last_, now)).count();
  }

 private:
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

/// A height model of which parts are read.
class PartialModel {
 public:
  /// header: its name on the drives. RunTimeErrors of the file layer.
  PartialModel(const DriveMap& drives, const std::string& header);

  /// Reads what lookups within the rectangle reach.
  void Read(const MapExtent& extent);

  [[nodiscard]] const RasterModel& Model() const { return model_; }

  /// Whether a position lies in the model.
  [[nodiscard]] bool Holds(double X, double Y) const;

 private:
  RasterModel model_;
  FilePath cells_;
};

/// The raw file of an image, mapped. RunTimeError(InputPastEnd) when it is shorter than its header
/// says, since a search would go on without it and a tile be black.
struct MappedRaw {
  MappedRaw(const DriveMap& drives, const ImageRecord& record);
  FilePath name;
  MappedFile file;
};

/// A new text file of a task. FailedOnTheWay when it cannot be written.
void Write_Task_File(const std::filesystem::path& file, std::string_view text);

}  // namespace sylvomex
