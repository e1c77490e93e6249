// SPDX-License-Identifier: MIT
#include "region/model_trees.h"

#include "interchange/csv_table.h"
#include "interchange/exported_file.h"
#include "interchange/failures.h"
#include "interchange/record_tables.h"

namespace sylvomex {
namespace {

std::vector<ModelTree> Trees_In_Table(const std::string& name, const Site& site) {
  const CsvTable table(Read_Text_File(name), name);
  std::vector<ModelTree> trees;
  for (const TextRow& row : table.Rows()) {
    const Point3D world{table.Number(row, "x"), table.Number(row, "y"), table.Number(row, "z")};
    trees.push_back({table.Text(row, "id"), site.Working(world)});
  }
  return trees;
}

std::vector<ModelTree> Trees_In_Observations(const std::filesystem::path& file, const Site& site) {
  std::vector<ModelTree> trees;
  for (const PointRow& row : Read_Observations({file.string(), file}, site).rows) {
    trees.push_back({std::to_string(trees.size() + 1), site.Working(row.at)});
  }
  return trees;
}

}  // namespace

std::vector<ModelTree> Read_Model_Trees(const std::filesystem::path& file, const Site& site) {
  if (!std::filesystem::is_regular_file(file)) {
    throw Refused(file.string() + ": there is no such file of model trees");
  }
  std::vector<ModelTree> trees = Lower_Ending(file) == ".csv" ? Trees_In_Table(file.string(), site)
                                                              : Trees_In_Observations(file, site);
  if (trees.empty()) throw Refused(file.string() + ": it holds no measured tree");
  return trees;
}

}  // namespace sylvomex
