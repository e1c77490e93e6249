// SPDX-License-Identifier: MIT
#include "services/dropped_files.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include "heightmodels/raster_model.h"
#include "imageblock/image_header.h"
#include "mapview/map_header.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

std::string Lower_Ending(const fs::path& file) {
  std::string ending = file.extension().string();
  for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return ending;
}

template <class Read>
bool Can_Be_Read(Read&& read) {
  try {
    read();
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

std::optional<DroppedFile> Header(const fs::path& file) {
  const FilePath header{file.string(), file};
  if (Can_Be_Read([&] {
        ListReader list(header);
        Read_Image_Header(list);
      })) {
    return DroppedFile{DroppedKind::Image, {header.name}};
  }
  RasterModel model;
  if (Can_Be_Read([&] { Read_Raster_Header(header, model); })) {
    return DroppedFile{DroppedKind::RasterModel, {header.name}};
  }
  if (Can_Be_Read([&] {
        ListReader list(header);
        Read_Map_Header(list);
      })) {
    return DroppedFile{DroppedKind::Map, {header.name}};
  }
  return std::nullopt;
}

/// The file of the same name with that ending, in small or capital letters.
std::optional<fs::path> Beside(fs::path file, const char* small, const char* capital) {
  std::error_code unreadable;
  for (const char* ending : {small, capital}) {
    if (fs::is_regular_file(file.replace_extension(ending), unreadable)) return file;
  }
  return std::nullopt;
}

std::optional<DroppedFile> Tin(const fs::path& file) {
  const auto nodes = Beside(file, ".nod", ".NOD");
  const auto triangles = Beside(file, ".tri", ".TRI");
  if (!nodes || !triangles) return std::nullopt;
  return DroppedFile{DroppedKind::TinModel, {nodes->string(), triangles->string()}};
}

std::optional<DroppedFile> Known(const fs::path& file) {
  const std::string ending = Lower_Ending(file);
  if (ending == ".hdr") return Header(file);
  if (ending == ".nod" || ending == ".tri") return Tin(file);
  return std::nullopt;
}

}  // namespace

DroppedFiles Sorted_Drop(std::vector<fs::path> files) {
  std::ranges::sort(files);
  DroppedFiles sorted;
  for (const fs::path& file : files) {
    auto known = Known(file);
    if (!known) {
      sorted.unknown.push_back(file.string());
    } else if (std::ranges::find(sorted.known, *known) == sorted.known.end()) {
      sorted.known.push_back(std::move(*known));
    }
  }
  std::ranges::stable_sort(sorted.known, {}, &DroppedFile::kind);
  return sorted;
}

}  // namespace sylvomex
