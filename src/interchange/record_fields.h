// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "interchange/point_table.h"

namespace sylvomex {

/// Takes the fields of one line of a file that the workstation wrote, from its start. Refusals name
/// the file, the line and the field.
class RecordFields {
 public:
  /// separated_by_blanks: also blanks part fields (of lines without texts).
  RecordFields(std::string_view line, std::string where, bool separated_by_blanks);

  /// Whether no field is left; a comma behind the last one does not make another.
  [[nodiscard]] bool At_End() const { return rest_.empty(); }

  /// The next field as a number. Nothing where a pattern printed no digits, which stands for 0 when
  /// `empty_is_zero`, or "NaN" or "Inf".
  PointCell Number(bool empty_is_zero = false);
  /// The next field as a number that has to be there.
  double Required_Number();
  /// A text of a fixed number of characters, without the blanks behind it.
  std::string Fixed_Text(std::size_t characters);

  [[noreturn]] void Refuse(const std::string& why) const;

 private:
  std::string_view Next();
  void Skip_Separator();

  std::string_view rest_;
  std::string where_;
  bool blanks_;
  int field_ = 0;
};

}  // namespace sylvomex
