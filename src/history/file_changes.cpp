// SPDX-License-Identifier: MIT
#include "history/file_changes.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <utility>

#include "history/backwards.h"
#include "platform/append_witness.h"
#include "platform/file_descriptor.h"
#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/flush_to_disk.h"
#include "platform/run_time_error.h"
#include "platform/wall_clock.h"
#include "services/file_names.h"

namespace sylvomex {
namespace {

constexpr std::size_t kLargestScratch = 1 << 20;  // bytes

std::string Lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) {
    return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  });
  return text;
}

bool Is_Scratch(const FilePath& file) {
  const std::string name = Lower(file.name);
  for (const char* polyline : {kPixelPolylineFile, kFilmPolylineFile, kGroundPolylineFile}) {
    if (name == Lower(polyline)) return true;
  }
  return name.starts_with("c:\\data\\test_");  // the templates' files
}

std::optional<std::string> Content(const FilePath& file) {
  if (!File_Exists(file)) return std::nullopt;
  return Read_Whole_File(file);
}

// A file that cannot be read counts as missing: a watch never stands in a writer's way.
std::optional<std::string> Readable_Content(const FilePath& file) {
  try {
    return Content(file);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

void Set_Content(const FilePath& file, const std::optional<std::string>& content) {
  if (content) {
    Write_Whole_File(file, *content);
  } else {
    Delete_File(file);
  }
}

[[noreturn]] void Refuse(const FilePath& file, const std::string& cause) {
  throw RunTimeError(Failure::FileFailure, file.name + ", " + cause, file.native);
}

void Require_Content(const FilePath& file, const std::optional<std::string>& content) {
  if (Content(file) != content) Refuse(file, "it has been changed by something else since");
}

std::uint64_t Size_Of(const FileDescriptor& open_file, const FilePath& file) {
  struct stat status = {};
  if (fstat(open_file.Number(), &status) != 0) Throw_File_Error(file, errno);
  return static_cast<std::uint64_t>(status.st_size);
}

// Cut is cut, whether it has reached the disk or not: should the lines come back after a loss of
// power, they stand in the trace as well.
void Cut_File(const FileDescriptor& open_file, const FilePath& file, std::uint64_t size) {
  int failed = 0;
  do {
    failed = ftruncate(open_file.Number(), static_cast<off_t>(size));
  } while (failed != 0 && errno == EINTR);
  if (failed != 0) Throw_File_Error(file, errno);
  (void)Flush_To_Disk(open_file.Number());
}

/// Fewer bytes than asked for where the file ends or cannot be read.
std::string Bytes_At(const FileDescriptor& open_file, std::uint64_t start, std::size_t bytes) {
  std::string text(bytes, '\0');
  std::size_t done = 0;
  while (done < bytes) {
    const ssize_t count = pread(open_file.Number(), text.data() + done, bytes - done,
                                static_cast<off_t>(start + done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    done += static_cast<std::size_t>(count);
  }
  text.resize(done);
  return text;
}

// The position at which the lines begin when they are the last ones.
std::uint64_t Require_Last(const FileDescriptor& open_file, const FilePath& file,
                           const std::string& lines) {
  const std::uint64_t size = Size_Of(open_file, file);
  const bool fits = size >= lines.size();
  const std::uint64_t start = fits ? size - lines.size() : 0;
  if (!fits || Bytes_At(open_file, start, lines.size()) != lines) {
    Refuse(file, "its last line is not the one that was saved here: something else has written it");
  }
  return start;
}

FilePath Taken_File(const FilePath& file) {
  return {file.name + ".taken", file.native.string() + ".taken"};
}

std::string Now_Text() {
  const std::time_t now = Wall_Clock();
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
  return text.data();
}

void Leave_Trace(const FilePath& file, const char* what, const std::string& lines) {
  Append_To_File(Taken_File(file), std::string("# ") + what + " " + Now_Text() + "\n" + lines);
}

void Leave_Trace_If_Possible(const FilePath& file, const char* what, const std::string& lines) {
  try {
    Leave_Trace(file, what, lines);
  } catch (const RunTimeError&) {
    return;  // another failure is on its way to the operator
  }
}

// Without a trace the line is not put back: an error leaves the file as it was.
void Put_Back(const LineChange& change) {
  Leave_Trace(change.file, "put back", change.lines);
  try {
    Append_To_File(change.file, change.lines);
  } catch (const RunTimeError&) {
    Leave_Trace_If_Possible(change.file, "not put back", change.lines);
    throw;
  }
}

// Of each file, the lines that lie last are required to do so. changes: those that lie last first.
template <class Changes>
void Require_Last_Lines(Changes&& changes, bool taken) {
  const AppendWitness* const witness = Present_Append_Witness();
  if (witness != nullptr && witness->Is_Repeating()) return;
  std::vector<std::string> seen;
  for (const LineChange& change : changes) {
    const std::string native = change.file.native.string();
    if (change.taken != taken || std::ranges::find(seen, native) != seen.end()) continue;
    seen.push_back(native);
    const FileDescriptor open_file(change.file, O_RDONLY);
    Require_Last(open_file, change.file, change.lines);
  }
}

}  // namespace

void Take_Lines(const FilePath& file, const std::string& lines) {
  // As for an append: the rest of the file stays.
  const auto open_file = Open_Locked(file, O_RDWR | O_APPEND);
  AppendWitness* const witness = Present_Append_Witness();
  if (witness != nullptr && witness->Already_Taken(file, lines)) {
    return Leave_Trace(file, "taken back", lines);
  }
  const std::uint64_t start = Require_Last(*open_file, file, lines);
  if (witness != nullptr) witness->Will_Take(file, start, lines);
  try {
    Leave_Trace(file, "taken back", lines);
    Cut_File(*open_file, file, start);
  } catch (const RunTimeError&) {
    if (witness != nullptr) witness->Not_Taken(file);
    throw;
  }
  if (witness != nullptr) witness->Has_Taken(file);
}

void Require_Undoable(const FileChanges& changes) {
  for (const ScratchChange& scratch : changes.scratch) {
    Require_Content(scratch.file, scratch.after);
  }
  Require_Last_Lines(Backwards(changes.lines), false);
}

void Require_Redoable(const FileChanges& changes) {
  for (const ScratchChange& scratch : changes.scratch) {
    Require_Content(scratch.file, scratch.before);
  }
  Require_Last_Lines(changes.lines, true);
}

void Undo_Files(const FileChanges& changes) {
  for (const LineChange& change : Backwards(changes.lines)) {
    if (change.taken) {
      Put_Back(change);
    } else {
      Take_Lines(change.file, change.lines);
    }
  }
  for (const ScratchChange& scratch : changes.scratch) Set_Content(scratch.file, scratch.before);
}

void Redo_Files(const FileChanges& changes) {
  for (const LineChange& change : changes.lines) {
    if (change.taken) {
      Take_Lines(change.file, change.lines);
    } else {
      Put_Back(change);
    }
  }
  for (const ScratchChange& scratch : changes.scratch) Set_Content(scratch.file, scratch.after);
}

void FileChangeWatch::Will_Change(const FilePath& file, bool appends) {
  if (!Is_Scratch(file)) {
    if (!appends) rewritten_.push_back(file.native.string());
    return;
  }
  const bool seen = std::ranges::any_of(seen_.scratch, [&](const ScratchChange& change) {
    return change.file.native == file.native;
  });
  std::error_code failure;
  const auto size = std::filesystem::file_size(file.native, failure);
  if (seen || (!failure && size > kLargestScratch)) return;
  seen_.scratch.push_back({file, Readable_Content(file), std::nullopt});
}

void FileChangeWatch::Has_Appended(const FilePath& file, std::string_view text) {
  const bool is_new = std::ranges::find(rewritten_, file.native.string()) != rewritten_.end();
  if (text.empty() || is_new || Is_Scratch(file)) return;
  bytes_ += text.size();
  if (bytes_ > kMostLines) return;
  if (!seen_.lines.empty() && seen_.lines.back().file.native == file.native) {
    seen_.lines.back().lines += text;
  } else {
    seen_.lines.push_back({file, std::string(text), false});
  }
}

FileChanges FileChangeWatch::Take() {
  FileChanges changes = std::exchange(seen_, {});
  if (std::exchange(bytes_, 0) > kMostLines) changes.lines.clear();
  rewritten_.clear();
  for (ScratchChange& scratch : changes.scratch) scratch.after = Readable_Content(scratch.file);
  std::erase_if(changes.scratch, [](const ScratchChange& s) { return s.before == s.after; });
  return changes;
}

}  // namespace sylvomex
