// SPDX-License-Identifier: MIT
// The anaglyph viewer in the table of windows.
#include "commands/stereo/stereo_pointer.h"
#include "commands/stereo/stereo_sequence.h"
#include "commands/stereo/stereo_vectors.h"
#include "commands/stereo/stereo_window.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

constexpr MenuRow Item(int level, const char* name, const char* caption,
                       void (*handler)(Workspace&)) {
  return {level, name, caption, 0, 0, false, MenuRole::Command, handler};
}

constexpr MenuRow kMenu[] = {
    {0, "File", "File"},
    Item(1, "Open_Pair", "Open a stereo pair file", Open_Pair),
    Item(1, "Save_point_File", "Save point file (id, X, Y, Z)", Save_point_File),
    Item(1, "Exit_stereo", "Exit Anaglyph stereo", Exit_stereo),
    {0, "Model", "Model"},
    Item(1, "Clear_Anaglyph_Window", "Clear anaglyph window", Clear_Anaglyph_Window),
    {1, "set_a", "", 0, 0, false, MenuRole::Separator},
    Item(1, "Retrieve", "Retrieve 3D-sol from Multiple Image Matching", Retrieve),
    {1, "Plot_3D_Vectors", "Plot 3D vectors"},
    Item(2, "Plot_Id_XYZ_Point_Data", "Plot point data", Plot_Id_XYZ_Point_Data),
    Item(2, "Plot_Floating_Text", "Plot floating text", Plot_Floating_Text),
    Item(2, "Plot_3D_line_segments", "Plot 3D line segments with 0,0,0 markes",
         Plot_Stereo_Line_Segments),
    {0, "Make_AVI_Sequence", "Make AVI-sequence"},
    Item(1, "Import_And_Export_BMPs", "Import point file and export BMPs", Import_And_Export_BMPs),
    Item(0, "About", "About", Form5_About),
};

void Pointed(Workspace& w, const ControlEvent& event) {
  Form5_Picture1_MouseMove(w, event.x, event.y);
}

void Key(Workspace& w, const ControlEvent& event) { Form5_Picture1_KeyDown(w, event.key_code); }

constexpr HandlerRow kHandlers[] = {
    {kWindowItself, Happening::Resize, Run<Form5_Resize>},
    {"Picture1", Happening::MouseMove, Pointed},
    {"Picture1", Happening::KeyDown, Key},
    {"Picture1", Happening::DblClick, Run<Form5_Picture1_DblClick>},
};

}  // namespace

WindowRow Form5_Window() {
  return {"Form5", &kForm5Design, Record<&Workspace::Form5>, kMenu, kHandlers, "Exit_stereo"};
}

}  // namespace sylvomex
