// SPDX-License-Identifier: MIT
// Design of the observation record window.
#include "state/form3.h"

#include "state/control_rows.h"

namespace sylvomex {
namespace {

using design::Row;

using F = Form3State;

constexpr ControlItem kCaption[] = {
    {"East, X", {12, 160, 130, 18}},          {"North, Y", {12, 182, 130, 18}},
    {"Elevation, Z (H)", {12, 204, 130, 18}}, {"Image ids", {12, 233, 80, 18}},
    {"Columns", {12, 271, 80, 18}},           {"Rows", {12, 309, 80, 18}},
};

constexpr ControlRow kControls[] = {
    Row<&F::Label1>("Label1", "Observation number", {12, 14, 200, 18}),
    Row<&F::Label2>("Label2", "TreeSpecies (0-255)", {12, 42, 200, 18}),
    Row<&F::Label3>("Label3", "Free Integer Field", {12, 70, 200, 18}),
    Row<&F::Label4>("Label4", "Free text field (30 characters)", {12, 98, 200, 18}),
    Row<&F::Label5>("Label5", "Output File", {12, 126, 200, 18}),
    Row<&F::Label6>("Label6", "", {330, 160, 200, 18}),
    Row<&F::Label7>("Label7", "", {150, 160, 160, 18}),
    Row<&F::Label8>("Label8", "", {150, 182, 160, 18}),
    Row<&F::Label9>("Label9", "", {150, 204, 160, 18}),
    Row<&F::Label10>("Label10", "", {330, 182, 200, 18}),
    Row<&F::Label11>("Label11", "", {330, 204, 200, 18}),
    Row<&F::Label12>("Label12", "", {96, 236, 556, 34}),
    Row<&F::Label13>("Label13", "", {96, 274, 556, 34}),
    Row<&F::Label14>("Label14", "", {96, 312, 556, 34}),
    Row<&F::Caption>("Caption", kCaption),
    Row<&F::Text1>("Text1", "", {220, 12, 100, 22}),
    Row<&F::Text2>("Text2", "", {220, 40, 100, 22}),
    Row<&F::Text3>("Text3", "", {220, 68, 100, 22}),
    Row<&F::Text4>("Text4", "", {220, 96, 260, 22}),
    Row<&F::Text5>("Text5", "", {220, 124, 428, 22}),
    Row<&F::Accept_And_Save_Button>("Accept_And_Save_Button", "Accept and Save",
                                    {220, 360, 150, 30}),
    Row<&F::Cancel_Button>("Cancel_Button", "Cancel", {384, 360, 110, 30}),
};

}  // namespace

constinit const WindowDesign kForm3Design{"Point Data structure to be saved as an observation", 660,
                                          404, kControls};

Form3State::Form3State() { Apply_Design(*this, kForm3Design); }

}  // namespace sylvomex
