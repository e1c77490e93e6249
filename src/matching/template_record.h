// SPDX-License-Identifier: MIT
// The elliptic template of one image. Film x, y in metres; columns and rows are those of the full
// image, rows from the bottom.
#pragma once

#include <cstdint>

namespace sylvomex {

struct TemplateRecord {
  double SemiAxisRadial = 0;      // film; at least SemiAxisTangential
  double SemiAxisTangential = 0;  // film
  double CenterX = 0;             // centre of the ellipse, film
  double CenterY = 0;
  std::int16_t ShiftCol = 0;  // tree top minus ellipse centre, pixels
  std::int16_t ShiftRow = 0;
  double RadialAngle = 0;  // radians from film x, direction from nadir point to tree top
};

/// Calls visit("FieldName", field) for every field in the order of declaration.
template <class Record, class Visitor>
void Visit_Template_Record(Record& record, Visitor&& visit) {
  visit("SemiAxisRadial", record.SemiAxisRadial);
  visit("SemiAxisTangential", record.SemiAxisTangential);
  visit("CenterX", record.CenterX);
  visit("CenterY", record.CenterY);
  visit("ShiftCol", record.ShiftCol);
  visit("ShiftRow", record.ShiftRow);
  visit("RadialAngle", record.RadialAngle);
}

/// The crown's dimensions as entered by the operator, metres.
struct TemplateParameters {
  double Tw = 0;   // horizontal half-width
  double Zd = 0;   // vertical half-height
  double EZA = 0;  // height of the ellipse centre above the tree top
};

}  // namespace sylvomex
