// SPDX-License-Identifier: MIT
// What stands in a journal. The first lines, in this order:
//
//   journal 1
//   root DIR                       the folder of the drives
//   size W H                       client size of the main window at the start, pixels
//   seed N                         of the random numbers
//
// Then, as they happened: the steps of the script language that stand for the operator's events,
// each followed by what happened inside it:
//
//   input TEXT, file PATH, button NAME, cancel     the answer of a dialog
//   within STEP                    an event that came while a dialog was open
//   during N STEP                  an event in the N-th event servicing since the outer event began
//   # creates FILE                 a file of lines was missing and is about to be made, empty
//   # append N FILE OFFSET BYTES CHECKSUM          text is about to be appended to a file
//   # take N FILE OFFSET BYTES CHECKSUM            lines are about to be taken from a file's end
//   end done|error|greyed|refused  the event has ended; left out for a plain pointer move
//   end cancelled N                the operator has ended it after N steps of its work
//   exit                           the operator has ended the program
//
// Comments, also of later or earlier events:
//
//   # time SECONDS                 since 1970
//   # appended N, # not-appended N, # taken N      what became of an append or a taking
//   # reads FILE BYTES MODIFIED CHECKSUM           a file that the session read
//   # writes FILE [new|kept]       a file that the session wrote as a whole; new: there was none;
//                                  kept: it had been read, and its former state was kept
//   # cause TEXT                   what was behind a message
#pragma once

#include <cstdint>
#include <ctime>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "session/script_reader.h"

namespace sylvomex {

/// Text that was appended to a file of the operator, or taken from its end.
struct JournaledAppend {
  enum class State { Begun, Done, Failed };
  bool takes = false;        // lines are taken from the file's end instead
  std::string file;          // native path
  std::uint64_t offset = 0;  // of the first byte, counted from 0
  std::uint64_t bytes = 0;
  std::string checksum;
  State state = State::Begun;
};

/// A file as it was when it was read.
struct JournaledRead {
  std::uint64_t bytes = 0;
  std::string modified;  // nanoseconds since 1970
  std::string checksum;
};

/// What is known of a file as it was before the session first wrote it as a whole.
enum class BeforeWrite { Unknown, Missing, Kept };

/// The first time that a session wrote a file as a whole.
struct JournaledWrite {
  BeforeWrite before = BeforeWrite::Unknown;
  long after_append = 0;  // the number of the last append or taking announced before it
};

struct JournalHead {
  std::string root;
  double width = 0, height = 0;  // pixels
  std::uint32_t seed = 0;
};

/// What a journal says apart from its steps.
struct JournalFacts {
  std::optional<JournalHead> head;  // empty for a file that is no journal
  std::map<long, JournaledAppend> appends;
  std::map<std::string, JournaledRead> reads;    // by native path; the first time each was read
  std::map<std::string, JournaledWrite> writes;  // by native path
  std::set<std::string> created;                 // native paths; of these there was no file before
  bool has_exit = false;
  std::uint64_t whole_bytes = 0;  // up to the last line end
  std::uint64_t ended_bytes = 0;  // up to the end of the last event that ended; the head at least
};

JournalFacts Facts_Of_Journal(std::string_view text);

std::string Head_Text(const JournalHead& head);

/// A line that is played.
struct JournalLine {
  enum class Kind { Event, Within, During, Answer, End, Create, Append, Take };
  Kind kind = Kind::Event;
  ScriptStep step;  // of Within and During without the words before their step, of Create its file
  long number = 0;  // of During the servicing, of Append and Take theirs
};

/// Goes through the lines that are played, passing over all others.
class JournalCursor {
 public:
  /// text: whole lines; must outlive the cursor. Appends are given only where they are wanted.
  JournalCursor(std::string_view text, bool wants_appends)
      : text_(text), wants_appends_(wants_appends) {}

  /// The next line, which stays; nullptr at the end. Valid until the next call of Take.
  const JournalLine* Peek();

  /// Passes over the line that Peek gave.
  void Take() { next_.reset(); }

  /// The time of the line that Peek gave last, seconds since 1970.
  [[nodiscard]] std::time_t Time() const { return time_; }

  /// Lines that could not be read, counted from 1.
  [[nodiscard]] const std::vector<int>& Damaged_Lines() const { return damaged_; }

 private:
  std::optional<JournalLine> Read(std::string_view line);
  std::optional<JournalLine> Read_Step(std::vector<ScriptWord> words);
  std::optional<JournalLine> Read_Comment(std::string_view comment);

  std::string_view text_;
  bool wants_appends_;
  int line_ = 0;
  std::optional<JournalLine> next_;
  std::time_t time_ = 0;
  long last_append_ = 0;
  std::vector<int> damaged_;
};

}  // namespace sylvomex
