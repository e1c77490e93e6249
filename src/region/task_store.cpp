// SPDX-License-Identifier: MIT
#include "region/task_store.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <set>
#include <utility>

#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "platform/file_descriptor.h"
#include "platform/replacing_file.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFailedEnding = ".failed.json";

void Bring_To_Disk(const fs::path& file) {
  const FilePath path{file.string(), file};
  const FileDescriptor open_file(path, O_RDONLY);
  if (fsync(open_file.Number()) != 0) Throw_File_Error(path, errno);
}

}  // namespace

TaskStore::TaskStore(const fs::path& folder, std::string plan)
    : results_(folder / "results"), plan_(std::move(plan)) {}

fs::path TaskStore::Folder_Of(const std::string& task) const { return results_ / task; }

std::optional<TaskReport> TaskStore::Done(const std::string& task) const {
  const fs::path file = Folder_Of(task) / "task.json";
  if (!fs::exists(file)) return std::nullopt;
  TaskReport report = Parse_Report(Read_Text_File(file.string()), file.string());
  if (report.plan == plan_ && report.task != task) {
    throw Refused(Folder_Of(task).string() + ": it holds the result of task " + report.task +
                  "; remove the folder and run task " + task + " again");
  }
  if (report.plan == plan_) return report;
  throw Refused(Folder_Of(task).string() + ": it holds the result of another plan (" +
                report.plan.substr(0, 12) + ", this one is " + plan_.substr(0, 12) +
                "); move the folder results away or plan into another folder");
}

std::optional<TaskFailure> TaskStore::Failed(const std::string& task) const {
  const fs::path file = results_ / (task + kFailedEnding);
  if (!fs::exists(file)) return std::nullopt;
  TaskFailure failure = Parse_Failure(Read_Text_File(file.string()), file.string());
  if (failure.plan != plan_) return std::nullopt;
  return failure;
}

void TaskStore::Note_Failure(const std::string& task, const std::string& cause) const {
  const std::optional<TaskFailure> before = Failed(task);
  const std::string text =
      Failure_Text({plan_, task, cause, (before ? before->tries : 0) + 1, Host_Name()});
  const fs::path file = results_ / (task + kFailedEnding);
  Replace_Whole_File({file.string(), file},
                     {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

void TaskStore::Forget_Failure(const std::string& task) const {
  std::error_code ignored;
  fs::remove(results_ / (task + kFailedEnding), ignored);
}

std::vector<std::string> TaskStore::Strangers(const std::vector<std::string>& tasks) const {
  const std::set<std::string> known(tasks.begin(), tasks.end());
  std::vector<std::string> strangers;
  if (!fs::exists(results_)) return strangers;
  for (const auto& entry : fs::directory_iterator(results_)) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with(".") || !entry.is_directory() || known.contains(name)) continue;
    strangers.push_back(name);
  }
  std::sort(strangers.begin(), strangers.end());
  return strangers;
}

void TaskStore::Remove_Left_Claims() const { Remove_Left_Folders(results_); }

TaskClaim::TaskClaim(const TaskStore& store, const std::string& task)
    : place_(store.Folder_Of(task)), folder_(place_.parent_path(), task) {}

bool TaskClaim::Commit() try {
  for (const auto& entry : fs::directory_iterator(Folder())) Bring_To_Disk(entry.path());
  std::error_code error;
  fs::rename(Folder(), place_, error);
  if (!error) return true;
  if (error == std::errc::directory_not_empty || error == std::errc::file_exists) return false;
  throw FailedOnTheWay(place_.string() + ": " + error.message());
} catch (const RunTimeError& error) {
  throw FailedOnTheWay(error.what());
}

}  // namespace sylvomex
