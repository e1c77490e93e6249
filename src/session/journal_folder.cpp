// SPDX-License-Identifier: MIT
#include "session/journal_folder.h"

#include <array>
#include <cstdlib>
#include <ctime>
#include <string>
#include <system_error>

#include "platform/checksum.h"
#include "platform/files.h"
#include "platform/run_time_error.h"
#include "platform/wall_clock.h"
#include "session/journal_reads.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr int kKept = 5;  // journals that were ended

fs::path State_Folder() {
  const char* const state = std::getenv("XDG_STATE_HOME");
  if (state != nullptr && *state == '/') return fs::path(state) / "sylvomex";
  const char* const home = std::getenv("HOME");
  return fs::path(home != nullptr ? home : ".") / ".local/state/sylvomex";
}

std::string Date_Text() {
  const std::time_t now = Wall_Clock();
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H-%M-%S", &local);
  return text.data();
}

std::string Numbered(const FilePath& journal, int number) {
  return journal.native.string() + "." + std::to_string(number);
}

/// The name, or one with a number behind it: a clock may be set back, a second may hold two starts.
std::string Unused_Name(const std::string& name) {
  std::error_code failure;
  std::string unused = name;
  for (int number = 2; fs::exists(unused, failure); ++number) {
    unused = name + "-" + std::to_string(number);
  }
  return unused;
}

void Rename(const FilePath& journal, const std::string& from, const std::string& to) {
  std::error_code failure;
  if (!fs::exists(from, failure)) return;
  fs::rename(from, to, failure);
  if (failure) {
    throw RunTimeError(Failure::FileFailure, journal.name + ", " + failure.message(),
                       journal.native);
  }
}

/// Whether a session did anything but begin, and move its windows and pointer.
bool Did_Something(const std::string& text) {
  JournalCursor cursor(text, false);
  for (const JournalLine* line = cursor.Peek(); line != nullptr; line = cursor.Peek()) {
    const bool is_event = line->kind == JournalLine::Kind::Event;
    const std::string name = is_event ? line->step.words.front().text : "move";
    if (is_event && name != "move" && name != "resize" && name != "history") return true;
    cursor.Take();
  }
  return false;
}

}  // namespace

FilePath Journal_Of_Root(const fs::path& root) {
  std::error_code failure;
  fs::path full = fs::weakly_canonical(fs::absolute(root, failure), failure);
  if (failure) full = root;
  if (!full.has_filename()) full = full.parent_path();
  const fs::path folder = State_Folder() / "journals";
  fs::create_directories(folder, failure);
  const std::string name = full.filename().string() + "-" + Checksum(full.string()) + ".journal";
  return {(folder / name).string(), folder / name};
}

void Put_Journal_Aside(const FilePath& journal) {
  if (!File_Exists(journal)) return;
  const std::string text = Read_Whole_File(journal);
  if (text.empty()) return;
  if (!Facts_Of_Journal(text).has_exit) {
    const std::string aside = Unused_Name(journal.native.string() + "." + Date_Text());
    Rename(journal, Folder_Of_Kept(journal.native).string(), Folder_Of_Kept(aside).string());
    return Rename(journal, journal.native.string(), aside);
  }
  Remove_Kept(journal.native);
  for (int number = kKept - 1; number >= 1; --number) {
    Rename(journal, Numbered(journal, number), Numbered(journal, number + 1));
  }
  Rename(journal, journal.native.string(), Numbered(journal, 1));
}

std::optional<UnfinishedJournal> Find_Unfinished_Journal(const FilePath& journal,
                                                         const fs::path& root) {
  try {
    UnfinishedJournal unfinished = Read_Unfinished_Journal(journal, root);
    if (Did_Something(unfinished.text)) return unfinished;
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace sylvomex
