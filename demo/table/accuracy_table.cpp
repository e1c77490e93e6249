// SPDX-License-Identifier: MIT
#include "demo/table/accuracy_table.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "demo/table/truth_file.h"
#include "demo/write/exact_text.h"
#include "platform/number_text.h"

namespace sylvomex::demo {
namespace {

/// The rest of a line after a prefix; std::nullopt when it does not start with that prefix.
std::optional<std::string> After(const std::string& line, const std::string& beginning) {
  if (line.compare(0, beginning.size(), beginning) != 0) return std::nullopt;
  return line.substr(beginning.size());
}

/// The id of the tree that a line introduces; 0 for another line.
int Tree_Started(std::string line) {
  std::erase(line, '"');
  const auto id = After(line, "say tree ");
  return id ? Parse_Int32(*id) : 0;
}

Point3D Parse_Point(const std::string& text) {
  std::istringstream stream(text);
  std::string X, Y, Z;
  stream >> X >> Y >> Z;
  return {Parse_Double(X), Parse_Double(Y), Parse_Double(Z)};
}

double Parse_Rmse(const std::string& text) {
  std::istringstream stream(text);
  std::string value;
  stream >> value;
  return Parse_Double(value);
}

AxisErrors Axis_Errors(const std::vector<double>& errors) {
  double sum = 0, squares = 0;
  for (const double error : errors) {
    sum += error;
    squares += error * error;
  }
  const auto n = static_cast<double>(errors.size());
  return {sum / n, std::sqrt(squares / n)};
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t half = values.size() / 2;
  return values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2;
}

std::string Axis_Line(const char* name, const AxisErrors& errors) {
  return std::string(name) + "  mean " + Fixed_Decimals(errors.mean, 3) + " m   RMS " +
         Fixed_Decimals(errors.rms, 3) + " m\n";
}

}  // namespace

std::map<int, Point3D> Read_True_Tops(const FilePath& file) {
  const TruthFile truth = Read_Truth_File(file);
  const std::size_t id = truth.Column("id"), X = truth.Column("X"), Y = truth.Column("Y"),
                    Z = truth.Column("top_Z");
  std::map<int, Point3D> tops;
  for (const std::vector<std::string>& fields : truth.lines) {
    tops[Parse_Int32(fields[id])] = {Parse_Double(fields[X]), Parse_Double(fields[Y]),
                                     Parse_Double(fields[Z])};
  }
  return tops;
}

std::vector<MeasuredTop> Read_Measured_Tops(const std::string& transcript) {
  std::vector<MeasuredTop> tops;
  MeasuredTop top;
  bool has_point = false;
  std::istringstream lines(transcript);
  for (std::string line; std::getline(lines, line);) {
    if (const int tree = Tree_Started(line); tree > 0) {
      top = {tree, {}, 0};
      has_point = false;
    } else if (const auto solution = After(line, "Solution3D = ")) {
      top.point = Parse_Point(*solution);
      has_point = true;
    } else if (const auto rmse = After(line, "Label10 = RMSE: ");
               rmse && top.tree > 0 && has_point) {
      top.rmse_um = Parse_Rmse(*rmse);
      tops.push_back(top);
      top.tree = 0;
    }
  }
  return tops;
}

std::optional<AccuracyTable> Compare_With_Truth(const std::vector<MeasuredTop>& measured,
                                                const std::map<int, Point3D>& truth) {
  std::vector<double> dX, dY, dZ, rmse;
  for (const MeasuredTop& top : measured) {
    const auto found = truth.find(top.tree);
    if (found == truth.end()) continue;
    dX.push_back(top.point.X - found->second.X);
    dY.push_back(top.point.Y - found->second.Y);
    dZ.push_back(top.point.Z - found->second.Z);
    rmse.push_back(top.rmse_um);
  }
  if (dX.empty()) return std::nullopt;
  return AccuracyTable{dX.size(), Axis_Errors(dX), Axis_Errors(dY), Axis_Errors(dZ), Median(rmse)};
}

std::string Table_Text(const AccuracyTable& table, std::optional<double> seconds) {
  std::string text = "trees  " + std::to_string(table.n) + "\n" + Axis_Line("dX", table.x) +
                     Axis_Line("dY", table.y) + Axis_Line("dZ", table.z) + "median RMSE " +
                     Fixed_Decimals(table.median_rmse_um, 1) + " um\n";
  if (seconds) text += "seconds " + Fixed_Decimals(*seconds, 1) + "\n";
  return text;
}

}  // namespace sylvomex::demo
