// SPDX-License-Identifier: MIT
#include <map>

#include "interchange/failures.h"
#include "interchange/lidar_export.h"
#include "interchange/point_export.h"
#include "interchange/raster_export.h"
#include "interchange/record_tables.h"
#include "interchange/site.h"
#include "interchange/tin_export.h"
#include "platform/drive_map.h"
#include "site_program/subcommands.h"

namespace sylvomex {
namespace {

using ReadPoints = PointTable (*)(const FilePath&, const Site&);

/// The reader of what is a layer of points; none for the rest.
ReadPoints Reader_Of(const std::string& what) {
  static const std::map<std::string, ReadPoints> kReaders = {
      {"observations", Read_Observations}, {"distances", Read_Distances},
      {"clusters", Read_Clusters},         {"crowns", Read_Crowns},
      {"surface", Read_Surface},           {"trees", Read_Trees}};
  const auto reader = kReaders.find(what);
  return reader == kReaders.end() ? nullptr : reader->second;
}

void Export_Point_Layer(const ExportArguments& arguments, ReadPoints read, const Site& site,
                        SiteOutput& output) {
  const PointTable points = read({arguments.input.string(), arguments.input}, site);
  Export_Points(points, site.crs, arguments.what, arguments.output,
                {site.folder, output.Progress()});
  output.object["points"] = points.rows.size();
}

void Export_Other(const ExportArguments& arguments, const Site& site, SiteOutput& output) {
  if (arguments.what == "dem") {
    Export_Model(arguments.input, site, arguments.output, output.Progress());
  } else if (arguments.what == "orto") {
    Export_Ortho(arguments.input, site, arguments.output, output.Progress());
  } else if (arguments.what == "correlation") {
    Export_Correlation(arguments.input, arguments.output, {site.folder, output.Progress()});
  } else if (arguments.what == "tin") {
    Export_Tin(arguments.input, site, arguments.output, output.Progress());
  } else {
    output.object["points"] =
        Export_Lidar(arguments.input, site, arguments.output, output.Progress());
  }
}

/// Imports tell their files by the workstation's names, "c:\data\models\dem.hdr": these are
/// taken too.
std::filesystem::path Native_Input(const std::filesystem::path& input, const Site& site) {
  const std::string name = input.string();
  const bool has_drive = name.size() > 2 && name[1] == ':' && (name[2] == '\\' || name[2] == '/');
  if (!has_drive || std::filesystem::exists(input)) return input;
  return DriveMap(site.folder).Locate(name).native;
}

}  // namespace

int Run_Export(const ExportArguments& given, SiteOutput& output) {
  const Site site = Open_Site(given.site);
  ExportArguments arguments = given;
  arguments.input = Native_Input(given.input, site);
  if (!std::filesystem::is_regular_file(arguments.input)) {
    throw Refused(given.input.string() + ": there is no such file");
  }
  output.object["output"] = arguments.output.string();
  if (const ReadPoints read = Reader_Of(arguments.what)) {
    Export_Point_Layer(arguments, read, site, output);
  } else {
    Export_Other(arguments, site, output);
  }
  output.Say("wrote " + arguments.output.string());
  return kDone;
}

}  // namespace sylvomex
