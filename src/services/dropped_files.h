// SPDX-License-Identifier: MIT
// Files that were dropped on the window: what the program can do with them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace sylvomex {

enum class DroppedKind { Image, RasterModel, TinModel, Map };

struct DroppedFile {
  DroppedKind kind = DroppedKind::Image;
  std::vector<std::string> files;  // native paths, as the dialogs of the command ask for them

  bool operator==(const DroppedFile&) const = default;
};

struct DroppedFiles {
  std::vector<DroppedFile> known;    // images, models, maps; each in the order of its name
  std::vector<std::string> unknown;  // native paths
};

/// Headers (".hdr", whatever the case) are told by what they hold. A ".nod" or a ".tri" stands for
/// both, which must lie beside each other under one name.
DroppedFiles Sorted_Drop(std::vector<std::filesystem::path> files);

}  // namespace sylvomex
