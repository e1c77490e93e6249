// SPDX-License-Identifier: MIT
#include "platform/line_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/sound_reads.h"

namespace sylvomex {

LineFile::LineFile(const FilePath& file)
    : file_(file), open_file_(file_, O_WRONLY | O_CREAT | O_TRUNC) {}

void LineFile::Write(std::string_view lines) {
  Require_Sound_Reads();
  ssize_t count = 0;
  do {
    count = write(open_file_.Number(), lines.data(), lines.size());
  } while (count < 0 && errno == EINTR);
  if (count < 0) Throw_File_Error(file_, errno);
  if (static_cast<std::size_t>(count) != lines.size()) Take_Back(count);
}

// A disk that is full takes a part of the lines.
void LineFile::Take_Back(ssize_t count) {
  const off_t before = lseek(open_file_.Number(), -count, SEEK_CUR);
  if (before < 0 || ftruncate(open_file_.Number(), before) != 0) {
    Throw_File_Failure(file_, "a line was written in part");
  }
  Throw_File_Error(file_, ENOSPC);
}

void LineFile::Close() {
  // Some network drives cannot flush.
  if (fdatasync(open_file_.Number()) != 0 && errno != EINVAL && errno != ENOTSUP) {
    Throw_File_Error(file_, errno);
  }
  open_file_.Close();
}

}  // namespace sylvomex
