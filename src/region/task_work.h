// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "region/plan_record.h"
#include "region/task_report.h"

namespace sylvomex {

/// What a task reports of itself beside its files; of its seconds those of reading and computing.
struct TaskYield {
  TaskSeconds seconds;
  std::map<std::string, double> figures;
};

/// Searches the tree tops of a plot; writes "tops.csv" (number, X, Y, Z, score, members; world
/// coordinates; score: mean of the members' scores, 1 no correlation, 2 the highest) and "log.txt".
///
/// threads: 1 for the calling thread alone, 0 for all; the files are the same. RunTimeErrors of the
/// search and of the files; FailedOnTheWay on a full disk.
TaskYield Run_Tree_Tops(const RegionPlan& plan, const RegionTask& task,
                        const std::filesystem::path& folder, int threads);

/// Writes "tile.tif", a tile of the orthoimage, and "log.txt". Otherwise as above.
TaskYield Run_Ortho_Tile(const RegionPlan& plan, const RegionTask& task,
                         const std::filesystem::path& folder, int threads);

}  // namespace sylvomex
