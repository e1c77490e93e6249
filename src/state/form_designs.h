// SPDX-License-Identifier: MIT
// Helpers that lay out a window's controls at design time.
#pragma once

#include <string>

#include "state/control.h"

namespace sylvomex::design {

inline void Place(Control& control, double left, double top, double width, double height) {
  control.Left = left;
  control.Top = top;
  control.Width = width;
  control.Height = height;
}

inline void Place(Label& label, const char* caption, double left, double top, double width,
                  double height) {
  label.Caption = caption;
  Place(static_cast<Control&>(label), left, top, width, height);
}

inline void Place(CheckBox& box, const char* caption, double left, double top, double width,
                  double height) {
  box.Caption = caption;
  Place(static_cast<Control&>(box), left, top, width, height);
}

inline void Place(Button& button, const char* caption, double left, double top, double width,
                  double height) {
  button.Caption = caption;
  Place(static_cast<Control&>(button), left, top, width, height);
}

}  // namespace sylvomex::design
