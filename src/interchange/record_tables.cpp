// SPDX-License-Identifier: MIT
#include "interchange/record_tables.h"

#include <algorithm>
#include <array>
#include <span>

#include "interchange/failures.h"
#include "interchange/record_fields.h"
#include "interchange/record_lines.h"

namespace sylvomex {
namespace {

constexpr std::size_t kTextCharacters = 30;

/// What a field of a line is.
enum class Role { Plain, Whole, MapX, MapY, MapZ, OtherX, OtherY, Text };

struct Field {
  const char* name;
  Role role = Role::Plain;
};

ColumnKind Kind_Of(Role role) {
  if (role == Role::Whole) return ColumnKind::Integer;
  return role == Role::Text ? ColumnKind::Text : ColumnKind::Real;
}

/// A coordinate of a place other than the point's own; 0 stands for none.
PointCell Moved(const PointCell& cell, double shift) {
  const double* number = std::get_if<double>(&cell);
  if (number == nullptr || *number == 0) return cell;
  return *number + shift;
}

void Take_Field(RecordFields& fields, const Field& field, const WorldShift& shift, PointRow& row) {
  switch (field.role) {
    case Role::MapX:
      row.at.X = fields.Required_Number() + shift.X;
      row.cells.emplace_back(row.at.X);
      break;
    case Role::MapY:
      row.at.Y = fields.Required_Number() + shift.Y;
      row.cells.emplace_back(row.at.Y);
      break;
    case Role::MapZ:
      row.at.Z = fields.Required_Number();
      row.cells.emplace_back(row.at.Z);
      break;
    case Role::OtherX:
      row.cells.push_back(Moved(fields.Number(), shift.X));
      break;
    case Role::OtherY:
      row.cells.push_back(Moved(fields.Number(), shift.Y));
      break;
    case Role::Text:
      row.cells.emplace_back(fields.Fixed_Text(kTextCharacters));
      break;
    case Role::Whole:
    case Role::Plain:
      row.cells.push_back(fields.Number(field.role == Role::Whole));
      break;
  }
}

void Add_Columns(std::span<const Field> fields, const std::string& suffix, PointTable& table) {
  for (const Field& field : fields) {
    table.columns.push_back({field.name + suffix, Kind_Of(field.role)});
  }
}

/// Lines that all have the same fields.
PointTable Read_Alike(const FilePath& file, std::span<const Field> fields, const Site& site) {
  PointTable table;
  Add_Columns(fields, "", table);
  For_Each_Line(file, [&](std::string_view line, const std::string& where) {
    RecordFields in(line, where, true);
    PointRow row;
    for (const Field& field : fields) {
      Take_Field(in, field, site.shift.value_or(WorldShift{}), row);
    }
    if (!in.At_End()) in.Refuse("the line goes on behind it");
    table.rows.push_back(std::move(row));
  });
  return table;
}

/// The number of fields of the first line.
std::size_t Field_Count(const FilePath& file) {
  std::size_t count = 0;
  For_Each_Line(file, [&](std::string_view line, const std::string& where) {
    if (count > 0) return;
    RecordFields fields(line, where, true);
    for (; !fields.At_End(); ++count) (void)fields.Number();
  });
  return count;
}

constexpr std::array kObservation = {Field{"MeasurementNumber", Role::Whole},
                                     Field{"X", Role::MapX},
                                     Field{"Y", Role::MapY},
                                     Field{"Z", Role::MapZ},
                                     Field{"DemZ"},
                                     Field{"Rmse"},
                                     Field{"TreeSpecies", Role::Whole},
                                     Field{"FreeInteger", Role::Whole},
                                     Field{"ImageCount", Role::Whole},
                                     Field{"FreeText", Role::Text}};
constexpr std::size_t kImageCountField = 8;

constexpr std::array kDistance = {Field{"TreeNumber", Role::Whole},
                                  Field{"FreeInteger", Role::Whole}, Field{"X", Role::MapX},
                                  Field{"Y", Role::MapY}, Field{"Z", Role::MapZ}};
constexpr std::array kDistanceOfImage = {Field{"Index", Role::Whole},
                                         Field{"ImageCode", Role::Whole},
                                         Field{"X0Obj", Role::OtherX},
                                         Field{"X1Obj", Role::OtherX},
                                         Field{"Y0Obj", Role::OtherY},
                                         Field{"Y1Obj", Role::OtherY},
                                         Field{"ScaleAtZ"},
                                         Field{"ObservedDistance"},
                                         Field{"SunElevation"},
                                         Field{"SunAzimuth"},
                                         Field{"ObjCamRayAzimuth"},
                                         Field{"AzimuthDifference"},
                                         Field{"OffNadirAngle"},
                                         Field{"ObsCoding", Role::Text}};

constexpr std::array kNode = {Field{"X", Role::MapX}, Field{"Y", Role::MapY},
                              Field{"Z", Role::MapZ}};
constexpr std::array kCluster = {Field{"Number", Role::Whole}, Field{"X", Role::MapX},
                                 Field{"Y", Role::MapY}, Field{"Z", Role::MapZ}};
constexpr std::array kScored = {Field{"Score"}, Field{"X", Role::MapX}, Field{"Y", Role::MapY},
                                Field{"Z", Role::MapZ}};
constexpr std::array kNodeOverRaster = {Field{"X", Role::MapX}, Field{"Y", Role::MapY},
                                        Field{"Z", Role::MapZ}, Field{"RasterZ"}};
constexpr std::array kHeightPoint = {Field{"X", Role::MapX}, Field{"Y", Role::MapY},
                                     Field{"Z", Role::MapZ}, Field{"Height"}};

constexpr std::array kStoredTree = {Field{"PlotId", Role::Whole},
                                    Field{"TreeNumber", Role::Whole},
                                    Field{"Species", Role::Whole},
                                    Field{"X", Role::MapX},
                                    Field{"Y", Role::MapY},
                                    Field{"Z", Role::MapZ},
                                    Field{"GroundZ"},
                                    Field{"TreeHeight"},
                                    Field{"LidarMax"},
                                    Field{"PhotoCrownWidth"},
                                    Field{"LidarCrownWidth"},
                                    Field{"FitRmse"},
                                    Field{"FitA"},
                                    Field{"FitP"},
                                    Field{"FitB"}};
constexpr std::array kLocalCrown = {Field{"LidarDbh1"},
                                    Field{"LidarDbh2"},
                                    Field{"LidarDbh3"},
                                    Field{"LidarDbh4"},
                                    Field{"PhotoDbh1"},
                                    Field{"PhotoDbh2"},
                                    Field{"PhotoDbh3"},
                                    Field{"PhotoDbh4"},
                                    Field{"X", Role::MapX},
                                    Field{"Y", Role::MapY},
                                    Field{"Z", Role::MapZ},
                                    Field{"TreeHeight"},
                                    Field{"LidarMax"},
                                    Field{"FitA"},
                                    Field{"FitP"},
                                    Field{"FitB"},
                                    Field{"PhotoCrownWidth"},
                                    Field{"LidarCrownWidth"},
                                    Field{"FitRmse"},
                                    Field{"Species", Role::Whole}};
constexpr std::array kListedCrown = {Field{"X", Role::MapX},     Field{"Y", Role::MapY},
                                     Field{"Z", Role::MapZ},     Field{"BaseZ"},
                                     Field{"Code", Role::Whole}, Field{"Width"}};

/// Ids, columns and rows of the images, each in a cell of its own behind the ten of every line.
void Take_Images(RecordFields& fields, PointRow& row, std::size_t& most) {
  const double* stated = std::get_if<double>(&row.cells[kImageCountField]);
  if (stated == nullptr || !(*stated >= 0 && *stated <= 255)) fields.Refuse("no number of images");
  const auto count = static_cast<std::size_t>(*stated);
  most = std::max(most, count);
  for (std::size_t i = 0; i < 3 * count; ++i) row.cells.push_back(fields.Number(true));
}

/// Moves the cells of the images to the columns of a table with `most` images.
void Spread_Images(PointRow& row, std::size_t most) {
  const std::size_t count = (row.cells.size() - kObservation.size()) / 3;
  std::vector<PointCell> cells(row.cells.begin(), row.cells.begin() + kObservation.size());
  cells.resize(kObservation.size() + 3 * most);
  for (std::size_t part = 0; part < 3; ++part) {
    for (std::size_t i = 0; i < count; ++i) {
      cells[kObservation.size() + part * most + i] =
          row.cells[kObservation.size() + part * count + i];
    }
  }
  row.cells = std::move(cells);
}

}  // namespace

PointTable Read_Observations(const FilePath& file, const Site& site) {
  PointTable table;
  Add_Columns(kObservation, "", table);
  std::size_t most = 0;
  For_Each_Line(file, [&](std::string_view line, const std::string& where) {
    RecordFields fields(line, where, false);
    PointRow row;
    for (const Field& field : kObservation) {
      Take_Field(fields, field, site.shift.value_or(WorldShift{}), row);
    }
    Take_Images(fields, row, most);
    if (!fields.At_End()) fields.Refuse("the line goes on behind it");
    table.rows.push_back(std::move(row));
  });
  for (PointRow& row : table.rows) Spread_Images(row, most);
  for (const Field& field : {Field{"ImageId", Role::Whole}, Field{"Col"}, Field{"Row"}}) {
    for (std::size_t i = 1; i <= most; ++i) Add_Columns({&field, 1}, std::to_string(i), table);
  }
  return table;
}

PointTable Read_Distances(const FilePath& file, const Site& site) {
  PointTable table;
  Add_Columns(kDistance, "", table);
  const WorldShift shift = site.shift.value_or(WorldShift{});
  std::size_t most = 0;
  For_Each_Line(file, [&](std::string_view line, const std::string& where) {
    RecordFields fields(line, where, false);
    PointRow row;
    for (const Field& field : kDistance) Take_Field(fields, field, shift, row);
    std::size_t images = 0;
    for (; !fields.At_End(); ++images) {
      for (const Field& field : kDistanceOfImage) Take_Field(fields, field, shift, row);
    }
    most = std::max(most, images);
    table.rows.push_back(std::move(row));
  });
  for (std::size_t i = 1; i <= most; ++i) Add_Columns(kDistanceOfImage, std::to_string(i), table);
  return table;
}

PointTable Read_Clusters(const FilePath& file, const Site& site) {
  if (Field_Count(file) == kNode.size()) return Read_Alike(file, kNode, site);
  return Read_Alike(file, kCluster, site);
}

PointTable Read_Crowns(const FilePath& file, const Site& site) {
  switch (const std::size_t count = Field_Count(file); count) {
    case 0:
    case kStoredTree.size():
      return Read_Alike(file, kStoredTree, site);
    case kLocalCrown.size():
      return Read_Alike(file, kLocalCrown, site);
    case kListedCrown.size():
      return Read_Alike(file, kListedCrown, site);
    default:
      throw Refused(file.name + ": lines of " + std::to_string(count) +
                    " fields; crowns have 6, 15 or 20");
  }
}

PointTable Read_Surface(const FilePath& file, const Site& site) {
  if (Field_Count(file) <= kNode.size()) return Read_Alike(file, kNode, site);
  if (file.native.filename() == "testi.txt") return Read_Alike(file, kScored, site);
  if (file.native.extension() == ".nod") return Read_Alike(file, kNodeOverRaster, site);
  return Read_Alike(file, kHeightPoint, site);
}

}  // namespace sylvomex
