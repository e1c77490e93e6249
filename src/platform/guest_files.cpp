// SPDX-License-Identifier: MIT
#include "platform/guest_files.h"

#include <stdlib.h>

#include <cerrno>
#include <optional>
#include <string>
#include <system_error>

#include "platform/file_descriptor.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

struct Guest {
  fs::path own_folder;
  fs::path guarded;  // nothing is written below it; empty for none
};

// Of the whole process, as the system's files know no block.
std::optional<Guest>& This_Guest() {
  static std::optional<Guest> guest;
  return guest;
}

fs::path Plain_Path(const fs::path& path) {
  std::error_code failure;
  fs::path plain = fs::weakly_canonical(fs::absolute(path, failure), failure);
  return failure ? path : plain;
}

bool Lies_Below(const fs::path& file, const fs::path& folder) {
  const fs::path below = file.lexically_relative(folder);
  return !below.empty() && *below.begin() != "..";
}

fs::path Make_Own_Folder() {
  std::error_code failure;
  fs::path folder = fs::temp_directory_path(failure);
  if (failure) folder = "/tmp";
  std::string pattern = (folder / "sylvomex_guest_XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) Throw_File_Error({pattern, pattern}, errno);
  return pattern;
}

}  // namespace

GuestFiles::GuestFiles(const fs::path& root, GuestAccess access) {
  const bool guards = access == GuestAccess::ReadsOnly;
  This_Guest() = Guest{Make_Own_Folder(), guards ? Plain_Path(root) : fs::path()};
}

GuestFiles::~GuestFiles() {
  std::error_code ignored;
  fs::remove_all(This_Guest()->own_folder, ignored);
  This_Guest().reset();
}

FilePath Scratch_File(const DriveMap& drives, std::string_view name) {
  FilePath file = drives.Locate(name);
  if (This_Guest()) {
    const std::size_t last = name.find_last_of("\\/:");
    std::string plain(last == std::string_view::npos ? name : name.substr(last + 1));
    for (char& c : plain) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    file.native = This_Guest()->own_folder / plain;
  }
  return file;
}

bool Only_Reads() { return This_Guest() && !This_Guest()->guarded.empty(); }

void Require_Writable(const FilePath& file) {
  if (!Only_Reads()) return;
  if (!Lies_Below(Plain_Path(file.native), This_Guest()->guarded)) return;
  throw RunTimeError(
      Failure::PermissionDenied,
      file.name + ", another program works on these drives, this one only shows them", file.native);
}

}  // namespace sylvomex
