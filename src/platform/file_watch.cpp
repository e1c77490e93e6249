// SPDX-License-Identifier: MIT
#include "platform/file_watch.h"

#include <atomic>

namespace sylvomex {
namespace {

std::atomic<FileWatch*>& Watch() {
  static std::atomic<FileWatch*> watch{nullptr};
  return watch;
}

}  // namespace

FileWatch* Set_File_Watch(FileWatch* watch) { return Watch().exchange(watch); }

FileWatch* Present_File_Watch() { return Watch().load(std::memory_order_acquire); }

std::uint64_t Visible_Bytes(const FilePath& file, std::uint64_t size) {
  FileWatch* const watch = Present_File_Watch();
  return watch == nullptr ? size : watch->Visible_Bytes(file, size);
}

std::filesystem::path Place_To_Read(const FilePath& file) {
  FileWatch* const watch = Present_File_Watch();
  return watch == nullptr ? file.native : watch->Place_To_Read(file);
}

}  // namespace sylvomex
