// SPDX-License-Identifier: MIT
#include "commands/products/ortho_inputs.h"

#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {

void Say_Too_Wide(Workspace& w, const std::exception& failure) {
  Show_With_Cause(w, "An error occurred, too wide orthoimage?", failure);
}

std::optional<double> Ask_Number(Workspace& w, const NumberQuestion& question, BadAnswer bad) {
  const auto answer = w.screen->Input_Box(question.prompt, kOrthoTitle, question.preset);
  if (!answer) return std::nullopt;
  try {
    return Parse_Double(*answer);
  } catch (const RunTimeError& error) {
    if (bad == BadAnswer::EndsCommand) throw;
    Say_Too_Wide(w, error.At(std::string("the answer to ") + question.prompt));
    return question.value;
  }
}

std::optional<OrthoExtent> Ask_Extent(Workspace& w, BadAnswer bad) {
  struct Question {
    const char* prompt;
    double OrthoExtent::*value;
  };
  constexpr Question kQuestions[] = {
      {"X-value for origo (low left corner)?", &OrthoExtent::X0},
      {"Y-value for origo (low left corner)?", &OrthoExtent::Y0},
      {"X-extent (how wide image) (m)?", &OrthoExtent::extent_x},
      {"Y-extent (how high image) (m)?", &OrthoExtent::extent_y},
      {"Pixel size in orthoimage? (m)", &OrthoExtent::pixel},
  };
  OrthoExtent extent;
  for (const Question& question : kQuestions) {
    const auto answer = Ask_Number(w, {question.prompt, 0, ""}, bad);
    if (!answer) return std::nullopt;
    extent.*question.value = *answer;
  }
  return extent;
}

OrthoGrid Grid_Of(const Workspace& w, const OrthoExtent& extent) {
  return About(w, "columns and rows of the orthoimage", [&] {
    return Make_Ortho_Grid(extent.X0, extent.Y0, extent.extent_x, extent.extent_y, extent.pixel);
  });
}

void Show_Size(Workspace& w, const OrthoGrid& grid) {
  w.screen->Message_Box("Columns: " + Plain_Text(grid.columns) +
                        "  Rows: " + Plain_Text(grid.rows));
}

std::optional<FilePath> Ask_Result_Name(Workspace& w) {
  const std::string name =
      w.screen->Input_Box("Give filename for the raw-file", kOrthoTitle).value_or("");
  if (name.empty()) {
    Tell_Cause(w, "without a name nothing is written");
    return std::nullopt;
  }
  return FilePath{name, w.Drives.Locate(name).native};
}

void Say_Written(Workspace& w, const std::string& name) {
  w.screen->Message_Box(name + " written");
}

}  // namespace sylvomex
