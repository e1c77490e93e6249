// SPDX-License-Identifier: MIT
#include "session/record_file.h"

#include <fcntl.h>

#include <utility>

#include "platform/file_descriptor.h"

namespace sylvomex {

RecordFile::RecordFile(FilePath file) : file_(std::move(file)) {
  FileDescriptor(file_, O_WRONLY | O_CREAT | O_TRUNC).Close();
  stream_.open(file_.native);
}

}  // namespace sylvomex
