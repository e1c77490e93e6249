// SPDX-License-Identifier: MIT
// Design of the options window.
#include "state/form2.h"

#include "state/control_rows.h"

namespace sylvomex {
namespace {

using design::Row;

using F = Form2State;

constexpr ControlRow kControls[] = {
    Row<&F::Label1>("Label1", "Z-depth of epipolar line , m", {12, 14, 290, 18}),
    Row<&F::Label2>("Label2", "Length of (N,S,E,W,U,D) -step in meters", {12, 40, 290, 18}),
    Row<&F::Label3>("Label3", "RMSE Beep One Level [um]", {12, 66, 290, 18}),
    Row<&F::Label4>("Label4", "RMSE Beep Two Level [um]", {12, 92, 290, 18}),
    Row<&F::Label5>("Label5", "RMSE Beep One Frequency, Hz", {12, 118, 290, 18}),
    Row<&F::Label6>("Label6", "RMSE Beep Two Frequency, Hz", {12, 144, 290, 18}),
    Row<&F::Label7>("Label7", "RMSE Beep One Duration [ms]", {12, 170, 290, 18}),
    Row<&F::Label8>("Label8", "RMSE Beep Two Duration [ms]", {12, 196, 290, 18}),
    Row<&F::Label9>("Label9", "dX below which iteration stops, in meters", {12, 222, 290, 18}),
    Row<&F::Label10>("Label10", "dY below which iteration stops, in meters", {12, 248, 290, 18}),
    Row<&F::Label11>("Label11", "dZ below which iteration stops, in meters", {12, 274, 290, 18}),
    Row<&F::Label12>("Label12", "OutPut Filename for PointData", {12, 300, 290, 18}),
    Row<&F::Label13>("Label13", "Pan Center, X", {12, 352, 290, 18}),
    Row<&F::Label14>("Label14", "Pan Center, Y", {12, 378, 290, 18}),
    Row<&F::Label15>("Label15", "Pan Center, Z", {12, 404, 290, 18}),
    Row<&F::Label16>("Label16", "Plot Trees with Height >", {12, 326, 290, 18}),
    Row<&F::Text1>("Text1", "", {310, 12, 140, 22}),
    Row<&F::Text2>("Text2", "", {310, 38, 140, 22}),
    Row<&F::Text3>("Text3", "", {310, 64, 140, 22}),
    Row<&F::Text4>("Text4", "", {310, 90, 140, 22}),
    Row<&F::Text5>("Text5", "", {310, 116, 140, 22}),
    Row<&F::Text6>("Text6", "", {310, 142, 140, 22}),
    Row<&F::Text7>("Text7", "", {310, 168, 140, 22}),
    Row<&F::Text8>("Text8", "", {310, 194, 140, 22}),
    Row<&F::Text9>("Text9", "", {310, 220, 140, 22}),
    Row<&F::Text10>("Text10", "", {310, 246, 140, 22}),
    Row<&F::Text11>("Text11", "", {310, 272, 140, 22}),
    Row<&F::Text12>("Text12", "", {310, 298, 318, 22}),
    Row<&F::Text13>("Text13", "", {310, 324, 140, 22}),
    Row<&F::Text14>("Text14", "", {310, 350, 140, 22}),
    Row<&F::Text15>("Text15", "", {310, 376, 140, 22}),
    Row<&F::Text16>("Text16", "", {310, 402, 140, 22}),
    Row<&F::Check1>("Check1", "Include Tree Numbers in Overlay Plots", {12, 434, 420, 20}),
    Row<&F::Check2>("Check2", "After saving a measurement plot all measured points",
                    {12, 458, 420, 20}),
    Row<&F::Check3>("Check3", "Draw epipolar line automatically after pointing a target",
                    {12, 482, 420, 20}),
    Row<&F::Apply_Options_Changes>("Apply_Options_Changes", "Apply changes", {470, 476, 158, 28}),
};

}  // namespace

constinit const WindowDesign kForm2Design{"Options Window", 640, 540, kControls};

Form2State::Form2State() { Apply_Design(*this, kForm2Design); }

}  // namespace sylvomex
