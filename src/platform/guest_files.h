// SPDX-License-Identifier: MIT
// A guest is a program on a root that another program works on. It keeps the scratch files of its
// panes to itself, so that no picture is mixed with the other's.
#pragma once

#include <filesystem>
#include <string_view>

#include "platform/drive_map.h"

namespace sylvomex {

enum class GuestAccess { ReadsAndWrites, ReadsOnly };

/// Makes this process a guest for the object's life. Only one may live at a time.
class GuestFiles {
 public:
  /// Makes a folder of its own among the system's temporary files. With ReadsOnly nothing below the
  /// root can be written or removed. RunTimeError when the folder cannot be made.
  GuestFiles(const std::filesystem::path& root, GuestAccess access);

  /// Removes the folder.
  ~GuestFiles();
  GuestFiles(const GuestFiles&) = delete;
  GuestFiles& operator=(const GuestFiles&) = delete;
};

/// Where a scratch file lies that only this program reads again: on its drive, or in the guest's
/// own folder. The name in messages stays.
FilePath Scratch_File(const DriveMap& drives, std::string_view name);

/// Whether this program only reads a root.
bool Only_Reads();

/// Throws RunTimeError(PermissionDenied) for a file below a root that this program only reads.
void Require_Writable(const FilePath& file);

}  // namespace sylvomex
