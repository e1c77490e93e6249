// SPDX-License-Identifier: MIT
// What is kept of a task that is done ("task.json") or has failed ("TASK.failed.json").
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace sylvomex {

struct TaskSeconds {
  double read = 0, compute = 0, write = 0, total = 0;
};

struct KeptFile {
  std::uint64_t bytes = 0;
  std::string checksum;  // SHA-256
};

struct TaskReport {
  std::string plan, task, kind;
  std::string host;
  int threads = 1;
  TaskSeconds seconds;
  std::uint64_t peak_memory_bytes = 0;
  std::uint64_t memory_bytes = 0;         // told by the plan
  std::map<std::string, double> figures;  // "tops", "mesh_points", "cells"
  std::map<std::string, KeptFile> files;
};

struct TaskFailure {
  std::string plan, task, cause;
  int tries = 0;
  std::string host;
};

std::string Report_Text(const TaskReport& report);
std::string Failure_Text(const TaskFailure& failure);

/// Refused, naming the file, for another content.
TaskReport Parse_Report(std::string_view text, const std::string& name);
TaskFailure Parse_Failure(std::string_view text, const std::string& name);

}  // namespace sylvomex
