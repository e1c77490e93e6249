// SPDX-License-Identifier: MIT
#include "region/region_merge.h"

#include <cpl_conv.h>

#include <algorithm>

#include "interchange/checksum.h"
#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "interchange/point_export.h"
#include "platform/replacing_file.h"
#include "region/seams.h"
#include "region/unique_folder.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

void Require_All_Done(const RegionSurvey& survey) {
  if (survey.Missing() == 0) return;
  std::string first;
  for (const TaskStatus& status : survey.tasks) {
    if (status.done || !first.empty()) continue;
    first = status.task->id + (status.failed ? ": " + status.failed->cause : "");
  }
  throw Refused(std::to_string(survey.Missing()) + " of " + std::to_string(survey.tasks.size()) +
                " tasks are not done, the first is " + first + " (--partial merges what there is)");
}

/// A result file, checked against its report.
fs::path Checked_File(const TaskStore& store, const TaskReport& report, const std::string& name) {
  fs::path file = store.Folder_Of(report.task) / name;
  const auto kept = report.files.find(name);
  if (kept != report.files.end() && fs::exists(file) &&
      File_Checksum(file) == kept->second.checksum) {
    return file;
  }
  throw Refused(file.string() + ": it is not as it was written; remove the folder and run task " +
                report.task + " again");
}

void Read_Tops(const RegionPlan& plan, const TaskStore& store, const TaskStatus& status,
               std::size_t task, std::vector<FoundTop>& tops) {
  const std::string file = Checked_File(store, *status.done, "tops.csv").string();
  const CsvTable table(Read_Text_File(file), file);
  const OwnCell& cell = status.task->plot.cell;
  for (const TextRow& row : table.Rows()) {
    FoundTop top;
    top.at = {table.Number(row, "X") - plan.shift.X, table.Number(row, "Y") - plan.shift.Y,
              table.Number(row, "Z")};
    top.score = table.Number(row, "score");
    top.members = static_cast<int>(table.Number(row, "members"));
    top.number = static_cast<int>(table.Number(row, "number"));
    top.task = task;
    top.is_own = Lies_In(cell, top.at.X, top.at.Y);
    if (top.is_own || Lies_Near(cell, top.at.X, top.at.Y, plan.numbers.XYt)) tops.push_back(top);
  }
}

PointTable Table_Of(const std::vector<FoundTop>& trees, const RegionPlan& plan) {
  PointTable table;
  table.columns = {{"plot", ColumnKind::Text},       {"number", ColumnKind::Integer},
                   {"X", ColumnKind::Real},          {"Y", ColumnKind::Real},
                   {"Z", ColumnKind::Real},          {"score", ColumnKind::Real},
                   {"members", ColumnKind::Integer}, {"model_tree", ColumnKind::Text}};
  for (const FoundTop& tree : trees) {
    const PlotTask& plot = plan.tasks[tree.task].plot;
    const Point3D world{tree.at.X + plan.shift.X, tree.at.Y + plan.shift.Y, tree.at.Z};
    table.rows.push_back({world,
                          {plot.plot, static_cast<double>(tree.number), world.X, world.Y, world.Z,
                           tree.score, static_cast<double>(tree.members), plot.model_tree}});
  }
  return table;
}

/// The files that the tasks of a kind have made; nothing where the plan has none of the kind.
bool Has_Kind(const RegionPlan& plan, TaskKind kind) {
  for (const RegionTask& task : plan.tasks) {
    if (task.kind == kind) return true;
  }
  return false;
}

std::vector<Point3D> Merge_Tops(const RegionPlan& plan, const TaskStore& store,
                                const RegionSurvey& survey, const fs::path& output,
                                RegionMerge& merge) {
  std::vector<FoundTop> tops;
  for (std::size_t i = 0; i < survey.tasks.size(); ++i) {
    const TaskStatus& status = survey.tasks[i];
    if (!status.done || status.task->kind != TaskKind::TreeTops) continue;
    Read_Tops(plan, store, status, i, tops);
  }
  merge.found = tops.size();
  const PointTable table = Table_Of(One_Top_A_Tree(std::move(tops), plan.numbers.XYt), plan);
  merge.trees = table.rows.size();
  // The time in the file is always the same, so that its bytes are.
  CPLSetConfigOption("OGR_CURRENT_DATE", "2000-01-01T00:00:00.000Z");
  Export_Points(table, plan.crs, "tree_tops", output / "tree_tops.gpkg");
  CPLSetConfigOption("OGR_CURRENT_DATE", nullptr);
  merge.files.emplace_back("tree_tops.gpkg");
  std::vector<Point3D> places;
  places.reserve(table.rows.size());
  for (const PointRow& row : table.rows) places.push_back(row.at);
  return places;
}

void Merge_Tiles(const RegionPlan& plan, const TaskStore& store, const RegionSurvey& survey,
                 const fs::path& output, int threads, RegionMerge& merge) {
  std::vector<fs::path> tiles;
  for (const TaskStatus& status : survey.tasks) {
    if (!status.done || status.task->kind != TaskKind::OrthoTile) continue;
    tiles.push_back(Checked_File(store, *status.done, "tile.tif"));
  }
  merge.tiles = tiles.size();
  if (tiles.empty()) return;
  Write_Mosaic(plan, tiles, output / "orthoimage.tif", threads);
  merge.files.emplace_back("orthoimage.tif");
}

void Write_Text(const fs::path& file, const std::string& text, RegionMerge& merge) {
  Replace_Whole_File({file.string(), file},
                     {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  merge.files.push_back(file.filename().string());
}

void Make_Folder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw Refused(folder.string() + ": " + error.message());
}

/// What an earlier merge made and this one has nothing of must not stand beside its results.
void Remove_Outdated(const fs::path& folder, const std::vector<std::string>& made) {
  for (const char* name : {"tree_tops.gpkg", "orthoimage.tif"}) {
    if (std::find(made.begin(), made.end(), name) != made.end()) continue;
    std::error_code error;
    fs::remove(folder / name, error);
    if (error) throw FailedOnTheWay((folder / name).string() + ": " + error.message());
  }
}

void Put_In_Place(const fs::path& file, const fs::path& folder) {
  std::error_code error;
  fs::rename(file, folder / file.filename(), error);
  if (error) throw FailedOnTheWay((folder / file.filename()).string() + ": " + error.message());
}

}  // namespace

RegionMerge Merge_Region(const RegionPlan& plan, const TaskStore& store, const fs::path& output,
                         bool is_partial, int threads) {
  const RegionSurvey survey = Survey_Region(plan, store);
  if (!is_partial) Require_All_Done(survey);
  Make_Folder(output);
  Remove_Left_Folders(output);
  const UniqueFolder folder(output, "merge");
  const fs::path& made = folder.Path();
  RegionMerge merge;
  merge.tasks = survey.tasks.size();
  merge.done = survey.done;
  std::vector<Point3D> tops;
  if (Has_Kind(plan, TaskKind::TreeTops)) tops = Merge_Tops(plan, store, survey, made, merge);
  if (Has_Kind(plan, TaskKind::OrthoTile)) Merge_Tiles(plan, store, survey, made, threads, merge);
  Write_Text(made / "report.txt", Survey_Text(plan, survey), merge);
  Write_Text(made / "report.html", Survey_Html(plan, survey, tops), merge);
  Write_Text(made / "map.svg", Survey_Map(plan, survey, tops), merge);
  Remove_Outdated(output, merge.files);
  for (const std::string& file : merge.files) Put_In_Place(made / file, output);
  return merge;
}

}  // namespace sylvomex
