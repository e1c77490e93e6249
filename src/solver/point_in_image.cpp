// SPDX-License-Identifier: MIT
#include "solver/point_in_image.h"

#include "platform/number_text.h"

namespace sylvomex {
namespace {

// Formats a list item, in quotes where it would otherwise be split.
std::string List_Item(const std::string& text) {
  const bool has_blanks_around = text != Without_Blanks_Around(text);
  if (text.find_first_of(",\"") == std::string::npos && !has_blanks_around) return text;
  std::string item = "\"";
  for (const char c : text) item += c == '"' ? "\"\"" : std::string(1, c);
  return item + "\"";
}

}  // namespace

std::string Point_In_Image_Name(const TableCamera& camera) {
  return camera.name_start + "_" + camera.name_end + ".txt";
}

std::string Point_In_Image_Line(const TableCamera& camera, const Point3D& point) {
  return Plain_Text(camera.identity) + "," + List_Item(camera.header) + "," + Plain_Text(point.X) +
         "," + Plain_Text(point.Y) + "," + Plain_Text(point.Z) + "\n";
}

PointInImage Read_Point_In_Image(ListReader& file) {
  PointInImage hit;
  hit.identity = file.Read_Int16();
  hit.header = file.Read_Text_To_Comma();
  hit.point.X = file.Read_Double();
  hit.point.Y = file.Read_Double();
  hit.point.Z = file.Read_Double();
  return hit;
}

}  // namespace sylvomex
