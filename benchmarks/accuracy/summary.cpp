// SPDX-License-Identifier: MIT
#include "summary.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "demo/write/exact_text.h"

namespace sylvomex::demo {
namespace {

constexpr std::size_t kNameWidth = 18;
constexpr std::size_t kColumnWidth = 10;

using Figure = std::optional<double>;

struct Column {
  const char* name;
  int decimals;       // of one run's figure
  int mean_decimals;  // of several runs
  Figure (*figure)(const CaseRun& run);
};

Figure Percent(std::size_t part, std::size_t whole) {
  if (whole == 0) return std::nullopt;
  return 100 * static_cast<double>(part) / static_cast<double>(whole);
}

Figure Count(std::size_t number) { return static_cast<double>(number); }

Figure Error(double metres, const CaseRun& run) {
  return run.dominant.found > 0 ? Figure(metres) : std::nullopt;
}

constexpr Column kColumns[] = {
    {"trees", 0, 1, [](const CaseRun& r) { return Count(r.dominant.visible); }},
    {"found", 0, 1, [](const CaseRun& r) { return Count(r.dominant.found); }},
    {"missed", 0, 1, [](const CaseRun& r) { return Count(r.dominant.visible - r.dominant.found); }},
    {"false", 0, 1, [](const CaseRun& r) { return Count(r.dominant.wrong); }},
    {"det %", 0, 0, [](const CaseRun& r) { return Percent(r.dominant.found, r.dominant.visible); }},
    {"com %", 0, 0,
     [](const CaseRun& r) { return Percent(r.dominant.wrong, r.dominant.clusters); }},
    {"XY m", 2, 2, [](const CaseRun& r) { return Error(r.dominant.rmse_xy, r); }},
    {"Z m", 2, 2, [](const CaseRun& r) { return Error(r.dominant.rmse_z, r); }},
    {"others", 0, 1, [](const CaseRun& r) { return Count(r.others.visible); }},
    {"found", 0, 1, [](const CaseRun& r) { return Count(r.others.found); }},
};

std::string Right(const std::string& text, std::size_t width) {
  return std::string(width > text.size() ? width - text.size() : 0, ' ') + text;
}

std::string Left(std::string text, std::size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

std::vector<double> Values(const Column& column, const std::vector<CaseRun>& runs) {
  std::vector<double> values;
  for (const CaseRun& run : runs) {
    if (!run.done) continue;
    if (const Figure figure = column.figure(run)) values.push_back(*figure);
  }
  return values;
}

std::string Mean_Text(const Column& column, const std::vector<double>& values) {
  if (values.empty()) return "-";
  const double sum = std::accumulate(values.begin(), values.end(), 0.0);
  return Fixed_Decimals(sum / static_cast<double>(values.size()),
                        values.size() == 1 ? column.decimals : column.mean_decimals);
}

std::string Spread_Text(const Column& column, const std::vector<double>& values) {
  if (values.size() < 2) return "";
  const auto [least, greatest] = std::ranges::minmax(values);
  return Fixed_Decimals(least, column.decimals) + "-" + Fixed_Decimals(greatest, column.decimals);
}

}  // namespace

std::string Heading_Row() {
  std::string row = Left("case", kNameWidth) + Right("runs", 4);
  for (const Column& column : kColumns) row += Right(column.name, kColumnWidth);
  return row + "\n";
}

std::string Case_Row(const std::string& name, const std::vector<CaseRun>& runs) {
  const auto done = std::ranges::count_if(runs, &CaseRun::done);
  std::string mean = Left(name, kNameWidth) + Right(std::to_string(done), 4);
  std::string spread = Left("", kNameWidth + 4);
  for (const Column& column : kColumns) {
    const std::vector<double> values = Values(column, runs);
    mean += Right(Mean_Text(column, values), kColumnWidth);
    spread += Right(Spread_Text(column, values), kColumnWidth);
  }
  return done > 1 ? mean + "\n" + spread + "\n" : mean + "\n";
}

std::string Legend() {
  return "trees   of 17 m and more in the plot (r = 23 m), their tops on 4 photographs and more\n"
         "found   of these, by a cluster within 1.5 m in plan, one to one, nearest pairs first\n"
         "false   clusters in the plot that belong to no tree of any height\n"
         "det %   found / trees; com % false / clusters in the plot\n"
         "XY, Z   root mean square differences of the found ones from the true tops, metres\n"
         "others  trees in the plot that are lower or shown by fewer photographs, and their "
         "number found\n"
         "The model tree, whose crown is the template, is one of the trees.\n"
         "Means over the seeds of a case; below them, of several seeds, least-greatest.\n";
}

}  // namespace sylvomex::demo
