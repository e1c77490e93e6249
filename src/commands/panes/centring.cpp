// SPDX-License-Identifier: MIT
#include "commands/panes/centring.h"

#include "panes/pane_centring.h"
#include "platform/number_text.h"
#include "platform/sound_reads.h"
#include "platform/work_meter.h"
#include "services/hourglass.h"
#include "services/status_line.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kStartError = "An error occurred in sub Error_in_center_to_sub_c_Click() ";

// Runs the steps of a centring command; a failure is reported with that command's message.
template <class Steps>
void Guarded(Workspace& w, const char* message, Steps&& steps) {
  try {
    steps();
  } catch (const RunTimeError& error) {
    Require_Sound_Reads();
    Show_With_Cause(w, message, error);
  }
}

// Runs centre(k) for every image; an error names the image.
template <class Centre>
void For_Each_Image(Workspace& w, Centre&& centre) {
  WorkMeter meter(w.ImageCount);
  for (int k = 0; k < w.ImageCount; ++k) {
    About(w, Name_Of_Image(w, k), [&] { centre(k); });
    meter.Task();
  }
}

std::int16_t Ask_Int16(Workspace& w, const char* prompt) {
  const std::string answer = w.screen->Input_Box(prompt).value_or("");
  return About(w, std::string("the answer to ") + prompt, [&] { return Parse_Int16(answer); });
}

}  // namespace

void Center_to_xyz_click(Workspace& w) {
  Guarded(w, "An error occurred in sub Center_to_xyz_Click() ", [&w] {
    for (int k = 0; k < w.ImageCount; ++k) w.ImageKinds(k) = 1;
    w.CenterTarget = w.Solution3D;
    const HourglassGuard hourglass(w);
    w.screen->Service_Events();
    For_Each_Image(w, [&w](int k) { Center_One_On_Target(w, k); });
    Show_Status(w, "Images centered to given XYZ");
  });
}

void Center_to_pan_center_click(Workspace& w) {
  Guarded(w, "An error occurred in sub Center_to_pan_center_Click() ", [&w] {
    w.CenterTarget = w.PanCenter;
    For_Each_Image(w, [&w](int k) { Center_One_On_Pan_Center(w, k); });
  });
}

void Center_To_Sub_c_click(Workspace& w) {
  Guarded(w, kStartError, [&w] {
    const HourglassGuard hourglass(w);
    For_Each_Image(w, [&w](int k) {
      const ImageRecord& record = w.ImageBlock(k);
      Center_One_On_Raw_Position(w, k, {record.StartCol, record.StartRow});
    });
  });
}

void Center_To_Q(Workspace& w) {
  Guarded(w, kStartError, [&w] {
    const HourglassGuard hourglass(w);
    const int raw_col = Ask_Int16(w, "Give Col");
    const int raw_row = Ask_Int16(w, "Give Row");
    For_Each_Image(w, [&](int k) { Center_One_On_Raw_Position(w, k, {raw_col, raw_row}); });
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
