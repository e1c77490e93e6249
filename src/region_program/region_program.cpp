// SPDX-License-Identifier: MIT
#include "region_program/region_program.h"

#include <optional>
#include <utility>

#include "interchange/failures.h"
#include "platform/replacing_file.h"
#include "region/plan_text.h"
#include "region/planner.h"
#include "region/region_merge.h"
#include "region/region_survey.h"
#include "region/region_text.h"
#include "region/task_run.h"
#include "site_program/program_frame.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr int kBundle = 75;  // tasks
constexpr std::size_t kMostTold = 20;

struct PlanArguments {
  fs::path region, out;
  int bundle = kBundle;
  bool strict = false;
  bool no_checksums = false;
};

struct RunArguments {
  fs::path plan;
  std::vector<std::string> tasks;
  std::optional<int> bundle;
  int threads = 1;
};

struct MergeArguments {
  fs::path plan, out;
  bool partial = false;
  int threads = 1;
};

struct StatusArguments {
  fs::path plan;
};

void Tell_Notes(const std::vector<PlanNote>& notes, const char* word, SiteOutput& output) {
  for (std::size_t i = 0; i < notes.size() && i < kMostTold; ++i) {
    output.Warn(notes[i].id + word + notes[i].cause);
  }
  if (notes.size() > kMostTold) {
    output.Warn("and " + std::to_string(notes.size() - kMostTold) +
                " more, all stand in plan.json");
  }
}

/// Another plan's results must not get into this plan's folder.
void Require_Own_Folder(const fs::path& folder, const RegionPlan& plan) {
  if (!fs::exists(folder / "results") || fs::is_empty(folder / "results")) return;
  if (fs::exists(folder / "plan.json") && Read_Plan(folder).id != plan.id) {
    throw Refused(folder.string() + ": it holds results of another plan; plan into another folder");
  }
  (void)Survey_Region(plan, TaskStore(folder, plan.id));  // refuses results of another plan
}

