// SPDX-License-Identifier: MIT
// Design of the about window.
#include "state/form4.h"

#include "state/control_rows.h"

namespace sylvomex {
namespace {

using design::Row;

using F = Form4State;

constexpr ControlRow kControls[] = {
    Row<&F::Label1>("Label1", "", {20, 20, 420, 110}),
    Row<&F::OK_Button>("OK_Button", "OK", {175, 150, 110, 30}),
};

}  // namespace

constinit const WindowDesign kForm4Design{"About window", 460, 200, kControls};

Form4State::Form4State() { Apply_Design(*this, kForm4Design); }

}  // namespace sylvomex
