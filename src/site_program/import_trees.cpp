// SPDX-License-Identifier: MIT
#include <algorithm>
#include <optional>

#include "interchange/csv_table.h"
#include "interchange/tree_import.h"
#include "site_program/subcommands.h"

namespace sylvomex {
namespace {

bool Is_Known(const std::string& lower_name) {
  const auto& names = Tree_Column_Names();
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& name) { return Lower(name) == lower_name; });
}

std::string Known_Names() {
  std::string text;
  for (const std::string& name : Tree_Column_Names()) text += (text.empty() ? "" : ", ") + name;
  return text;
}

/// Takes "NAME=COLUMN,..." apart; std::nullopt, said as a warning, when it is something else.
std::optional<TreeColumns> Columns_Of(const std::string& text, const SiteOutput& output) {
  TreeColumns columns;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(',', at), text.size());
    const std::string pair = text.substr(at, end - at);
    const std::size_t equals = pair.find('=');
    const std::string name = Lower(pair.substr(0, equals));
    if (equals == std::string::npos || equals + 1 == pair.size() || !Is_Known(name) ||
        !columns.emplace(name, pair.substr(equals + 1)).second) {
      output.Warn("--columns: \"" + pair + "\" is not NAME=COLUMN with another NAME out of " +
                  Known_Names());
      return std::nullopt;
    }
    at = end + 1;
  }
  return columns;
}

}  // namespace

int Run_Import_Trees(const TreesArguments& arguments, SiteOutput& output) {
  const std::optional<TreeColumns> columns = Columns_Of(arguments.columns, output);
  if (!columns) return kWrongCommandLine;
  ImportTransaction transaction(arguments.site);
  const TreeReport report = Import_Trees(transaction, arguments.file, *columns);
  for (const std::string& note : report.notes) output.Warn(note);
  output.Say(std::to_string(report.trees) + " trees in " + report.plot_file + " and " +
             report.vector_file);
  output.object["trees"] = report.trees;
  output.object["plot_file"] = report.plot_file;
  output.object["vector_file"] = report.vector_file;
  output.object["notes"] = report.notes;
  return kDone;
}

}  // namespace sylvomex
