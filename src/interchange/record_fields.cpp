// SPDX-License-Identifier: MIT
#include "interchange/record_fields.h"

#include <algorithm>
#include <utility>

#include "interchange/failures.h"
#include "platform/characters.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {

RecordFields::RecordFields(std::string_view line, std::string where, bool separated_by_blanks)
    : rest_(separated_by_blanks ? Without_Blanks_Around(line) : line),
      where_(std::move(where)),
      blanks_(separated_by_blanks) {}

void RecordFields::Refuse(const std::string& why) const {
  throw Refused(where_ + ", field " + std::to_string(field_) + ": " + why);
}

std::string_view RecordFields::Next() {
  ++field_;
  if (rest_.empty()) Refuse("the line ends before it");
  const std::size_t end = std::min(rest_.find_first_of(blanks_ ? ", \t" : ","), rest_.size());
  const std::string_view field = rest_.substr(0, end);
  rest_.remove_prefix(end);
  Skip_Separator();
  return Without_Blanks_Around(field);
}

void RecordFields::Skip_Separator() {
  const auto skip_blanks = [&] {
    while (blanks_ && !rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t')) {
      rest_.remove_prefix(1);
    }
  };
  skip_blanks();
  if (!rest_.empty() && rest_.front() == ',') rest_.remove_prefix(1);
  skip_blanks();
}

PointCell RecordFields::Number(bool empty_is_zero) {
  const std::string_view text = Next();
  if (text.empty() && empty_is_zero) return 0.0;
  if (text.empty() || text == "NaN" || text == "Inf" || text == "-Inf") return {};
  try {
    return Parse_Double(text);
  } catch (const RunTimeError&) {
    Refuse(Quoted_For_Message(text) + " is no number");
  }
}

double RecordFields::Required_Number() {
  const PointCell cell = Number();
  if (const double* number = std::get_if<double>(&cell)) return *number;
  Refuse("there is no number");
}

std::string RecordFields::Fixed_Text(std::size_t characters) {
  ++field_;
  std::string text(Left_Characters(rest_, characters));
  rest_.remove_prefix(text.size());
  Skip_Separator();
  text = As_Utf8(text);
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

}  // namespace sylvomex
