// SPDX-License-Identifier: MIT
#include "desktop_site/site_words.h"

#include <algorithm>

namespace sylvomex {
namespace {

struct Caption {
  std::string_view command;
  const char* text;
};

constexpr Caption kCaptions[] = {
    {"init", "New site"},
    {"import images", "Import photographs"},
    {"import dem", "Import terrain (DEM)"},
    {"import chm", "Import canopy (CHM)"},
    {"import tin", "Import triangles (TIN)"},
    {"import lidar", "Import lidar"},
    {"import trees", "Import field trees"},
    {"check orientation", "Check orientation"},
    {"report", "Report"},
    {"export", "Export"},
};

struct Label {
  std::string_view command;  // empty: of any
  std::string_view field;
  const char* text;
};

constexpr Label kLabels[] = {
    {"", "TABLE", "Orientation table"},
    {"", "--cameras", "Camera file"},
    {"", "--format", "Format of the table"},
    {"", "RASTER", "Rasters"},
    {"init", "--crs", "Coordinate system"},
    {"import images", "FILE", "Photographs"},
    {"import images", "--stretch", "Stretch of 16 bits, percentiles"},
    {"import images", "--around", "Only the pixels around a place"},
    {"import tin", "RASTER_OR_LIDAR", "Rasters or lidar files"},
    {"import lidar", "FILE", "LAS and LAZ files"},
    {"import lidar", "--campaign", "Campaign whose tiles are written"},
    {"import lidar", "--trajectory", "Trajectory of the sensor"},
    {"import lidar", "--flying-height", "Flying height"},
    {"import trees", "FILE", "List of trees"},
    {"import trees", "--columns", "Columns of the list"},
    {"check orientation", "OBSERVATIONS", "Points seen in photographs"},
    {"check orientation", "POINTS", "Known points"},
    {"export", "WHAT", "Kind of file"},
    {"export", "INPUT", "File of the workstation"},
    {"export", "OUTPUT", "New file"},
};

}  // namespace

QString Site_Caption(const SiteCommand& command) {
  const auto* found = std::ranges::find(kCaptions, command.words, &Caption::command);
  return QString::fromLatin1(found == std::end(kCaptions) ? command.words : found->text);
}

QString Label_Of(const SiteCommand& command, const SiteField& field) {
  const auto* found = std::ranges::find_if(kLabels, [&](const Label& label) {
    return field.name == label.field && (label.command.empty() || command.words == label.command);
  });
  const QString label = QString::fromUtf8(found == std::end(kLabels) ? field.help : found->text);
  return field.required ? label : label + QStringLiteral(" (optional)");
}

}  // namespace sylvomex
