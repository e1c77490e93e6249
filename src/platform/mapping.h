// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <optional>
#include <span>

#include "platform/drive_map.h"
#include "platform/fault_guard.h"
#include "platform/run_time_error.h"

namespace sylvomex {

/// The memory of a file that is mapped read-only as a whole.
class Mapping {
 public:
  /// The file must be an ordinary one. RunTimeError of the file layer.
  explicit Mapping(const FilePath& file);
  ~Mapping();
  Mapping(const Mapping&) = delete;
  Mapping& operator=(const Mapping&) = delete;

  [[nodiscard]] const FilePath& File() const { return file_; }
  [[nodiscard]] std::span<const std::uint8_t> Bytes() const { return {data_, size_}; }

  /// True while the file at the path is still this one, unchanged, and all of it could be read.
  [[nodiscard]] bool Is_Current() const;

  /// Why the bytes read so far cannot be trusted: the file has become shorter, a part of it could
  /// not be read and counts as zeros, or it was rewritten in its place.
  [[nodiscard]] std::optional<RunTimeError> Failed() const;

 private:
  /// The mapped file as it is now; nothing when its name leads to another one or to none.
  [[nodiscard]] std::optional<struct stat> Status_Now() const;

  FilePath file_;
  struct stat status_ = {};  // as it was mapped
  int descriptor_ = -1;      // of the file, kept to be asked; -1 where many are open
  const std::uint8_t* data_ = nullptr;
  std::size_t size_ = 0;
  std::optional<FaultGuard> guard_;
};

}  // namespace sylvomex
