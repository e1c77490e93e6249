// SPDX-License-Identifier: MIT
#include "region/region_survey.h"

#include <algorithm>
#include <map>

#include "interchange/failures.h"

namespace sylvomex {
namespace {

constexpr double kSlow = 3;  // times the median

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void Mark_Slow(RegionSurvey& survey) {
  std::map<TaskKind, std::vector<double>> seconds;
  for (const TaskStatus& status : survey.tasks) {
    if (status.done) seconds[status.task->kind].push_back(status.done->seconds.total);
  }
  for (TaskStatus& status : survey.tasks) {
    if (!status.done) continue;
    status.is_slow = status.done->seconds.total > kSlow * Median(seconds[status.task->kind]);
    survey.slow += status.is_slow ? 1 : 0;
  }
}

void Add_Report(const TaskReport& report, RegionSurvey& survey) {
  ++survey.done;
  survey.seconds.read += report.seconds.read;
  survey.seconds.compute += report.seconds.compute;
  survey.seconds.write += report.seconds.write;
  survey.seconds.total += report.seconds.total;
  if (report.peak_memory_bytes <= survey.peak_memory_bytes) return;
  survey.peak_memory_bytes = report.peak_memory_bytes;
  survey.largest_task = report.task;
}

}  // namespace

RegionSurvey Survey_Region(const RegionPlan& plan, const TaskStore& store) {
  RegionSurvey survey;
  std::vector<std::string> ids;
  for (const RegionTask& task : plan.tasks) {
    ids.push_back(task.id);
    TaskStatus status{&task, store.Done(task.id), {}, false};
    if (!status.done) status.failed = store.Failed(task.id);
    if (status.done) Add_Report(*status.done, survey);
    survey.failed += status.failed ? 1 : 0;
    survey.tasks.push_back(std::move(status));
  }
  const std::vector<std::string> strangers = store.Strangers(ids);
  if (!strangers.empty()) {
    throw Refused(store.Folder_Of(strangers.front()).string() +
                  ": it is the result of no task of this plan; move the folder results away or "
                  "plan into another folder");
  }
  Mark_Slow(survey);
  return survey;
}

}  // namespace sylvomex
