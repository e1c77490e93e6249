// SPDX-License-Identifier: MIT
// Every possible operator input, as data. The desktop makes these records from widget
// events, scripts make them from their steps, and the recorder writes them: all of them reach
// the commands through event_dispatch.h.
#pragma once

#include <stdexcept>
#include <string>

namespace sylvomex {

inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 4;
inline constexpr int kShift = 1;
inline constexpr int kCtrl = 2;
inline constexpr int kAlt = 4;

struct OperatorEvent {
  enum class Kind {
    Menu,         // form, control: chooses a menu item
    Command,      // control: runs a command by name, greyed or not
    Set,          // form, control, text: types into a text box, or sets a check box to 0 or 1
    Press,        // form, control: presses a button, or Enter in a text box
    Click,        // form, control (empty: the form itself), button, shift, x, y: presses and
                  // releases the pointer
    DoubleClick,  // a double click on a picture that handles it, else two clicks
    Move,         // form, control (empty: the form itself), x, y
    Wheel,        // form, control, shift, x, y, notches: turns the wheel over a picture
    Pan,          // form, control, shift, x, y: drags a picture by x, y pane pixels
    Key,          // form, key_code, shift
    Resize,       // form, x by y client pixels
    Close,        // form: as the title bar's close button

    // Of the history:
    Undo,          // takes the last step of measuring back
    Redo,          // does the last undone step again
    TakeBackLine,  // moves the last saved line out of the observation file
  };
  Kind kind = Kind::Menu;
  std::string form = "Form1";
  std::string control;  // including its index: "Picture1(0)"
  std::string text;
  int button = kLeftButton;
  int shift = 0;     // bit mask: kShift, kCtrl, kAlt
  int key_code = 0;  // "A" to "Z", "0" to "9", key pad 0 to 9 = 96 to 105, F1 to F12 = 112 to 123
  double x = 0, y = 0;  // pane or window pixels
  int notches = 0;      // of the wheel, positive away from the operator
};

/// The event names something that does not exist.
class UnknownName : public std::invalid_argument {
 public:
  using std::invalid_argument::invalid_argument;
};

}  // namespace sylvomex
