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
  Subcommand& Add(const char* name, Value Arguments::*value) {
    const SiteField& field = Field_Of(row_, name);
    CLI::Option* const option = command_->add_option(name, (*arguments_).*value, field.help);
    option->required(field.required);
    if (field.kind == SiteFieldKind::Numbers) option->type_name(field.value);
    if (field.kind == SiteFieldKind::Choice) {
      std::istringstream words(field.value);
      option->check(CLI::IsMember(std::vector<std::string>(
          std::istream_iterator<std::string>(words), std::istream_iterator<std::string>())));
    }
    return *this;
  }

  /// Two options of which one at most may stand.
  Subcommand& Excludes(const char* option, const char* other) {
    command_->get_option(option)->excludes(command_->get_option(other));
    return *this;
  }

  Subcommand& Check_With(void (*check)(const Arguments&)) {
    command_->parse_complete_callback([arguments = arguments_, check] { check(*arguments); });
    return *this;
  }

  void Run_By(int (*run)(const Arguments&, SiteOutput&), ProgramTask& task) {
    Run_With(command_, task, run, arguments_);
  }

 private:
  const SiteCommand& row_;
  CLI::App* command_ = nullptr;
  std::shared_ptr<Arguments> arguments_ = std::make_shared<Arguments>();
};

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

void Add_Image_Import(CLI::App& app, ProgramTask& task) {
  using A = ImagesArguments;
  Subcommand<A>(app, "import images")
      .Add("SITE", &A::site)
      .Add("TABLE", &A::table)
      .Add("FILE", &A::files)
      .Add("--cameras", &A::cameras)
      .Add("--format", &A::format)
      .Add("--stretch", &A::stretch)
      .Add("--around", &A::around)
      .Check_With(Check_Numbers)
      .Run_By(Run_Import_Images, task);
}

void Add_Raster_Imports(CLI::App& app, ProgramTask& task) {
  using A = RasterArguments;
  const auto add = [&](const char* words, const char* files, auto* run) {
    Subcommand<A>(app, words).Add("SITE", &A::site).Add(files, &A::files).Run_By(run, task);
  };
  add("import dem", "RASTER", Run_Import_Dem);
  add("import chm", "RASTER", Run_Import_Chm);
  add("import tin", "RASTER_OR_LIDAR", Run_Import_Tin);
}

void Add_List_Imports(CLI::App& app, ProgramTask& task) {
  Subcommand<LidarArguments>(app, "import lidar")
      .Add("SITE", &LidarArguments::site)
      .Add("FILE", &LidarArguments::files)
      .Add("--campaign", &LidarArguments::campaign)
      .Add("--trajectory", &LidarArguments::trajectory)
      .Add("--flying-height", &LidarArguments::flying_height)
      .Excludes("--flying-height", "--trajectory")
      .Run_By(Run_Import_Lidar, task);
  Subcommand<TreesArguments>(app, "import trees")
      .Add("SITE", &TreesArguments::site)
      .Add("FILE", &TreesArguments::file)
      .Add("--columns", &TreesArguments::columns)
      .Run_By(Run_Import_Trees, task);
}

void Add_Check(CLI::App& app, ProgramTask& task) {
  using A = CheckArguments;
  Subcommand<A>(app, "check orientation")
      .Add("SITE", &A::site)
      .Add("TABLE", &A::table)
      .Add("OBSERVATIONS", &A::observations)
      .Add("POINTS", &A::points)
      .Add("--cameras", &A::cameras)
      .Add("--format", &A::format)
      .Run_By(Run_Check_Orientation, task);
}

void Add_Results(CLI::App& app, ProgramTask& task) {
  Subcommand<ReportArguments>(app, "report")
      .Add("SITE", &ReportArguments::site)
      .Run_By(Run_Report, task);
  Subcommand<ExportArguments>(app, "export")
      .Add("SITE", &ExportArguments::site)
      .Add("WHAT", &ExportArguments::what)
      .Add("INPUT", &ExportArguments::input)
      .Add("OUTPUT", &ExportArguments::output)
      .Run_By(Run_Export, task);
}

void Add_Subcommands(CLI::App& app, ProgramTask& task) {
  app.require_subcommand(1);
  Subcommand<InitArguments>(app, "init")
      .Add("SITE", &InitArguments::site)
      .Add("--crs", &InitArguments::crs)
      .Run_By(Run_Init, task);
  app.add_subcommand("import", "brings data into a site")->require_subcommand(1);
  Add_Image_Import(app, task);
  Add_Raster_Imports(app, task);
  Add_List_Imports(app, task);
  app.add_subcommand("check", "checks input before its import")->require_subcommand(1);
  Add_Check(app, task);
  Add_Results(app, task);
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
