// SPDX-License-Identifier: MIT
// A window outside the table of windows, with a picture, a text box, a check box, options, a button
// and a menu.
#pragma once

#include <string>

#include "state/control_rows.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {

struct SampleForm : Form {
  SampleForm();

  Picture Picture1;
  Table<Picture, 0, 1> Picture2;
  TextBox Text1;
  CheckBox Check1;
  Table<OptionButton, 0, 1> Option1;
  Button Command1;
};

namespace sample {

using design::Row;

inline std::string told;  // calls of the handlers, one line each

inline std::string Number(double value) { return std::to_string(static_cast<int>(value)); }

template <int Handler>
void Tell(Workspace&, const ControlEvent& event) {
  constexpr const char* kNames[] = {"press", "double", "move",  "key",   "resize",
                                    "click", "enter",  "again", "boxkey"};
  told += std::string(kNames[Handler]) + " " + Number(event.index) + " " + Number(event.button) +
          " " + Number(event.shift) + " " + Number(event.key_code) + " " + Number(event.x) + " " +
          Number(event.y) + "\n";
}

inline void Fail(Workspace&) { throw RunTimeError(Failure::DivisionByZero, "the sample"); }
inline void Say(Workspace&) { told += "menu\n"; }

inline constexpr ControlItem kOption1[] = {{"Pan", {210, 120, 80, 20}},
                                           {"Zoom", {210, 150, 80, 20}}};

inline constexpr ControlRow kControls[] = {
    Row<&SampleForm::Picture1>("Picture1", "", {10, 10, 200, 100}),
    Row<&SampleForm::Picture2>("Picture2", "", {10, 120, 90, 60}, {100, 0}),
    Row<&SampleForm::Text1>("Text1", "start", {10, 190, 100, 22}),
    Row<&SampleForm::Check1>("Check1", "Tick", {120, 190, 80, 20}),
    Row<&SampleForm::Option1>("Option1", kOption1),
    Row<&SampleForm::Command1>("Command1", "Press", {10, 220, 80, 24}),
};

inline constexpr WindowDesign kDesign{"A sample", 320, 260, kControls, 200, 160};

inline constexpr MenuRow kMenu[] = {
    {0, "Window", "Window"},
    {1, "Say_It", "Say it", 'G', 2, false, MenuRole::Command, Say},
    {1, "set_a", "-", 0, 0, false, MenuRole::Separator},
    {1, "Greyed_Item", "Greyed", 'H', 2, true, MenuRole::Command, Say},
};

inline constexpr HandlerRow kHandlers[] = {
    {kWindowItself, Happening::MouseDown, Tell<0>}, {kWindowItself, Happening::MouseMove, Tell<2>},
    {kWindowItself, Happening::KeyDown, Tell<3>},   {kWindowItself, Happening::Resize, Tell<4>},
    {"Picture1", Happening::DblClick, Tell<1>},     {"Picture1", Happening::MouseMove, Tell<2>},
    {"Picture2", Happening::MouseDown, Tell<0>},    {"Text1", Happening::KeyPress, Tell<6>},
    {"Text1", Happening::KeyDown, Tell<8>},         {"Check1", Happening::Click, Tell<5>},
    {"Option1", Happening::Click, Tell<5>},         {"Command1", Happening::Click, Run<Fail>},
};

inline SampleForm* record = nullptr;

inline Form& Record_Of(Workspace&) { return *record; }

inline constexpr WindowRow kWindow{"Form99", &kDesign, Record_Of, kMenu, kHandlers, ""};

}  // namespace sample

inline SampleForm::SampleForm() {
  Apply_Design(*this, sample::kDesign);
  sample::record = this;
  sample::told.clear();
}

}  // namespace sylvomex
