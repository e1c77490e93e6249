// SPDX-License-Identifier: MIT
#include "demo/table/chain_timing.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

#include "demo/write/exact_text.h"

namespace sylvomex::demo {
namespace {

constexpr std::size_t kNameWidth = 28;
constexpr std::size_t kSecondsWidth = 9;
constexpr std::size_t kMemoryWidth = 26;

std::string Left(std::string text, std::size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

std::string Right(const std::string& text, std::size_t width) {
  return std::string(width > text.size() ? width - text.size() : 0, ' ') + text;
}

std::string Line(const std::string& name, const std::string& seconds, const std::string& memory) {
  return Left(name, kNameWidth) + Right(seconds, kSecondsWidth) + Right(memory, kMemoryWidth) +
         "\n";
}

}  // namespace

bool Is_Chain_Command(std::string_view name) {
  static constexpr std::array<std::string_view, 5> kCommands{
      "Capture_templates", "Compute_Correlation_Images", "Create_XYZ_Point_Set",
      "Compute_Back_Projections", "Find_clusters"};
  return std::ranges::find(kCommands, name) != kCommands.end();
}

std::optional<double> Peak_Memory_MB(const std::string& process_status) {
  std::istringstream lines(process_status);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string name;
    double kilobytes = 0;
    if (words >> name && name == "VmHWM:" && words >> kilobytes) return kilobytes / 1024;
  }
  return std::nullopt;
}

std::optional<double> Peak_Memory_Of_This_Process() {
  std::ostringstream status;
  status << std::ifstream("/proc/self/status").rdbuf();
  return Peak_Memory_MB(status.str());
}

std::string Table_Text(const std::vector<CommandRun>& runs) {
  std::string text = Line("command", "seconds", "peak memory so far, MB");
  double sum = 0;
  for (const CommandRun& run : runs) {
    sum += run.seconds;
    text += Line(run.command, Fixed_Decimals(run.seconds, 3),
                 run.peak_mb ? Fixed_Decimals(*run.peak_mb, 0) : "-");
  }
  return text + Left("sum", kNameWidth) + Right(Fixed_Decimals(sum, 3), kSecondsWidth) + "\n";
}

}  // namespace sylvomex::demo
