// SPDX-License-Identifier: MIT
// Design of the distance record window.
#include "state/form7.h"

#include "state/control_rows.h"

namespace sylvomex {
namespace {

using design::Row;

using F = Form7State;

constexpr ControlItem kHeading[] = {
    {"Index", {10, 74, 38, 32}},
    {"ImageCode", {53, 74, 72, 32}},
    {"x (0)", {130, 74, 112, 32}},
    {"x (1)", {247, 74, 112, 32}},
    {"y (0)", {364, 74, 112, 32}},
    {"y (1)", {481, 74, 112, 32}},
    {"Scale at Z", {598, 74, 58, 32}},
    {"OBSERVED DIST.", {661, 74, 78, 32}},
    {"OBS Coding", {744, 74, 130, 32}},
    {"Sun Elevation", {879, 74, 66, 32}},
    {"Sun Azimuth", {950, 74, 66, 32}},
    {"Obj-Cam Ray Azimuth", {1021, 74, 80, 32}},
    {"Azimuth difference", {1106, 74, 72, 32}},
    {"Off-Nadir Angle", {1183, 74, 70, 32}},
};

constexpr ControlRow kControls[] = {
    Row<&F::Label1>("Label1", "Id (Tree No)", {12, 14, 120, 18}),
    Row<&F::Label2>("Label2", "Free Integer Field", {12, 42, 120, 18}),
    Row<&F::Label3>("Label3", "", {260, 14, 140, 18}),
    Row<&F::Label4>("Label4", "", {410, 14, 140, 18}),
    Row<&F::Label5>("Label5", "", {560, 14, 140, 18}),
    Row<&F::Text1>("Text1", "", {140, 12, 90, 22}),
    Row<&F::Text2>("Text2", "", {140, 40, 90, 22}),
    Row<&F::Heading>("Heading", kHeading),
    Row<&F::IndexLabel>("IndexLabel", "", {10, 112, 38, 18}, {0, 26}),
    Row<&F::ImageCodeLabel>("ImageCodeLabel", "", {53, 112, 72, 18}, {0, 26}),
    Row<&F::X0Label>("X0Label", "", {130, 112, 112, 18}, {0, 26}),
    Row<&F::X1Label>("X1Label", "", {247, 112, 112, 18}, {0, 26}),
    Row<&F::Y0Label>("Y0Label", "", {364, 112, 112, 18}, {0, 26}),
    Row<&F::Y1Label>("Y1Label", "", {481, 112, 112, 18}, {0, 26}),
    Row<&F::ScaleLabel>("ScaleLabel", "", {598, 112, 58, 18}, {0, 26}),
    Row<&F::DistanceLabel>("DistanceLabel", "", {661, 112, 78, 18}, {0, 26}),
    Row<&F::Text3>("Text3", "", {744, 110, 130, 22}, {0, 26}),
    Row<&F::SunElevationLabel>("SunElevationLabel", "", {879, 112, 66, 18}, {0, 26}),
    Row<&F::SunAzimuthLabel>("SunAzimuthLabel", "", {950, 112, 66, 18}, {0, 26}),
    Row<&F::RayAzimuthLabel>("RayAzimuthLabel", "", {1021, 112, 80, 18}, {0, 26}),
    Row<&F::DifferenceLabel>("DifferenceLabel", "", {1106, 112, 72, 18}, {0, 26}),
    Row<&F::OffNadirLabel>("OffNadirLabel", "", {1183, 112, 70, 18}, {0, 26}),
    Row<&F::Command1>("Command1", "Save, Close and Reset (Ctrl-S)", {12, 356, 220, 30}),
    Row<&F::Command2>("Command2", "Reset All and Close (Ctrl-A)", {246, 356, 220, 30}),
    Row<&F::Command3>("Command3", "Return to Main Win (Ctrl-Z)", {480, 356, 220, 30}),
};

}  // namespace

constinit const WindowDesign kForm7Design{"XY-distances, Record to be saved", 1252, 400, kControls};

Form7State::Form7State() { Apply_Design(*this, kForm7Design); }

}  // namespace sylvomex
