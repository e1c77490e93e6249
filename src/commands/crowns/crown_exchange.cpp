// SPDX-License-Identifier: MIT
#include "commands/crowns/crown_exchange.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

struct ExchangeFiles {
  FilePath design, misclosure, weights, size, corrections;
};

// A file that cannot be written to its end is left empty: half a number would read as another one.
void Write_Lines(const FilePath& file, const std::string& lines) {
  try {
    Write_Whole_File(file, lines);
  } catch (const RunTimeError&) {
    std::error_code ignored;
    std::filesystem::resize_file(file.native, 0, ignored);
    throw;
  }
}

void Write_Problem(const ExchangeFiles& files, const CrownProblem& problem) {
  const std::size_t count = problem.rows.size();
  std::string design, misclosure, weights;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string row = std::to_string(i + 1) + " ";
    for (std::size_t j = 0; j < 3; ++j) {
      design += row + std::to_string(j + 1) + " " + Plain_Text(problem.rows[i][j]) + "\n";
    }
    misclosure += Plain_Text(problem.misclosure[i]) + "\n";
    weights += "1.00\n";
  }
  Write_Lines(files.design, design);
  Write_Lines(files.misclosure, misclosure);
  Write_Lines(files.weights, weights);
  Write_Lines(files.size, std::to_string(count) + " 3 " + std::to_string(3 * count) + "\n");
}

CrownRow Exchange_Corrections(const FilePath& file, const CrownRow& found) {
  std::string answer;
  for (const double correction : found) answer += Full_Text(correction) + "\n";
  Write_Lines(file, answer);
  ListReader list(file);
  CrownRow corrections{};
  for (double& correction : corrections) correction = list.Read_Double();
  return corrections;
}

}  // namespace

CrownSolver Solver_With_Files(const DriveMap& drives) {
  const ExchangeFiles files{
      drives.Locate("c:\\data\\A_txt.txt"), drives.Locate("c:\\data\\L_txt.txt"),
      drives.Locate("c:\\data\\weights.txt"), drives.Locate("c:\\Data\\matlab.txt"),
      drives.Locate("c:\\data\\corr_vectN.txt")};
  return [files](const CrownProblem& problem) -> std::optional<CrownRow> {
    Write_Problem(files, problem);
    const std::optional<CrownRow> found = MYFUNC_MATLABCALLNOMSGS(problem);
    if (!found) return std::nullopt;
    return Exchange_Corrections(files.corrections, *found);
  };
}

}  // namespace sylvomex
