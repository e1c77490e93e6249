// SPDX-License-Identifier: MIT
// Locks that keep two programs from writing one file at the same time.
#pragma once

#include <chrono>
#include <memory>

#include "platform/drive_map.h"
#include "platform/file_descriptor.h"

namespace sylvomex {

inline constexpr std::chrono::milliseconds kLongestLockWait{5000};

/// Locks an open file for its sole writer, until it is closed. It must be open for writing. Waits
/// while another program holds the lock; RunTimeError(FileFailure) naming the file after `longest`.
/// On a disk that knows no locks it returns at once and nothing is locked.
void Lock_File(const FileDescriptor& open_file, const FilePath& file,
               std::chrono::milliseconds longest = kLongestLockWait);

/// Opens a file with the flags of open(2) and locks it. A file that another program put in its
/// place meanwhile is opened instead. `file` must outlive the result.
std::unique_ptr<FileDescriptor> Open_Locked(const FilePath& file, int flags,
                                            std::chrono::milliseconds longest = kLongestLockWait);

}  // namespace sylvomex
