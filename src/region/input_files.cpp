// SPDX-License-Identifier: MIT
#include "region/input_files.h"

#include <sys/stat.h>
#include <tbb/parallel_for_each.h>

#include <algorithm>
#include <cerrno>
#include <set>
#include <vector>

#include "heightmodels/raster_model.h"
#include "interchange/checksum.h"
#include "interchange/failures.h"
#include "platform/file_descriptor.h"
#include "platform/run_time_error.h"
#include "region/plan_record.h"
#include "region/region_images.h"

namespace sylvomex {
namespace {

std::int64_t Nanoseconds(const timespec& time) {
  constexpr std::uint64_t kSecond = 1'000'000'000;
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(time.tv_sec) * kSecond +
                                   static_cast<std::uint64_t>(time.tv_nsec));
}

/// Size and stamp of a file as it is now.
FileContent Look_At(const FilePath& file) {
  struct stat status = {};
  if (stat(file.native.c_str(), &status) != 0) Throw_File_Error(file, errno);
  if (!S_ISREG(status.st_mode)) Throw_File_Failure(file, "it is not an ordinary file");
  return {static_cast<std::uint64_t>(status.st_size),
          "",
          {Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim), status.st_ino}};
}

FilePath Data_Of(const DriveMap& drives, const std::string& header, bool is_image) {
  if (is_image) {
    return drives.Locate(Read_Region_Image(drives, header).record.RawFileName.Trimmed());
  }
  RasterModel model;
  Read_Raster_Header(drives.Locate(header), model);
  return drives.Locate(model.CellFile.Trimmed());
}

/// A file whose content is to be told.
struct Telling {
  FilePath file;
  FileContent* content = nullptr;
};

void Tell(const Telling& telling, bool takes_checksums) try {
  *telling.content = Look_At(telling.file);
  if (takes_checksums) telling.content->checksum = File_Checksum(telling.file.native);
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

std::set<int> Images_Of(const RegionPlan& plan) {
  std::set<int> images;
  for (const RegionTask& task : plan.tasks) {
    if (task.kind == TaskKind::OrthoTile) images.insert(task.tile.image);
    images.insert(task.plot.images.begin(), task.plot.images.end());
  }
  return images;
}

bool Has_Plots(const RegionPlan& plan) {
  return std::any_of(plan.tasks.begin(), plan.tasks.end(),
                     [](const RegionTask& task) { return task.kind == TaskKind::TreeTops; });
}

bool Has_Content(const FilePath& file, const FileContent& now, const FileContent& planned) {
  if (planned.checksum.empty()) return now.stamp.modified_ns == planned.stamp.modified_ns;
  return File_Checksum(file.native) == planned.checksum;
}

}  // namespace

void Tell_Input_Files(RegionPlan& plan, bool takes_checksums) {
  const DriveMap drives(plan.site);
  std::vector<Telling> tellings;
  const auto add = [&](const std::string& header, std::optional<InputFiles>& files, bool is_image) {
    files.emplace();
    tellings.push_back({drives.Locate(header), &files->header});
    tellings.push_back({Data_Of(drives, header, is_image), &files->data});
  };
  plan.image_files.assign(plan.headers.size(), std::nullopt);
  for (const int k : Images_Of(plan)) {
    const auto image = static_cast<std::size_t>(k);
    add(plan.headers[image], plan.image_files[image], true);
  }
  add(plan.dem, plan.dem_files, false);
  if (Has_Plots(plan)) add(plan.chm, plan.chm_files, false);
  tbb::parallel_for_each(
      tellings, [takes_checksums](const Telling& telling) { Tell(telling, takes_checksums); });
}

InputCheck::InputCheck(const RegionPlan& plan) : plan_(plan), drives_(plan.site) {}

void InputCheck::Require(const RegionTask& task) {
  if (task.kind == TaskKind::OrthoTile) Require_Image(task.tile.image);
  for (const int image : task.plot.images) Require_Image(image);
  Require_Pair(plan_.dem, plan_.dem_files.value(), false);
  if (task.kind == TaskKind::TreeTops) Require_Pair(plan_.chm, plan_.chm_files.value(), false);
}

void InputCheck::Require_Image(int image) {
  const auto k = static_cast<std::size_t>(image);
  Require_Pair(plan_.headers[k], plan_.image_files[k].value(), true);
}

void InputCheck::Require_Pair(const std::string& header, const InputFiles& planned, bool is_image) {
  if (!headers_.contains(header)) headers_[header] = drives_.Locate(header);
  Require_File(headers_[header], planned.header);
  if (!data_.contains(header)) data_[header] = Data_Of(drives_, header, is_image);
  Require_File(data_[header], planned.data);
}

void InputCheck::Require_File(const FilePath& file, const FileContent& planned) {
  const FileContent now = Look_At(file);
  if (now.bytes != planned.bytes) {
    Throw_File_Failure(file, "it has " + std::to_string(now.bytes) + " bytes, it had " +
                                 std::to_string(planned.bytes) + " when the region was planned");
  }
  FileStamp& known = known_.try_emplace(file.native.string(), planned.stamp).first->second;
  if (now.stamp == known) return;
  if (!Has_Content(file, now, planned)) {
    Throw_File_Failure(file, "it was changed after the region had been planned");
  }
  known = now.stamp;
}

}  // namespace sylvomex
