// SPDX-License-Identifier: MIT
#include "commands/panes/centring.h"

#include "panes/pane_centring.h"
#include "platform/number_text.h"
#include "services/hourglass.h"
#include "services/status_line.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kStartError = "An error occurred in sub Error_in_center_to_sub_c_Click() ";

// Runs the steps of a centring command; a failure is reported with that command's message.
template <class Steps>
void Guarded(Workspace& w, const char* message, Steps&& steps) {
  try {
    steps();
  } catch (const RunTimeError&) {
    w.screen->Message_Box(message);
  }
}

std::int16_t Ask_Int16(Workspace& w, const char* prompt) {
  return Parse_Int16(w.screen->Input_Box(prompt).value_or(""));
}

}  // namespace

void Center_to_xyz_click(Workspace& w) {
  Guarded(w, "An error occurred in sub Center_to_xyz_Click() ", [&w] {
    for (int k = 0; k < w.ImageCount; ++k) w.ImageKinds(k) = 1;
    w.CenterTarget = w.Solution3D;
    const HourglassGuard hourglass(w);
    w.screen->Service_Events();
    for (int k = 0; k < w.ImageCount; ++k) Center_One_On_Target(w, k);
    Show_Status(w, "Images centered to given XYZ");
  });
}

void Center_to_pan_center_click(Workspace& w) {
  Guarded(w, "An error occurred in sub Center_to_pan_center_Click() ", [&w] {
    w.CenterTarget = w.PanCenter;
    for (int k = 0; k < w.ImageCount; ++k) Center_One_On_Pan_Center(w, k);
  });
}

void Center_To_Sub_c_click(Workspace& w) {
  Guarded(w, kStartError, [&w] {
    const HourglassGuard hourglass(w);
    for (int k = 0; k < w.ImageCount; ++k) {
      const ImageRecord& record = w.ImageBlock(k);
      Center_One_On_Raw_Position(w, k, {record.StartCol, record.StartRow});
    }
  });
}

void Center_To_Q(Workspace& w) {
  Guarded(w, kStartError, [&w] {
    const HourglassGuard hourglass(w);
    const int raw_col = Ask_Int16(w, "Give Col");
    const int raw_row = Ask_Int16(w, "Give Row");
    for (int k = 0; k < w.ImageCount; ++k) Center_One_On_Raw_Position(w, k, {raw_col, raw_row});
  });
}

void Center_On_Solution_Or_Start(Workspace& w) {
  if (w.SolutionValid) {
    Center_to_xyz_click(w);
  } else {
    Center_To_Sub_c_click(w);
  }
}

}  // namespace sylvomex
