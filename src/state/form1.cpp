// SPDX-License-Identifier: MIT
// Design of the main window: a strip of three rows above the panes; pane_layout places the panes.
#include "state/form1.h"

#include "state/control_rows.h"

namespace sylvomex {
namespace {

using design::Hidden;
using design::Row;

using F = Form1State;

// The two long dividers end at the window's edge.
constexpr ControlItem kLine[] = {
    {"", {0, 36, 8192, 1}}, {"", {0, 54, 8192, 1}},  {"", {447, 2, 1, 33}},  {"", {636, 2, 1, 33}},
    {"", {189, 38, 1, 15}}, {"", {246, 38, 1, 15}},  {"", {449, 38, 1, 15}}, {"", {617, 38, 1, 15}},
    {"", {834, 38, 1, 15}}, {"", {1038, 38, 1, 15}},
};

constexpr ControlItem kLabel7[] = {
    {"East, X", {4, 19, 50, 16}},
    {"North, Y", {146, 19, 52, 16}},
    {"Elevation, Z (H)", {290, 19, 92, 16}},
};

constexpr ControlItem kLabel4[] = {
    {"", {56, 19, 84, 16}},
    {"", {200, 19, 84, 16}},
    {"", {384, 19, 60, 16}},
};

constexpr ControlItem kParameterLabel[] = {
    {"r", {233, 38, 12, 15}},   {"Tw", {290, 38, 20, 15}},    {"Zd", {355, 38, 20, 15}},
    {"EZA", {420, 38, 28, 15}}, {"fHDOM", {493, 38, 46, 15}}, {"Hlow", {584, 38, 32, 15}},
    {"XYt", {661, 38, 26, 15}}, {"Rl", {732, 38, 16, 15}},    {"Mesh", {793, 38, 36, 15}},
};

constexpr ControlItem kCheck2[] = {
    {"1", {893, 38, 32, 15}},
    {"2", {927, 38, 32, 15}},
    {"3", {961, 38, 32, 15}},
    {"20", {995, 38, 38, 15}},
};

constexpr ControlRow kControls[] = {
    Row<&F::Line>("Line", kLine),
    Row<&F::ResultsCaption>("ResultsCaption", "Space intersection results:", {4, 2, 240, 16}),
    Row<&F::Label7>("Label7", kLabel7),
    Row<&F::Label4>("Label4", kLabel4),
    Row<&F::Label2>("Label2", "Counter", {452, 2, 180, 16}),
    Row<&F::Label10>("Label10", "Program status", {642, 1, 630, 17}),
    Row<&F::Label3>("Label3", "", {642, 19, 630, 16}),
    Row<&F::Check4>("Check4", "Esc", {4, 38, 46, 15}),
    Row<&F::Check3>("Check3", "Vector", {52, 38, 60, 15}),
    Row<&F::MeasureDistancesCheckBox>("MeasureDistancesCheckBox", "Dcrown", {116, 38, 66, 15}),
    Row<&F::Text4>("Text4", "23", {194, 38, 36, 15}),
    Row<&F::Text5>("Text5", "1.5", {251, 38, 36, 15}),
    Row<&F::Text6>("Text6", "3", {316, 38, 36, 15}),
    Row<&F::Text7>("Text7", "0", {381, 38, 36, 15}),
    Row<&F::Text8>("Text8", "1.15", {454, 38, 36, 15}),
    Row<&F::Text9>("Text9", "0.6", {545, 38, 36, 15}),
    Row<&F::Text2>("Text2", "1.5", {622, 38, 36, 15}),
    Row<&F::Text3>("Text3", "0.3", {693, 38, 36, 15}),
    Row<&F::Text10>("Text10", "0.5", {754, 37, 36, 17}),
    Row<&F::ParameterLabel>("ParameterLabel", kParameterLabel),
    Row<&F::SpeciesLabel>("SpeciesLabel", "Species", {841, 38, 48, 15}),
    Row<&F::Check2>("Check2", kCheck2),
    Row<&F::Check5>("Check5", "Multi-Size TM", {1045, 38, 106, 15}),
    Hidden(Row<&F::Picture1>("Picture1", "", {0, 0, 0, 0})),
    Hidden(Row<&F::Text1>("Text1", "", {0, 0, 60, 15})),
    Hidden(Row<&F::Text12>("Text12", "", {0, 0, 60, 15})),
    Hidden(Row<&F::Label1>("Label1", "", {0, 0, 180, 16})),
    Hidden(Row<&F::Check1>("Check1", "", {0, 0, 200, 15})),
};

}  // namespace

constinit const WindowDesign kForm1Design{
    "SYLVOMEX. 3D measurements with aerial photographs and lidar data.",
    1280,
    1024,
    kControls,
    1276,  // keeps the status line and the boxes of the strip visible
    480};

Form1State::Form1State() { Apply_Design(*this, kForm1Design); }

}  // namespace sylvomex
