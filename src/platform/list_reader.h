// SPDX-License-Identifier: MIT
// Text files read as lists: items separated by commas, blanks (spaces, tabs) or line ends.
// A separator is one comma or one line end with any blanks around it, or a run of blanks.
// Texts may stand in double quotes, "" inside is one quote. A quoted text may contain commas
// and blanks but no line end; a missing closing quote is implied at the line's end. Line ends
// are CR LF, LF or CR. A UTF-8 byte order mark at the start is skipped.
//
// After the last item of a line has been read, that line stays the current one until the next item
// or line is read.
//
// Lines and items are counted from 1, items from the start of the file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/drive_map.h"
#include "platform/run_time_error.h"

namespace sylvomex {

class PositionalFile;

class ListReader {
 public:
  /// Reads the file in pieces of 4 MB as the list is read, so that a list takes no more memory than
  /// that, or than its longest line. A file up to that size is read at once. Throws as
  /// Read_Whole_File does; so do the functions below when a later piece cannot be read.
  explicit ListReader(const FilePath& file);

  /// content: the text itself; name: its name in messages.
  ListReader(std::string content, std::string name);

  /// One line of a file as a list of its own, for files with one row a line: messages name the file
  /// and that line, and items are counted from the start of the line.
  ListReader(std::string line, const FilePath& file, int line_number);

  /// True when nothing but blanks and line ends remains.
  [[nodiscard]] bool At_End();

  /// Numbers. RunTimeError(InputPastEnd) at the end of the file, RunTimeError(TypeMismatch)
  /// for a text or an empty item, RunTimeError(Overflow) out of range, each as
  /// "<kind>: <file>, line <n>, item <m>: <cause>". Empty lines before a number are
  /// skipped. Integers may be written as reals; they round half to even.
  double Read_Double();
  float Read_Float();
  std::int32_t Read_Int32();
  std::int16_t Read_Int16();
  std::uint8_t Read_Byte();

  /// A text item. An empty item (",,", a comma at the start of a line, "", or an empty line) reads
  /// as the empty text. RunTimeError(InputPastEnd) at the end of the file; so do the functions
  /// below.
  std::string Read_Text();

  /// A text up to the next comma or line end, including blanks inside it, with surrounding blanks
  /// removed; quotes as in Read_Text.
  std::string Read_Text_To_Comma();

  /// The rest of the current line without its line end, counted as one item.
  std::string Read_Line();

  /// Skips the end of the current line when nothing else is left of it, and empty lines: for rows
  /// that begin with a text.
  void Skip_Empty_Lines();

  /// Skips the rest of the current line; does nothing at the end of the file.
  void Skip_Line();

  [[nodiscard]] int Line() const { return line_; }
  [[nodiscard]] int Item() const { return item_; }

  /// "<file>, line <n>, item <m>" of the last item read, for the callers' messages.
  [[nodiscard]] std::string Where() const;

  /// An error that a caller found in the last item read: "<kind>: <Where()>: <cause>", with the
  /// file's native path.
  [[nodiscard]] RunTimeError Failure_Here(Failure kind, const std::string& cause) const;

 private:
  enum class Ends { AtBlanksToo, AtCommas };
  template <class Number>
  Number Read_Number(Number (*convert)(double));
  std::string Take_Text(Ends ends);
  std::string Take_Item(Ends ends);
  std::string Take_Quoted();
  std::string Take_Rest_Of_Line();
  void Begin_Item();
  void Require_More();
  void Take_Separator();
  void Take_Line_End();
  void Skip_Blanks();
  [[nodiscard]] bool At_Line_End() const;
  void Hold_Line();
  bool Read_More();
  bool Read_Piece(std::size_t bytes);

  std::string name_;
  std::filesystem::path native_;
  // Holds the line at the position in full, with its line end and the character after it.
  std::string content_;
  std::shared_ptr<PositionalFile> rest_;  // of the file; null when all of it is in content_
  std::int64_t rest_offset_ = 0;          // where it begins
  std::size_t lines_end_ = 0;             // content_ holds whole lines up to here
  std::size_t position_ = 0;
  int line_ = 1;
  int item_line_ = 1;
  int item_ = 0;
  bool in_line_ = false;      // something of the current line was read
  bool after_comma_ = false;  // the last item ended with a comma
};

}  // namespace sylvomex
