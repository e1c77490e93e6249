// SPDX-License-Identifier: MIT
#include "region/task_run.h"

#include <tbb/global_control.h>

#include <algorithm>
#include <map>

#include "interchange/checksum.h"
#include "interchange/failures.h"
#include "platform/run_time_error.h"
#include "region/peak_memory.h"
#include "region/task_files.h"
#include "region/task_work.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

using TaskMap = std::map<std::string, const RegionTask*>;

TaskMap Tasks_By_Id(const RegionPlan& plan) {
  TaskMap tasks;
  for (const RegionTask& task : plan.tasks) tasks[task.id] = &task;
  return tasks;
}

TaskYield Work(const RegionPlan& plan, const RegionTask& task, const fs::path& folder,
               int threads) {
  const int kernel_threads = threads == 1 ? 1 : 0;
  if (task.kind == TaskKind::OrthoTile) return Run_Ortho_Tile(plan, task, folder, kernel_threads);
  return Run_Tree_Tops(plan, task, folder, kernel_threads);
}

std::map<std::string, KeptFile> Files_In(const fs::path& folder) {
  std::map<std::string, KeptFile> files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    files[entry.path().filename().string()] = {entry.file_size(), File_Checksum(entry.path())};
  }
  return files;
}

/// Does a task and says whether this process was the first to finish it.
bool Run_One(const RegionPlan& plan, const TaskStore& store, InputCheck& inputs,
             const RegionTask& task, int threads, double& seconds) {
  TaskClaim claim(store, task.id);
  Begin_Task_Memory(task.memory_bytes);
  LapClock clock;
  inputs.Require(task);
  const double checking = clock.Lap();
  TaskYield yield = Work(plan, task, claim.Folder(), threads);
  inputs.Require(task);  // nothing was changed meanwhile
  yield.seconds.read += checking;
  TaskReport report;
  report.plan = plan.id;
  report.task = task.id;
  report.kind = Kind_Name(task.kind);
  report.host = Host_Name();
  report.threads = threads;
  report.figures = yield.figures;
  report.files = Files_In(claim.Folder());
  report.memory_bytes = task.memory_bytes;
  report.peak_memory_bytes = Peak_Memory();
  report.seconds = yield.seconds;
  report.seconds.total = seconds = checking + clock.Lap();
  // Checksums and what else follows the files belong to the writing.
  report.seconds.write = seconds - yield.seconds.read - yield.seconds.compute;
  Write_Task_File(claim.Folder() / "task.json", Report_Text(report));
  if (claim.Commit()) return true;
  if (store.Done(task.id)) return false;
  throw FailedOnTheWay(store.Folder_Of(task.id).string() +
                       ": it is no result, but stands in the place of one; remove it");
}

/// Notes a failure; a full disk may not even take that.
std::string Noted(const TaskStore& store, const std::string& task, const std::string& cause) try {
  store.Note_Failure(task, cause);
  return cause;
} catch (const std::exception& error) {
  return cause + " (nor can the failure be noted: " + error.what() + ")";
}

TaskEnd Try_One(const RegionPlan& plan, const TaskStore& store, InputCheck& inputs,
                const RegionTask& task, int threads) {
  TaskEnd end{task.id, TaskOutcome::DoneBefore, "", 0};
  try {
    if (store.Done(task.id)) return end;
    const bool is_first = Run_One(plan, store, inputs, task, threads, end.seconds);
    end.outcome = is_first ? TaskOutcome::Done : TaskOutcome::DoneByAnother;
    store.Forget_Failure(task.id);
  } catch (const std::bad_alloc&) {
    end.cause = "not enough memory";
  } catch (const std::exception& error) {
    end.cause = error.what();
  }
  if (end.cause.empty()) return end;
  end.outcome = TaskOutcome::Failed;
  end.cause = Noted(store, task.id, end.cause);
  return end;
}

}  // namespace

std::vector<TaskEnd> Run_Tasks(const RegionPlan& plan, const TaskStore& store,
                               std::span<const std::string> tasks, int threads,
                               const std::function<void(const TaskEnd&)>& tell) {
  const TaskMap known = Tasks_By_Id(plan);
  for (const std::string& task : tasks) {
    if (!known.contains(task)) throw Refused("the plan has no task " + task);
  }
  const tbb::global_control limit(tbb::global_control::max_allowed_parallelism,
                                  static_cast<std::size_t>(std::max(threads, 1)));
  store.Remove_Left_Claims();
  Keep_Freed_Memory();
  InputCheck inputs(plan);
  std::vector<TaskEnd> ends;
  for (const std::string& task : tasks) {
    ends.push_back(Try_One(plan, store, inputs, *known.at(task), threads));
    tell(ends.back());
  }
  return ends;
}

}  // namespace sylvomex
