// SPDX-License-Identifier: MIT
#include "platform/line_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/flush_to_disk.h"
#include "platform/sound_reads.h"

namespace sylvomex {

LineFile::LineFile(const FilePath& file)
    : file_(file), open_file_(file_, O_WRONLY | O_CREAT | O_TRUNC) {}

void LineFile::Write(std::string_view lines) {
  Require_Sound_Reads();
  std::size_t done = 0;
  while (done < lines.size()) {
    const ssize_t count = write(open_file_.Number(), lines.data() + done, lines.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) Take_Back(static_cast<off_t>(done), count == 0 ? ENOSPC : errno);
    done += static_cast<std::size_t>(count);
  }
}

// A disk that is full takes a part of the lines.
void LineFile::Take_Back(off_t written, int error) {
  const off_t before = lseek(open_file_.Number(), -written, SEEK_CUR);
  if (before < 0 || ftruncate(open_file_.Number(), before) != 0) {
    Throw_File_Failure(file_, "a line was written in part");
  }
  Throw_File_Error(file_, error);
}

void LineFile::Close() {
  if (const int error = Flush_To_Disk(open_file_.Number())) Throw_File_Error(file_, error);
  open_file_.Close();
}

}  // namespace sylvomex
