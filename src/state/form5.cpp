// SPDX-License-Identifier: MIT
// The anaglyph viewer at design time.
#include "state/form5.h"

#include "state/control_rows.h"

namespace sylvomex {
namespace {

using design::Row;

using F = Form5State;

constexpr ControlRow kControls[] = {
    Row<&F::Label1>("Label1", "", {23, 4, 600, 18}),
    Row<&F::Picture1>("Picture1", "", {23, 26, 1004, 804}),
};

}  // namespace

constinit const WindowDesign kForm5Design{
    "SYLVOMEX Anaglyph stereo window", 1050, 830, kControls, 480, 360};

Form5State::Form5State() {
  Apply_Design(*this, kForm5Design);
  ActiveControl = "Picture1";  // no other control takes keys
}

}  // namespace sylvomex
