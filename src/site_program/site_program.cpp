// SPDX-License-Identifier: MIT
#include "site_program/site_program.h"

#include <iterator>
#include <sstream>
#include <utility>

#include "site_program/command_table.h"
#include "site_program/program_frame.h"
#include "site_program/subcommands.h"

namespace sylvomex {
namespace {

/// One subcommand: its options by the table, with their values in the arguments.
template <class Arguments>
class Subcommand {
 public:
  Subcommand(CLI::App& app, const char* words) : row_(Site_Command(words)) {
    const std::string text(words);
    const std::size_t blank = text.find(' ');
    CLI::App* const parent =
        blank == std::string::npos ? &app : app.get_subcommand(text.substr(0, blank));
    command_ = parent->add_subcommand(blank == std::string::npos ? text : text.substr(blank + 1),
                                      row_.help);
  }

  template <class Value>
  CLI::Option* Add(const char* name, Value Arguments::*value) {
    const SiteField& field = Field_Of(row_, name);
    CLI::Option* const option = command_->add_option(name, (*arguments_).*value, field.help);
    option->required(field.required);
    if (field.kind == SiteFieldKind::Numbers) option->type_name(field.value);
    if (field.kind == SiteFieldKind::Choice) {
      std::istringstream words(field.value);
      option->check(CLI::IsMember(std::vector<std::string>(
          std::istream_iterator<std::string>(words), std::istream_iterator<std::string>())));
    }
    return option;
  }

  void Check_With(void (*check)(const Arguments&)) {
    command_->parse_complete_callback([arguments = arguments_, check] { check(*arguments); });
  }

  void Run_By(int (*run)(const Arguments&, SiteOutput&), ProgramTask& task) {
    Run_With(command_, task, run, arguments_);
  }

 private:
  const SiteCommand& row_;
  CLI::App* command_ = nullptr;
  std::shared_ptr<Arguments> arguments_ = std::make_shared<Arguments>();
};

void Add_Init(CLI::App& app, ProgramTask& task) {
  using A = InitArguments;
  Subcommand<A> command(app, "init");
  command.Add("SITE", &A::site);
  command.Add("--crs", &A::crs);
  command.Run_By(Run_Init, task);
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

void Add_Import_Images(CLI::App& app, ProgramTask& task) {
  using A = ImagesArguments;
  Subcommand<A> command(app, "import images");
  command.Add("SITE", &A::site);
  command.Add("TABLE", &A::table);
  command.Add("FILE", &A::files);
  command.Add("--cameras", &A::cameras);
  command.Add("--format", &A::format);
  command.Add("--stretch", &A::stretch);
  command.Add("--around", &A::around);
  command.Check_With(Check_Numbers);
  command.Run_By(Run_Import_Images, task);
}

void Add_Import_Raster(CLI::App& app, ProgramTask& task, const char* words, const char* files,
                       int (*run)(const RasterArguments&, SiteOutput&)) {
  Subcommand<RasterArguments> command(app, words);
  command.Add("SITE", &RasterArguments::site);
  command.Add(files, &RasterArguments::files);
  command.Run_By(run, task);
}

void Add_Import_Lidar(CLI::App& app, ProgramTask& task) {
  using A = LidarArguments;
  Subcommand<A> command(app, "import lidar");
  command.Add("SITE", &A::site);
  command.Add("FILE", &A::files);
  command.Add("--campaign", &A::campaign);
  CLI::Option* const trajectory = command.Add("--trajectory", &A::trajectory);
  command.Add("--flying-height", &A::flying_height)->excludes(trajectory);
  command.Run_By(Run_Import_Lidar, task);
}

void Add_Import_Trees(CLI::App& app, ProgramTask& task) {
  using A = TreesArguments;
  Subcommand<A> command(app, "import trees");
  command.Add("SITE", &A::site);
  command.Add("FILE", &A::file);
  command.Add("--columns", &A::columns);
  command.Run_By(Run_Import_Trees, task);
}

void Add_Check(CLI::App& app, ProgramTask& task) {
  using A = CheckArguments;
  Subcommand<A> command(app, "check orientation");
  command.Add("SITE", &A::site);
  command.Add("TABLE", &A::table);
  command.Add("OBSERVATIONS", &A::observations);
  command.Add("POINTS", &A::points);
  command.Add("--cameras", &A::cameras);
  command.Add("--format", &A::format);
  command.Run_By(Run_Check_Orientation, task);
}

void Add_Report(CLI::App& app, ProgramTask& task) {
  Subcommand<ReportArguments> command(app, "report");
  command.Add("SITE", &ReportArguments::site);
  command.Run_By(Run_Report, task);
}

void Add_Export(CLI::App& app, ProgramTask& task) {
  using A = ExportArguments;
  Subcommand<A> command(app, "export");
  command.Add("SITE", &A::site);
  command.Add("WHAT", &A::what);
  command.Add("INPUT", &A::input);
  command.Add("OUTPUT", &A::output);
  command.Run_By(Run_Export, task);
}

void Add_Subcommands(CLI::App& app, ProgramTask& task) {
  app.require_subcommand(1);
  Add_Init(app, task);
  app.add_subcommand("import", "brings data into a site")->require_subcommand(1);
  Add_Import_Images(app, task);
  Add_Import_Raster(app, task, "import dem", "RASTER", Run_Import_Dem);
  Add_Import_Raster(app, task, "import chm", "RASTER", Run_Import_Chm);
  Add_Import_Raster(app, task, "import tin", "RASTER_OR_LIDAR", Run_Import_Tin);
  Add_Import_Lidar(app, task);
  Add_Import_Trees(app, task);
  app.add_subcommand("check", "checks input before its import")->require_subcommand(1);
  Add_Check(app, task);
  Add_Report(app, task);
  Add_Export(app, task);
}

}  // namespace

int Run_Site_Program(std::vector<std::string> words, std::ostream& out, std::ostream& err) {
  SiteOutput output{out, err};
  output.progress = std::erase(words, "--progress") > 0;
  CLI::App app("Brings the field's formats into a site and out of it.", "sylvomex-site");
  app.footer(
      "--progress may stand anywhere and writes lines \"progress PERCENT\" on standard error.\n");
  ProgramTask task;
  Add_Subcommands(app, task);
  return Run_Program(app, std::move(words), task, output);
}

}  // namespace sylvomex
