// SPDX-License-Identifier: MIT
#include "interchange/orientation_table.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>

#include "interchange/checksum.h"
#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr std::pair<TableFormat, const char*> kFormats[] = {{TableFormat::Plain, "plain"},
                                                            {TableFormat::Angles, "angles"},
                                                            {TableFormat::Frames, "frames"},
                                                            {TableFormat::TextModel, "text-model"},
                                                            {TableFormat::Shots, "shots"}};

TableFormat Named_Format(const std::string& format) {
  std::string names;
  for (const auto& [value, name] : kFormats) {
    if (format == name) return value;
    names += std::string(names.empty() ? "" : ", ") + name;
  }
  throw Refused("--format " + format + ": no such format; there are " + names);
}

/// "QW" stands in the comments of a text model only.
TableFormat Found_Format(const NamedText& table) {
  const std::string_view text = table.text;
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  if (start != std::string_view::npos && text[start] == '{') return TableFormat::Shots;
  const std::string name = Lower(fs::path(table.name).filename().string());
  if (name == "images.txt" || text.find("IMAGE_ID, QW") != std::string_view::npos) {
    return TableFormat::TextModel;
  }
  const std::string_view from_start = text.substr(std::min(start, text.size()));
  const std::string first = Lower(from_start.substr(0, from_start.find_first_of("\r\n")));
  if (first.find("perspectivex") != std::string::npos) return TableFormat::Frames;
  if (first.find("f_mm") != std::string::npos) return TableFormat::Plain;
  return TableFormat::Angles;
}

/// A camera file of the usual name in the table's folder or the one above.
std::string Cameras_Beside(const std::string& table, TableFormat format) {
  const char* const name = format == TableFormat::TextModel ? "cameras.txt"
                           : format == TableFormat::Shots   ? "cameras.json"
                                                            : nullptr;
  if (name == nullptr) return "";
  const fs::path folder = fs::absolute(table).parent_path();
  for (const fs::path& candidate : {folder / name, folder.parent_path() / name}) {
    if (fs::is_regular_file(candidate)) return candidate.string();
  }
  return "";
}

void Check_Camera(const PhotoGiven& photo, const std::string& name) {
  const CameraGiven& camera = photo.camera;
  const auto refuse = [&](const std::string& cause) {
    throw Refused(name + ": " + photo.name + ": " + cause);
  };
  if (!(camera.f_mm > 0)) refuse("the focal length is not positive");
  if (!(camera.pixel_mm > 0 && camera.pixel_y_mm > 0)) refuse("the pixel size is not positive");
  const double numbers[] = {camera.f_mm / camera.pixel_mm,
                            camera.f_mm / camera.pixel_y_mm,
                            camera.pp_x,
                            camera.pp_y,
                            camera.lens.k1,
                            camera.lens.k2,
                            camera.lens.k3,
                            camera.lens.p1,
                            camera.lens.p2,
                            photo.position.X,
                            photo.position.Y,
                            photo.position.Z};
  for (const double number : numbers) {
    if (!std::isfinite(number)) refuse("a number is not finite");
  }
}

void Check_Names(const OrientationTable& table, const std::string& name) {
  if (table.photos.empty()) throw Refused(name + ": the table holds no photograph");
  std::set<std::string> names;
  for (const PhotoGiven& photo : table.photos) {
    const std::string bare = Photo_Name(photo.name);
    if (bare.empty()) throw Refused(name + ": a photograph has no name");
    if (bare.find_first_of("\r\n\"*?") != std::string::npos) {
      throw Refused(name + ": the name " + Quoted_For_Message(bare) + " is no name of a file");
    }
    if (!names.insert(Lower(bare)).second) {
      throw Refused(name + ": the photograph \"" + bare + "\" stands twice in the table");
    }
  }
}

}  // namespace

const char* Format_Name(TableFormat format) {
  for (const auto& [value, name] : kFormats) {
    if (value == format) return name;
  }
  return "";
}

OrientationTable Parse_Orientation_Table(const NamedText& table, const NamedText& cameras,
                                         const std::string& format) {
  OrientationTable parsed;
  if (table.text.find_first_not_of(" \t\r\n") == std::string::npos) {
    throw Refused(table.name + ": the table is empty, not even its header line is there");
  }
  const TableFormat kind = format.empty() ? Found_Format(table) : Named_Format(format);
  switch (kind) {
    case TableFormat::Plain:
      parsed = Parse_Plain_Table(table);
      break;
    case TableFormat::Angles:
      parsed = Parse_Angle_Table(table, cameras);
      break;
    case TableFormat::Frames:
      parsed = Parse_Frames_Table(table, cameras);
      break;
    case TableFormat::TextModel:
      parsed = Parse_Text_Model(table, cameras);
      break;
    case TableFormat::Shots:
      parsed = Parse_Shots(table, cameras);
      break;
  }
  parsed.format = kind;
  Check_Names(parsed, table.name);
  for (const PhotoGiven& photo : parsed.photos) Check_Camera(photo, table.name);
  parsed.checksum = Text_Checksum(table.text);
  if (!cameras.name.empty()) parsed.cameras_checksum = Text_Checksum(cameras.text);
  return parsed;
}

OrientationTable Read_Orientation_Table(const std::string& file, const std::string& cameras,
                                        const std::string& format) {
  const NamedText table{Read_Text_File(file), file};
  const TableFormat kind = format.empty() ? Found_Format(table) : Named_Format(format);
  const std::string beside = cameras.empty() ? Cameras_Beside(file, kind) : cameras;
  NamedText camera_text;
  if (!beside.empty()) camera_text = {Read_Text_File(beside), beside};
  return Parse_Orientation_Table(table, camera_text, Format_Name(kind));
}

}  // namespace sylvomex
