// SPDX-License-Identifier: MIT
// Design of the evaluation window.
#include "state/form6.h"

#include "state/control_rows.h"

namespace sylvomex {
namespace {

using design::Row;

using F = Form6State;

constexpr double kWidth = 422, kHeight = 402, kGap = 3, kFirstTop = 96;

constexpr ControlPlace Pane(int column, int row) {
  return {kGap + column * (kWidth + kGap), kFirstTop + row * (kHeight + kGap), kWidth, kHeight};
}

constexpr ControlItem kPanes[] = {{"", Pane(0, 0)}, {"", Pane(1, 0)}, {"", Pane(2, 0)},
                                  {"", Pane(0, 1)}, {"", Pane(1, 1)}, {"", Pane(2, 1)}};

constexpr ControlRow kControls[] = {
    Row<&F::Show_Results>("Show_Results", "Show Results", {3, 12, 150, 34}),
    Row<&F::Label1>("Label1", "No reference trees are loaded", {173, 10, 1080, 20}),
    Row<&F::Label2>("Label2", "", {173, 34, 1080, 20}),
    Row<&F::Label3>("Label3",
                    "M: a reference tree with a cluster   O: a reference tree without one   "
                    "C: a cluster without a reference tree",
                    {173, 58, 1080, 20}),
    Row<&F::Label4>("Label4",
                    "Z error e: top of the tree less its cluster.   DEM error: raster elevation "
                    "less the ground that the field crew measured.",
                    {3, 906, 1080, 18}),
    Row<&F::Picture1>("Picture1", kPanes),
};

}  // namespace

constinit const WindowDesign kForm6Design{"Matching results", 1278, 929, kControls, 640, 560};

Form6State::Form6State() { Apply_Design(*this, kForm6Design); }

}  // namespace sylvomex
