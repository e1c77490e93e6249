// SPDX-License-Identifier: MIT
#include "site_program/site_program.h"

#include <utility>

#include "site_program/program_frame.h"
#include "site_program/subcommands.h"

namespace sylvomex {
namespace {

void Add_Init(CLI::App& app, ProgramTask& task) {
  const auto arguments = std::make_shared<InitArguments>();
  CLI::App* const command = app.add_subcommand("init", "makes a site of a folder");
  command->add_option("SITE", arguments->site, "the folder of the drives")->required();
  command->add_option("--crs", arguments->crs, "EPSG:n, a PROJ string or WKT; in metres")
      ->required();
  Run_With(command, task, Run_Init, arguments);
}

/// Numbers that no image can make sense of are a wrong command line.
void Check_Numbers(const ImagesArguments& arguments) {
  if (arguments.stretch) {
    const auto [low, high] = *arguments.stretch;
    if (!(low >= 0 && low < high && high <= 100)) {
      throw CLI::ValidationError("--stretch",
                                 "LOW and HIGH are percentiles, 0 <= LOW < HIGH <= 100");
    }
  }
  if (arguments.around && !((*arguments.around)[3] > 0)) {
    throw CLI::ValidationError("--around", "RADIUS is not positive");
  }
}

void Add_Import_Images(CLI::App& import, ProgramTask& task) {
  const auto arguments = std::make_shared<ImagesArguments>();
  CLI::App* const command = import.add_subcommand("images", "photographs with their orientation");
  command->add_option("SITE", arguments->site, "the site")->required();
  command->add_option("TABLE", arguments->table, "the orientation table")->required();
  command->add_option("FILE", arguments->files, "the photographs")->required();
  command->add_option("--cameras", arguments->cameras, "the file of the cameras");
  command->add_option("--format", arguments->format,
                      "the table's format, if it is not to be found");
  command->add_option("--stretch", arguments->stretch, "percentiles that become 0 and 255")
      ->type_name("LOW HIGH");
  command->add_option("--around", arguments->around, "cut what shows the circle")
      ->type_name("X Y Z RADIUS");
  command->parse_complete_callback([arguments] { Check_Numbers(*arguments); });
  Run_With(command, task, Run_Import_Images, arguments);
}

void Add_Import_Rasters(CLI::App& import, ProgramTask& task) {
  struct Kind {
    const char* name;
    const char* help;
    const char* file;
    int (*run)(const RasterArguments&, SiteOutput&);
  };
  for (const Kind& kind :
       {Kind{"dem", "a terrain model", "RASTER", Run_Import_Dem},
        Kind{"chm", "a canopy model", "RASTER", Run_Import_Chm},
        Kind{"tin", "a triangulated terrain model", "RASTER_OR_LIDAR", Run_Import_Tin}}) {
    const auto arguments = std::make_shared<RasterArguments>();
    CLI::App* const command = import.add_subcommand(kind.name, kind.help);
    command->add_option("SITE", arguments->site, "the site")->required();
    command->add_option(kind.file, arguments->files, "the files")->required();
    Run_With(command, task, kind.run, arguments);
  }
}

void Add_Import_Lidar(CLI::App& import, ProgramTask& task) {
  const auto arguments = std::make_shared<LidarArguments>();
  CLI::App* const command = import.add_subcommand("lidar", "LAS and LAZ files");
  command->add_option("SITE", arguments->site, "the site")->required();
  command->add_option("FILE", arguments->files, "the files")->required();
  command->add_option("--campaign", arguments->campaign, "2004, 2006 or 2007")
      ->required()
      ->check(CLI::IsMember({2004, 2006, 2007}));
  CLI::Option* const trajectory =
      command->add_option("--trajectory", arguments->trajectory, "sensor positions, CSV or SBET");
  command->add_option("--flying-height", arguments->flying_height, "metres above the first echo")
      ->excludes(trajectory);
  Run_With(command, task, Run_Import_Lidar, arguments);
}

void Add_Import_Trees(CLI::App& import, ProgramTask& task) {
  const auto arguments = std::make_shared<TreesArguments>();
  CLI::App* const command = import.add_subcommand("trees", "a list of field trees");
  command->add_option("SITE", arguments->site, "the site")->required();
  command->add_option("FILE", arguments->file, "CSV, GeoPackage or shapefile")->required();
  command->add_option("--columns", arguments->columns, "NAME=COLUMN,...")->required();
  Run_With(command, task, Run_Import_Trees, arguments);
}

void Add_Check(CLI::App& app, ProgramTask& task) {
  const auto arguments = std::make_shared<CheckArguments>();
  CLI::App* const check = app.add_subcommand("check", "checks input before its import");
  check->require_subcommand(1);
  CLI::App* const command =
      check->add_subcommand("orientation", "finds the convention of an orientation table");
  command->add_option("SITE", arguments->site, "the site")->required();
  command->add_option("TABLE", arguments->table, "the orientation table")->required();
  command->add_option("OBSERVATIONS", arguments->observations, "photo,point,col_px,row_px")
      ->required();
  command->add_option("POINTS", arguments->points, "point,X,Y,Z")->required();
  command->add_option("--cameras", arguments->cameras, "the file of the cameras");
  command->add_option("--format", arguments->format,
                      "the table's format, if it is not to be found");
  Run_With(command, task, Run_Check_Orientation, arguments);
}

void Add_Report(CLI::App& app, ProgramTask& task) {
  const auto arguments = std::make_shared<ReportArguments>();
  CLI::App* const command = app.add_subcommand("report", "tells what a site holds");
  command->add_option("SITE", arguments->site, "the site")->required();
  Run_With(command, task, Run_Report, arguments);
}

void Add_Export(CLI::App& app, ProgramTask& task) {
  const auto arguments = std::make_shared<ExportArguments>();
  CLI::App* const command = app.add_subcommand("export", "writes what the workstation made");
  command->add_option("SITE", arguments->site, "the site")->required();
  command->add_option("WHAT", arguments->what, "what INPUT holds")
      ->required()
      ->check(CLI::IsMember({"observations", "distances", "clusters", "crowns", "surface", "trees",
                             "orto", "dem", "tin", "lidar", "correlation"}));
  command->add_option("INPUT", arguments->input, "a file that the workstation wrote")->required();
  command->add_option("OUTPUT", arguments->output, "its ending chooses the format")->required();
  Run_With(command, task, Run_Export, arguments);
}

void Add_Subcommands(CLI::App& app, ProgramTask& task) {
  app.require_subcommand(1);
  Add_Init(app, task);
  CLI::App* const import = app.add_subcommand("import", "brings data into a site");
  import->require_subcommand(1);
  Add_Import_Images(*import, task);
  Add_Import_Rasters(*import, task);
  Add_Import_Lidar(*import, task);
  Add_Import_Trees(*import, task);
  Add_Check(app, task);
  Add_Report(app, task);
  Add_Export(app, task);
}

}  // namespace

int Run_Site_Program(std::vector<std::string> words, std::ostream& out, std::ostream& err) {
  SiteOutput output{out, err};
  CLI::App app("Brings the field's formats into a site and out of it.", "sylvomex-site");
  ProgramTask task;
  Add_Subcommands(app, task);
  return Run_Program(app, std::move(words), task, output);
}

}  // namespace sylvomex
