// SPDX-License-Identifier: MIT
#include "site_program/command_table.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace sylvomex {
namespace {

using enum SiteFieldKind;

constexpr SiteField kSite{"SITE", "the site, the folder of the drives", Site};
constexpr SiteField kTable{"TABLE", "the orientation table", File};
constexpr SiteField kCameras{"--cameras", "the file of the cameras", File, false};
constexpr SiteField kFormat{"--format", "the table's format, if it is not to be found", Choice,
                            false, "plain angles frames text-model shots"};

constexpr std::array kInit{kSite,
                           SiteField{"--crs", "EPSG:n, a PROJ string or WKT; in metres", Text}};
constexpr std::array kImages{
    kSite,
    kTable,
    SiteField{"FILE", "the photographs", Files},
    kCameras,
    kFormat,
    SiteField{"--stretch", "percentiles of 16 bits that become 0 and 255; 2 98", Numbers, false,
              "LOW HIGH"},
    SiteField{"--around", "cut what shows the circle", Numbers, false, "X Y Z RADIUS"}};
constexpr std::array kRasters{kSite, SiteField{"RASTER", "the files", Files}};
constexpr std::array kTin{
    kSite, SiteField{"RASTER_OR_LIDAR", "rasters, or LAS and LAZ files with ground echoes", Files}};
constexpr std::array kLidar{
    kSite, SiteField{"FILE", "the LAS and LAZ files", Files},
    SiteField{"--campaign", "whose tiles hold the pulses", Choice, true, "2004 2006 2007"},
    SiteField{"--trajectory", "sensor positions, CSV or SBET", File, false},
    SiteField{"--flying-height", "metres above the first echo, without a trajectory; 1500", Numbers,
              false, "METRES"}};
constexpr std::array kTrees{
    kSite, SiteField{"FILE", "CSV, GeoPackage or shapefile", File},
    SiteField{"--columns",
              "NAME=COLUMN,... NAME X, Y, Z, Dbh, TreeHeight, TreeId, TreeSpecies, TreeCode",
              Text}};
constexpr std::array kOrientation{kSite,
                                  kTable,
                                  SiteField{"OBSERVATIONS", "photo,point,col_px,row_px", File},
                                  SiteField{"POINTS", "point,X,Y,Z", File},
                                  kCameras,
                                  kFormat};
constexpr std::array kReport{kSite};
constexpr std::array kExport{
    kSite,
    SiteField{
        "WHAT", "what INPUT holds", Choice, true,
        "observations distances clusters crowns surface trees orto dem tin lidar correlation"},
    SiteField{"INPUT", "a file that the workstation wrote", File},
    SiteField{"OUTPUT", "its ending chooses the format", NewFile}};

constexpr std::array kCommands{
    SiteCommand{"init", "makes a site of a folder", kInit},
    SiteCommand{"import images", "photographs with their orientation", kImages},
    SiteCommand{"import dem", "a terrain model", kRasters},
    SiteCommand{"import chm", "a canopy model", kRasters},
    SiteCommand{"import tin", "a triangulated terrain model", kTin},
    SiteCommand{"import lidar", "LAS and LAZ files", kLidar},
    SiteCommand{"import trees", "a list of field trees", kTrees},
    SiteCommand{"check orientation", "finds the convention of an orientation table", kOrientation},
    SiteCommand{"report", "tells what a site holds", kReport},
    SiteCommand{"export", "writes what the workstation made", kExport}};

}  // namespace

std::span<const SiteCommand> Site_Commands() { return kCommands; }

const SiteCommand& Site_Command(std::string_view words) {
  const auto found =
      std::ranges::find_if(kCommands, [&](const SiteCommand& row) { return row.words == words; });
  if (found == kCommands.end()) throw std::invalid_argument(std::string(words));
  return *found;
}

const SiteField& Field_Of(const SiteCommand& command, std::string_view name) {
  const auto found = std::ranges::find_if(
      command.fields, [&](const SiteField& field) { return field.name == name; });
  if (found == command.fields.end()) throw std::invalid_argument(std::string(name));
  return *found;
}

}  // namespace sylvomex
