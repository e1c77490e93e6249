// SPDX-License-Identifier: MIT
#include "session/journal_appends.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <set>
#include <utility>

#include "platform/checksum.h"
#include "platform/file_descriptor.h"
#include "session/file_part.h"
#include "session/script_reader.h"

namespace sylvomex {
namespace {

using State = JournaledAppend::State;

std::uint64_t Size_Of(const FilePath& file) {
  std::error_code failure;
  const auto size = std::filesystem::file_size(file.native, failure);
  return failure ? 0 : size;
}

bool Stands_There(const FilePath& file, const JournaledAppend& append) {
  const std::string part = Part_Of_File(file.native, append.offset, append.bytes);
  return part.size() == append.bytes && Checksum(part) == append.checksum;
}

}  // namespace

JournalAppends::JournalAppends(Journal& journal, std::map<long, JournaledAppend> known,
                               JournalReads& reads)
    : journal_(journal),
      known_(std::move(known)),
      reads_(reads),
      former_(Set_Append_Witness(this)),
      last_(known_.empty() ? 0 : known_.rbegin()->first) {
  std::set<std::string> seen;
  for (const auto& [number, append] : known_) {
    if (!seen.insert(append.file).second) continue;
    const bool is_as_it_was =
        Is_Taken_From(append.file) && reads_.Read_As_It_Was(append.file, number, append.offset);
    if (!is_as_it_was) Hide_Later_Lines(append.file, 0);
  }
}

JournalAppends::~JournalAppends() { Set_Append_Witness(former_); }

long JournalAppends::Repeated_Number(JournalLine::Kind kind, const FilePath& file) {
  if (!journal_.Is_Repeating()) return 0;
  const JournalLine* const line = journal_.Repeated()->Peek();
  if (line == nullptr) {
    journal_.Go_Beyond();
    return 0;
  }
  if (line->kind != kind) {
    Found("what was not written to " + file.name + " then was not written now");
    Throw_File_Failure(file, "the journal does not know that it was written here");
  }
  const long number = line->number;
  journal_.Repeated()->Take();
  Hide_Later_Lines(file.native.string(), number);
  return number;
}

/// Hides the lines of a file that the journal appends after one that has been done again, unless
/// the file is cut or begun anew in between.
void JournalAppends::Hide_Later_Lines(const std::string& path, long done) {
  const auto last = known_.find(done);
  const std::uint64_t end = last == known_.end() ? 0 : last->second.offset + last->second.bytes;
  const auto later = std::find_if(known_.upper_bound(done), known_.end(),
                                  [&](const auto& entry) { return entry.second.file == path; });
  const std::optional<long> write = reads_.Coming_Write(path);
  const bool hides = later != known_.end() && !later->second.takes && later->second.offset >= end &&
                     !(write && *write < later->first);
  reads_.Hide_From(path, hides ? std::optional(later->second.offset) : std::nullopt);
}

void JournalAppends::Will_Open(const FilePath& file, bool is_missing) {
  const std::string path = file.native.string();
  if (journal_.Is_Repeating()) {
    const JournalLine* const line = journal_.Repeated()->Peek();
    const bool is_created_now = line != nullptr && line->kind == JournalLine::Kind::Create &&
                                line->step.words.front().text == path;
    if (is_created_now) {
      journal_.Repeated()->Take();
      return reads_.Is_Created_Again(path);
    }
    if (line != nullptr) return;
    journal_.Go_Beyond();
  }
  if (is_missing) journal_.Comment("creates " + Script_Word(path), true);
}

bool JournalAppends::Already_Written(const FilePath& file, std::string_view text) {
  present_ = Repeated_Number(JournalLine::Kind::Append, file);
  if (present_ == 0 || !Find(file, text)) return false;
  reads_.Has_Again(file.native.string(), known_[present_].offset, text);
  return true;
}

bool JournalAppends::Find(const FilePath& file, std::string_view text) {
  const JournaledAppend& append = known_[present_];
  if (append.state == State::Failed) {
    Throw_File_Failure(file, "this text could not be appended when it was written first");
  }
  if (Stands_There(file, append)) {
    if (append.state == State::Begun) Mark(present_, State::Done);
    return true;
  }
  if (append.state == State::Begun) return Is_Begun_One_There(file, text);
  if (reads_.Has_Written(file)) return false;
  if (Was_Taken(append) || reads_.Coming_Write(append.file)) return true;
  Found("what was appended to " + file.name + " as number " + std::to_string(present_) +
        " no longer stands there; it was not appended again");
  return true;
}

/// The program ended while the text was written: nothing, a part or other programs' lines stand in
/// its place. A part is taken away.
bool JournalAppends::Is_Begun_One_There(const FilePath& file, std::string_view text) {
  const JournaledAppend& append = known_[present_];
  const std::string tail = Part_Of_File(file.native, append.offset, text.size());
  const bool is_part = !tail.empty() && tail.size() < text.size() && text.starts_with(tail);
  if (is_part && truncate(file.native.c_str(), static_cast<off_t>(append.offset)) != 0) {
    Throw_File_Error(file, errno);
  }
  return false;
}

bool JournalAppends::Is_Taken_From(const std::string& path) const {
  return std::ranges::any_of(
      known_, [&](const auto& entry) { return entry.second.takes && entry.second.file == path; });
}

/// Whether those lines were taken from the file again later.
bool JournalAppends::Was_Taken(const JournaledAppend& append) const {
  return std::ranges::any_of(known_, [&](const auto& entry) {
    const JournaledAppend& taking = entry.second;
    const std::uint64_t end = taking.offset + taking.bytes;
    return taking.takes && taking.file == append.file && taking.offset <= append.offset &&
           append.offset + append.bytes <= end;
  });
}

void JournalAppends::Announce(const FilePath& file, std::uint64_t offset, std::string_view text,
                              bool takes) {
  long& number = takes ? taking_ : present_;
  if (number == 0) number = ++last_;
  JournaledAppend& append = known_[number];
  if (append.state == State::Done) return;
  append = {takes, file.native.string(), offset, text.size(), Checksum(text), State::Begun};
  journal_.Comment((takes ? "take " : "append ") + std::to_string(number) + " " +
                       Script_Word(append.file) + " " + std::to_string(offset) + " " +
                       std::to_string(text.size()) + " " + append.checksum,
                   true);
}

void JournalAppends::Will_Append(const FilePath& file, std::uint64_t offset,
                                 std::string_view text) {
  Announce(file, offset, text, false);
}

void JournalAppends::Has_Appended(const FilePath& file, std::uint64_t offset,
                                  std::string_view text) {
  Mark(present_, State::Done);
  reads_.Has_Again(file.native.string(), offset, text);
}

void JournalAppends::Not_Appended(const FilePath&, std::uint64_t, std::string_view) {
  Mark(present_, State::Failed);
}

bool JournalAppends::Already_Taken(const FilePath& file, std::string_view) {
  taking_ = Repeated_Number(JournalLine::Kind::Take, file);
  if (taking_ == 0) return false;
  const JournaledAppend& taking = known_[taking_];
  if (taking.state == State::Failed) Fail_Again_To_Take(file);
  const bool may_be_left = taking.state == State::Begun || reads_.Has_Written(file);
  const bool is_last = Size_Of(file) == taking.offset + taking.bytes;
  if (may_be_left && is_last && Stands_There(file, taking)) return false;
  Has_Taken(file);
  return true;
}

/// The trace of lines that were left in their file is left alone, too.
void JournalAppends::Fail_Again_To_Take(const FilePath& file) {
  const JournalLine* const line = journal_.Repeated()->Peek();
  if (line != nullptr && line->kind == JournalLine::Kind::Append) journal_.Repeated()->Take();
  Throw_File_Failure(file, "these lines could not be taken back when it was tried first");
}

void JournalAppends::Will_Take(const FilePath& file, std::uint64_t offset, std::string_view lines) {
  Announce(file, offset, lines, true);
}

void JournalAppends::Has_Taken(const FilePath& file) {
  Mark(taking_, State::Done);
  reads_.Is_Without_Again(file.native.string(), known_[taking_].bytes);
}

void JournalAppends::Not_Taken(const FilePath&) { Mark(taking_, State::Failed); }

void JournalAppends::Mark(long number, State state) {
  JournaledAppend& append = known_[number];
  if (std::exchange(append.state, state) == state) return;
  const char* const done = append.takes ? "taken " : "appended ";
  journal_.Comment((state == State::Done ? done : "not-appended ") + std::to_string(number));
}

}  // namespace sylvomex
