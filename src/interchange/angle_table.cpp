// SPDX-License-Identifier: MIT
// Tables of label, X, Y, Z, omega, phi, kappa as structure-from-motion packages export them. A line
// of column names may stand before the rows, after a '#' or without; lines that start with '#' are
// otherwise passed over. Without column names the columns stand in that order. Estimated values
// ("X_est", "Omega_est") go before those that they were estimated from. Angles in degrees unless a
// column's name says gon, grad or rad.
#include <algorithm>

#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "interchange/orientation_table.h"

namespace sylvomex {
namespace {

using Names = std::vector<std::string>;

const Names kLabels = {"label", "photoid", "photo", "image", "name", "filename", "file", "#label"};
const Names kEast = {"x_est", "x", "x0", "x/easting", "x/longitude", "easting", "east", "e"};
const Names kNorth = {"y_est", "y", "y0", "y/northing", "y/latitude", "northing", "north", "n"};
const Names kHeight = {"z_est", "z", "z0", "z/altitude", "z/height", "altitude", "height", "h"};

bool Is_Number(const std::string& cell) { return Finite_Number(cell).has_value(); }

bool Is_Name_Line(const TextRow& row) {
  return row.cells.size() >= 7 &&
         std::any_of(row.cells.begin(), row.cells.end(), [](const std::string& cell) {
           return Lower(cell).find("omega") != std::string::npos;
         });
}

/// A comment's first cell without its '#'.
void Open_Comment(TextRow& row) {
  std::string& first = row.cells.front();
  first.erase(0, std::min(first.find_first_not_of("# "), first.size()));
  if (first.empty()) row.cells.erase(row.cells.begin());
}

/// The rows with a line of column names in front.
std::vector<TextRow> Named_Rows(const NamedText& text) {
  std::vector<TextRow> rows;
  TextRow names{0, {"label", "x", "y", "z", "omega", "phi", "kappa"}};
  for (TextRow& row : Split_Rows(text.text, text.name)) {
    const bool is_comment = row.cells.front().starts_with('#');
    if (is_comment) Open_Comment(row);
    if (rows.empty() && Is_Name_Line(row) && !Is_Number(row.cells.back())) {
      names = std::move(row);
    } else if (!is_comment) {
      rows.push_back(std::move(row));
    }
  }
  rows.insert(rows.begin(), std::move(names));
  return rows;
}

/// The column whose name is the angle's, with or without a unit behind it: "omega", "Omega[gon]".
std::string Angle_Column(const TextRow& names, const std::string& angle, const std::string& file) {
  std::string first;
  for (const std::string& cell : names.cells) {
    const std::string lower = Lower(cell);
    if (lower.starts_with(angle + "_est")) return cell;
    if (first.empty() && lower.starts_with(angle) && !lower.starts_with(angle + "_std")) {
      first = cell;
    }
  }
  if (!first.empty()) return first;
  throw Refused(file + ": the column \"" + angle + "\" is missing");
}

AngleUnit Unit_Of(const std::string& column) {
  const std::string lower = Lower(column);
  if (lower.find("gon") != std::string::npos || lower.find("grad") != std::string::npos) {
    return AngleUnit::Gon;
  }
  return lower.find("rad") != std::string::npos ? AngleUnit::Radians : AngleUnit::Degrees;
}

std::string Required_Column(const CsvTable& table, const Names& names) {
  const std::optional<std::string> column = table.First_Of(names);
  if (!column) throw Refused(table.Name() + ": the column \"" + names.front() + "\" is missing");
  return *column;
}

}  // namespace

OrientationTable Parse_Angle_Table(const NamedText& text, const NamedText& cameras) {
  const std::vector<TextRow> rows = Named_Rows(text);
  const std::string omega = Angle_Column(rows.front(), "omega", text.name);
  const std::string phi = Angle_Column(rows.front(), "phi", text.name);
  const std::string kappa = Angle_Column(rows.front(), "kappa", text.name);
  const CsvTable table(rows, text.name);
  const std::string label = Required_Column(table, kLabels);
  const std::string east = Required_Column(table, kEast);
  const std::string north = Required_Column(table, kNorth);
  const std::string height = Required_Column(table, kHeight);
  if (cameras.name.empty()) {
    throw Refused(text.name + ": this table does not tell the camera; give its file by --cameras");
  }
  OrientationTable parsed;
  parsed.stated.unit = Unit_Of(omega);
  const CameraGiven camera = Parse_Camera_File(cameras, parsed.stated);
  for (const TextRow& row : table.Rows()) {
    PhotoGiven photo;
    photo.line = row.line;
    photo.name = table.Text(row, label);
    photo.camera = camera;
    photo.numbers = {table.Number(row, omega), table.Number(row, phi), table.Number(row, kappa), 0};
    photo.position = {table.Number(row, east), table.Number(row, north), table.Number(row, height)};
    photo.utc = table.Optional_Text(row, "utc");
    parsed.photos.push_back(std::move(photo));
  }
  return parsed;
}

}  // namespace sylvomex
