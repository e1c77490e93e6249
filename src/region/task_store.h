// SPDX-License-Identifier: MIT
// The results of a plan in the folder "results" beside it. Many processes on many machines may work
// on it at once: a task is written in a folder of a unique name and renamed when it is complete.
//
//   results/TASK/                       a task that is done, with "task.json"
//   results/TASK.failed.json            the last failure of a task that is not done
//   results/.TASK.HOST.PROCESS.RANDOM/  being written, or left by a process that was killed
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "region/task_report.h"
#include "region/unique_folder.h"

namespace sylvomex {

class TaskStore {
 public:
  /// folder: that of the plan; plan: its id. The folder of results is made with the first result.
  TaskStore(const std::filesystem::path& folder, std::string plan);

  [[nodiscard]] std::filesystem::path Folder_Of(const std::string& task) const;

  /// The report of a task that is done. Refused when it is of another plan or of another task.
  [[nodiscard]] std::optional<TaskReport> Done(const std::string& task) const;
  /// The last failure of a task; none of another plan's.
  [[nodiscard]] std::optional<TaskFailure> Failed(const std::string& task) const;

  /// Notes a failure with its cause and the number of tries so far.
  void Note_Failure(const std::string& task, const std::string& cause) const;
  void Forget_Failure(const std::string& task) const;

  /// Folders of results that are none of these tasks'.
  [[nodiscard]] std::vector<std::string> Strangers(const std::vector<std::string>& tasks) const;

  /// Removes what killed processes of this machine left.
  void Remove_Left_Claims() const;

 private:
  std::filesystem::path results_;
  std::string plan_;
};

/// The folder in which one process writes a task. What is not committed is removed.
class TaskClaim {
 public:
  /// FailedOnTheWay when the folder cannot be made.
  TaskClaim(const TaskStore& store, const std::string& task);

  [[nodiscard]] const std::filesystem::path& Folder() const { return folder_.Path(); }

  /// Brings all files to the disk and renames the folder. False when another process was first;
  /// FailedOnTheWay when it cannot be done.
  bool Commit();

 private:
  std::filesystem::path place_;
  UniqueFolder folder_;
};

}  // namespace sylvomex
