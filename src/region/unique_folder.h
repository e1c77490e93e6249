// SPDX-License-Identifier: MIT
// Folders in which one process writes what it will put into its place when it is complete. Many
// processes on many machines may make them side by side.
#pragma once

#include <filesystem>
#include <string>

namespace sylvomex {

/// The machine's name, as far as it can stand in a file name.
std::string Host_Name();

/// A new folder ".NAME.HOST.PROCESS.RANDOM". What is left in it at the end is removed with it.
class UniqueFolder {
 public:
  /// FailedOnTheWay when the folder cannot be made.
  UniqueFolder(const std::filesystem::path& parent, const std::string& name);
  ~UniqueFolder();
  UniqueFolder(const UniqueFolder&) = delete;
  UniqueFolder& operator=(const UniqueFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// Removes the unique folders that killed processes of this machine left in a folder.
void Remove_Left_Folders(const std::filesystem::path& parent);

}  // namespace sylvomex
