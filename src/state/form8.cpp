// SPDX-License-Identifier: MIT
// The map window at design time.
#include "state/form8.h"

#include "state/control_rows.h"

namespace sylvomex {
namespace {

using design::Row;

using F = Form8State;

constexpr ControlRow kControls[] = {
    Row<&F::Option1>("Option1", "Pan", {6, 3, 60, 18}),
    Row<&F::Label2>("Label2", "Zoom factor", {76, 3, 100, 18}),
    Row<&F::Label1>("Label1", "", {186, 3, 420, 18}),
    Row<&F::Picture1>("Picture1", "", {3, 24, 796, 596}),
};

}  // namespace

constinit const WindowDesign kForm8Design{"SYLVOMEX MAP window", 800, 600, kControls, 320, 240};

Form8State::Form8State() { Apply_Design(*this, kForm8Design); }

}  // namespace sylvomex