void Write_Plan(const fs::path& folder, const std::string& text) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw Refused(folder.string() + ": " + error.message());
  const fs::path file = folder / "plan.json";
  Replace_Whole_File({file.string(), file},
                     {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

int Run_Plan(const PlanArguments& arguments, SiteOutput& output) {
  RegionPlan plan = Plan_Region(Read_Region(arguments.region), arguments.bundle);
  Tell_Notes(plan.notes, ": ", output);
  Tell_Notes(plan.left_out, " is left out: ", output);
  if (arguments.strict && !plan.left_out.empty()) {
    throw Refused(std::to_string(plan.left_out.size()) + " plots or tiles cannot be done");
  }
  Tell_Input_Files(plan, !arguments.no_checksums);
  const std::string text = Plan_Text(plan);
  Require_Own_Folder(arguments.out, plan);
  Write_Plan(arguments.out, text);
  std::uint64_t memory = 0;
  double cost = 0;
  for (const RegionTask& task : plan.tasks) {
    memory = std::max(memory, task.memory_bytes);
    cost += task.cost;
  }
  output.Say(std::to_string(plan.tasks.size()) + " tasks in " +
             std::to_string(plan.bundles.size()) + " bundles, at most " +
             std::to_string(memory >> 20U) + " MB a task, about " +
             std::to_string(static_cast<long>(cost)) + " s on one thread; " +
             std::to_string(plan.left_out.size()) + " left out");
  output.object["plan"] = (arguments.out / "plan.json").string();
  output.object["id"] = plan.id;
  output.object["tasks"] = plan.tasks.size();
  output.object["bundles"] = plan.bundles.size();
  output.object["left_out"] = plan.left_out.size();
  output.object["memory_bytes"] = memory;
  output.object["seconds"] = cost;
  return kDone;
}

std::vector<std::string> Tasks_Of(const RunArguments& arguments, const RegionPlan& plan) {
  if (!arguments.bundle) return arguments.tasks;
  const auto bundle = static_cast<std::size_t>(*arguments.bundle);
  if (*arguments.bundle >= 0 && bundle < plan.bundles.size()) return plan.bundles[bundle];
  throw Refused("the plan has the bundles 0 to " + std::to_string(plan.bundles.size() - 1) +
                ", not " + std::to_string(*arguments.bundle));
}

std::string Line_Of(const TaskEnd& end) {
  char seconds[32];
  std::snprintf(seconds, sizeof seconds, ", %.2f s", end.seconds);
  switch (end.outcome) {
    case TaskOutcome::Done:
      return end.task + " done" + seconds;
    case TaskOutcome::DoneBefore:
      return end.task + " was done before";
    case TaskOutcome::DoneByAnother:
      return end.task + " was done by another process meanwhile";
    case TaskOutcome::Failed:
      break;
  }
  return end.task + " failed";
}

int Run_Run(const RunArguments& arguments, SiteOutput& output) {
  const RegionPlan plan = Read_Plan(arguments.plan);
  const TaskStore store(arguments.plan, plan.id);
  auto failed = nlohmann::ordered_json::array();
  std::size_t done = 0;
  const auto tell = [&](const TaskEnd& end) {
    if (end.outcome != TaskOutcome::Failed) {
      ++done;
      return output.Say(Line_Of(end));
    }
    output.Warn(end.task + " failed: " + end.cause);
    failed.push_back({{"task", end.task}, {"cause", end.cause}});
  };
  Run_Tasks(plan, store, Tasks_Of(arguments, plan), arguments.threads, tell);
  output.object["done"] = done;
  output.object["failed"] = failed;
  return failed.empty() ? kDone : kFailedOnTheWay;
}

int Run_Merge(const MergeArguments& arguments, SiteOutput& output) {
  const RegionPlan plan = Read_Plan(arguments.plan);
  const TaskStore store(arguments.plan, plan.id);
  const RegionMerge merge =
      Merge_Region(plan, store, arguments.out, arguments.partial, arguments.threads);
  output.Say(std::to_string(merge.done) + " of " + std::to_string(merge.tasks) + " tasks merged, " +
             std::to_string(merge.trees) + " trees of " + std::to_string(merge.found) +
             " tops found, " + std::to_string(merge.tiles) + " tiles");
  for (const std::string& file : merge.files)
    output.Say("wrote " + (arguments.out / file).string());
  output.object["tasks"] = merge.tasks;
  output.object["done"] = merge.done;
  output.object["tops"] = merge.found;
  output.object["trees"] = merge.trees;
  output.object["tiles"] = merge.tiles;
  output.object["files"] = merge.files;
  return kDone;
}

int Run_Status(const StatusArguments& arguments, SiteOutput& output) {
  const RegionPlan plan = Read_Plan(arguments.plan);
  const TaskStore store(arguments.plan, plan.id);
  const RegionSurvey survey = Survey_Region(plan, store);
  if (!output.json) output.out << Survey_Text(plan, survey);
  output.object["id"] = plan.id;
  output.object["tasks"] = survey.tasks.size();
  output.object["done"] = survey.done;
  output.object["failed"] = survey.failed;
  output.object["missing"] = survey.Missing();
  output.object["slow"] = survey.slow;
  output.object["seconds"] = survey.seconds.total;
  output.object["peak_memory_bytes"] = survey.peak_memory_bytes;
  return kDone;
}

void Add_Plan(CLI::App& app, ProgramTask& task) {
  const auto arguments = std::make_shared<PlanArguments>();
  CLI::App* const command = app.add_subcommand("plan", "plans the tasks of a region");
  command->add_option("REGION", arguments->region, "the region's TOML file")->required();
  command->add_option("--out", arguments->out, "the folder of the plan")->required();
  command->add_option("--bundle", arguments->bundle, "tasks of a bundle, about")
      ->check(CLI::Range(1, 1000000));
  command->add_flag("--strict", arguments->strict, "refuse when something must be left out");
  command->add_flag("--no-checksums", arguments->no_checksums,
                    "tell changed images and models by size and time alone");
  Run_With(command, task, Run_Plan, arguments);
}

void Add_Run(CLI::App& app, ProgramTask& task) {
  const auto arguments = std::make_shared<RunArguments>();
  CLI::App* const command = app.add_subcommand("run", "does tasks of a plan");
  command->add_option("PLAN", arguments->plan, "the folder of the plan")->required();
  CLI::Option* const tasks = command->add_option("TASK", arguments->tasks, "ids of tasks");
  CLI::Option* const bundle =
      command->add_option("--bundle", arguments->bundle, "a bundle, counted from 0");
  tasks->excludes(bundle);
  command->add_option("--threads", arguments->threads, "at most so many at once")
      ->check(CLI::Range(1, 1024));
  command->parse_complete_callback([arguments] {
    if (arguments->tasks.empty() && !arguments->bundle) {
      throw CLI::ValidationError("run", "TASK or --bundle must be given");
    }
  });
  Run_With(command, task, Run_Run, arguments);
}

void Add_Merge(CLI::App& app, ProgramTask& task) {
  const auto arguments = std::make_shared<MergeArguments>();
  CLI::App* const command = app.add_subcommand("merge", "joins the results of a plan");
  command->add_option("PLAN", arguments->plan, "the folder of the plan")->required();
  command->add_option("--out", arguments->out, "the folder of the merged files")->required();
  command->add_flag("--partial", arguments->partial, "merge what there is");
  command->add_option("--threads", arguments->threads, "threads that compress the mosaic")
      ->check(CLI::Range(1, 1024));
  Run_With(command, task, Run_Merge, arguments);
}

void Add_Status(CLI::App& app, ProgramTask& task) {
  const auto arguments = std::make_shared<StatusArguments>();
  CLI::App* const command = app.add_subcommand("status", "tells how far a plan has come");
  command->add_option("PLAN", arguments->plan, "the folder of the plan")->required();
  Run_With(command, task, Run_Status, arguments);
}

}  // namespace

int Run_Region_Program(std::vector<std::string> words, std::ostream& out, std::ostream& err) {
  SiteOutput output{out, err};
  output.program = "sylvomex-region";
  CLI::App app("Computes tree tops and orthoimages of whole regions, task by task.",
               "sylvomex-region");
  app.require_subcommand(1);
  ProgramTask task;
  Add_Plan(app, task);
  Add_Run(app, task);
  Add_Merge(app, task);
  Add_Status(app, task);
  return Run_Program(app, std::move(words), task, output);
}

}  // namespace sylvomex
