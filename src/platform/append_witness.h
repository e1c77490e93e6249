// SPDX-License-Identifier: MIT
// Sees every append to a file of the operator, and every line that is taken from its end again: a
// journal tells by it, after a crash, which lines are in their files already.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/drive_map.h"

namespace sylvomex {

/// Append_To_File calls it in this order: Will_Open; then, with the file locked, Already_Written;
/// when that is false Will_Append, the write, and Has_Appended or Not_Appended. An append of no
/// text only opens the file.
class AppendWitness {
 public:
  virtual ~AppendWitness() = default;

  /// The file is about to be opened; is_missing: and made, empty.
  virtual void Will_Open(const FilePath&, bool /*is_missing*/) {}

  /// True when the file holds the text already: the write is left out and counts as done. The file
  /// may be changed meanwhile, e.g. cut back to the start of a torn line.
  virtual bool Already_Written(const FilePath& file, std::string_view text) = 0;

  /// The text will begin at that byte, counted from 0. An exception leaves the file alone and
  /// reaches the caller of Append_To_File.
  virtual void Will_Append(const FilePath& file, std::uint64_t offset, std::string_view text) = 0;

  /// The text is on the disk.
  virtual void Has_Appended(const FilePath& file, std::uint64_t offset, std::string_view text) = 0;

  /// The append failed and its caller is told so; what was written in part has been taken back
  /// where that was possible.
  virtual void Not_Appended(const FilePath& file, std::uint64_t offset, std::string_view text) = 0;

  /// True while a session is done again: its files may hold what it writes later.
  [[nodiscard]] virtual bool Is_Repeating() const { return false; }

  /// Lines are about to be taken from a locked file's end, in the order of the append's calls. True
  /// when that has been done already.
  virtual bool Already_Taken(const FilePath&, std::string_view) { return false; }
  virtual void Will_Take(const FilePath&, std::uint64_t, std::string_view) {}
  virtual void Has_Taken(const FilePath&) {}

  /// The taking failed and its caller is told so; the lines stand where they stood.
  virtual void Not_Taken(const FilePath&) {}
};

/// Makes a witness that of the whole program, nullptr for none, and returns the former one.
AppendWitness* Set_Append_Witness(AppendWitness* witness);

/// The program's witness; nullptr for none.
AppendWitness* Present_Append_Witness();

}  // namespace sylvomex
