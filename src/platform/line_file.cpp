// SPDX-License-Identifier: MIT
#include "platform/line_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace sylvomex {

LineFile::LineFile(const FilePath& file)
    : file_(file), open_file_(file_, O_WRONLY | O_CREAT | O_TRUNC) {}

void LineFile::Write(std::string_view lines) {
  ssize_t count = 0;
  do {
    count = write(open_file_.Number(), lines.data(), lines.size());
  } while (count < 0 && errno == EINTR);
  if (count < 0) Throw_File_Error(file_, errno);
  if (static_cast<std::size_t>(count) != lines.size()) Throw_File_Error(file_, ENOSPC);
}

void LineFile::Close() {
  // Pipes and devices cannot be flushed, and need not be.
  if (fdatasync(open_file_.Number()) != 0 && errno != EINVAL && errno != ENOTSUP) {
    Throw_File_Error(file_, errno);
  }
  open_file_.Close();
}

}  // namespace sylvomex
