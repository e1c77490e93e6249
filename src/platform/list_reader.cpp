// SPDX-License-Identifier: MIT
#include "platform/list_reader.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/work_meter.h"

namespace sylvomex {

namespace {

constexpr std::size_t kPiece = std::size_t{4} << 20;  // bytes read at a time
constexpr std::size_t kPieceOfUnknown = std::size_t{64} << 10;
constexpr int kLinesOfALook = 4096;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool Is_Blank(char c) { return c == ' ' || c == '\t'; }

bool Is_Line_End(char c) { return c == '\n' || c == '\r'; }

/// A look at the work that is not counted among its steps. It tells the share of the text that is
/// read, within the present step of whatever reads it.
void Look_At_Share(double read, double all) {
  WorkMeter meter(all / std::max(read, 1.0));
  meter.Task();
}

float To_Float(double value) {
  constexpr float kHighest = std::numeric_limits<float>::max();
  if (!(std::fabs(value) <= kHighest)) {
    throw RunTimeError(
        Failure::Overflow,
        Plain_Text(value) + " is not in " + Plain_Text(-kHighest) + " to " + Plain_Text(kHighest));
  }
  return static_cast<float>(value);
}

}  // namespace

ListReader::ListReader(const FilePath& file)
    : name_(file.name), native_(file.native), rest_(std::make_shared<PositionalFile>(file)) {
  // Some files of the system have contents although their size is 0.
  while (rest_ != nullptr && rest_->Size() == 0) Read_Piece(kPieceOfUnknown);
  Hold_Line();
  if (content_.starts_with(kByteOrderMark)) position_ = kByteOrderMark.size();
}

ListReader::ListReader(std::string content, std::string name)
    : name_(std::move(name)), content_(std::move(content)) {
  if (content_.starts_with(kByteOrderMark)) position_ = kByteOrderMark.size();
}

ListReader::ListReader(std::string line, const FilePath& file, int line_number)
    : ListReader(std::move(line), file.name) {
  native_ = file.native;
  line_ = line_number;
}

bool ListReader::Read_Piece(std::size_t bytes) {
  const std::size_t held = content_.size();
  try {
    content_.resize(held + bytes);
  } catch (const std::bad_alloc&) {
    throw RunTimeError(Failure::OutOfMemory, name_, native_);
  } catch (const std::length_error&) {
    throw RunTimeError(Failure::OutOfMemory, name_, native_);
  }
  const std::size_t got = rest_->Read_At(
      rest_offset_, {reinterpret_cast<std::uint8_t*>(content_.data()) + held, bytes});
  content_.resize(held + got);
  rest_offset_ += static_cast<std::int64_t>(got);
  if (got < bytes) rest_.reset();
  return got > 0;
}

// What is appended to the file meanwhile is not read.
bool ListReader::Read_More() {
  if (rest_ == nullptr) return false;
  if (rest_offset_ > 0) Look_At_Work();
  content_.erase(0, position_);
  lines_end_ -= std::min(position_, lines_end_);
  position_ = 0;
  const std::size_t known = content_.empty() ? 0 : content_.size() - 1;
  const std::uint64_t left = rest_->Size() - static_cast<std::uint64_t>(rest_offset_);
  const bool read = left > 0 && Read_Piece(std::min<std::uint64_t>(left, kPiece));
  if (left <= kPiece) rest_.reset();
  // A carriage return at the very end may be half of a line end.
  std::size_t end = content_.size();
  if (end > 0 && content_.back() == '\r') --end;
  while (end > known && !Is_Line_End(content_[end - 1])) --end;
  if (end > known) lines_end_ = end;
  return read;
}

void ListReader::Hold_Line() {
  while (rest_ != nullptr && position_ >= lines_end_) Read_More();
}

bool ListReader::At_End() {
  while (content_.find_first_not_of(" \t\r\n", position_) == std::string::npos) {
    if (!Read_More()) return true;
  }
  return false;
}

std::string ListReader::Where() const {
  return name_ + ", line " + std::to_string(item_line_) + ", item " + std::to_string(item_);
}

RunTimeError ListReader::Failure_Here(Failure kind, const std::string& cause) const {
  return RunTimeError(kind, Where() + ": " + cause, native_);
}

void ListReader::Skip_Blanks() {
  while (position_ < content_.size() && Is_Blank(content_[position_])) ++position_;
}

bool ListReader::At_Line_End() const {
  return position_ < content_.size() && Is_Line_End(content_[position_]);
}

void ListReader::Take_Line_End() {
  const char first = content_[position_++];
  if (first == '\r' && position_ < content_.size() && content_[position_] == '\n') ++position_;
  ++line_;
  in_line_ = false;
  after_comma_ = false;
  Hold_Line();
  if (line_ % kLinesOfALook != 0) return;
  const auto got =
      std::max(static_cast<double>(rest_offset_), static_cast<double>(content_.size()));
  const double all = rest_ == nullptr ? got : static_cast<double>(rest_->Size());
  Look_At_Share(got - static_cast<double>(content_.size() - position_), all);
}

void ListReader::Begin_Item() {
  if (in_line_ && !after_comma_ && At_Line_End()) Take_Line_End();
  Skip_Blanks();
}

void ListReader::Require_More() {
  ++item_;
  item_line_ = line_;
  if (position_ == content_.size()) throw RunTimeError(Failure::InputPastEnd, Where(), native_);
}

void ListReader::Take_Separator() {
  Skip_Blanks();
  in_line_ = true;
  after_comma_ = position_ < content_.size() && content_[position_] == ',';
  if (!after_comma_) return;
  ++position_;
  Skip_Blanks();
}

std::string ListReader::Take_Quoted() {
  std::string item;
  ++position_;
  while (position_ < content_.size() && !At_Line_End()) {
    const char c = content_[position_++];
    if (c == '"') {
      if (position_ == content_.size() || content_[position_] != '"') break;
      ++position_;
    }
    item += c;
  }
  return item;
}

std::string ListReader::Take_Item(Ends ends) {
  std::string item;
  if (content_[position_] == '"') {
    item = Take_Quoted();
  } else {
    const std::size_t end =
        content_.find_first_of(ends == Ends::AtBlanksToo ? ", \t\r\n" : ",\r\n", position_);
    item = content_.substr(position_, end - position_);
    item.erase(item.find_last_not_of(" \t") + 1);
    position_ = std::min(end, content_.size());
  }
  Take_Separator();
  return item;
}

template <class Number>
Number ListReader::Read_Number(Number (*convert)(double)) {
  Skip_Empty_Lines();
  Require_More();
  try {
    return convert(Parse_Double(Take_Item(Ends::AtBlanksToo)));
  } catch (const RunTimeError& error) {
    throw error.At(Where(), native_);
  }
}

double ListReader::Read_Double() {
  return Read_Number<double>([](double value) { return value; });
}

float ListReader::Read_Float() { return Read_Number<float>(To_Float); }

std::int32_t ListReader::Read_Int32() { return Read_Number<std::int32_t>(To_Int32); }

std::int16_t ListReader::Read_Int16() { return Read_Number<std::int16_t>(To_Int16); }

std::uint8_t ListReader::Read_Byte() { return Read_Number<std::uint8_t>(To_Byte); }

std::string ListReader::Take_Text(Ends ends) {
  Begin_Item();
  Require_More();
  return Take_Item(ends);
}

std::string ListReader::Read_Text() { return Take_Text(Ends::AtBlanksToo); }

std::string ListReader::Read_Text_To_Comma() { return Take_Text(Ends::AtCommas); }

std::string ListReader::Take_Rest_Of_Line() {
  const std::size_t start = position_;
  position_ = std::min(content_.find_first_of("\r\n", start), content_.size());
  std::string line = content_.substr(start, position_ - start);
  if (At_Line_End()) Take_Line_End();
  in_line_ = false;
  return line;
}

std::string ListReader::Read_Line() {
  ++item_;
  item_line_ = line_;
  if (!in_line_ && position_ == content_.size()) {
    throw RunTimeError(Failure::InputPastEnd, Where(), native_);
  }
  return Take_Rest_Of_Line();
}

void ListReader::Skip_Empty_Lines() {
  Skip_Blanks();
  while (At_Line_End()) {
    Take_Line_End();
    Skip_Blanks();
  }
}

void ListReader::Skip_Line() { Take_Rest_Of_Line(); }

}  // namespace sylvomex
