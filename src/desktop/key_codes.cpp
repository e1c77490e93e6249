// SPDX-License-Identifier: MIT
#include "desktop/key_codes.h"

#include <algorithm>
#include <array>

#include "workspace/operator_event.h"

namespace sylvomex {
namespace {

struct KeyRow {
  int key;
  int code;
};

constexpr std::array kKeyPadRows{
    KeyRow{Qt::Key_Asterisk, 106}, KeyRow{Qt::Key_Plus, 107},  KeyRow{Qt::Key_Minus, 109},
    KeyRow{Qt::Key_Period, 110},   KeyRow{Qt::Key_Comma, 110}, KeyRow{Qt::Key_Slash, 111},
};

constexpr std::array kOtherRows{
    KeyRow{Qt::Key_Backspace, 8}, KeyRow{Qt::Key_Escape, 27},   KeyRow{Qt::Key_Space, 32},
    KeyRow{Qt::Key_PageUp, 33},   KeyRow{Qt::Key_PageDown, 34}, KeyRow{Qt::Key_End, 35},
    KeyRow{Qt::Key_Home, 36},     KeyRow{Qt::Key_Left, 37},     KeyRow{Qt::Key_Up, 38},
    KeyRow{Qt::Key_Right, 39},    KeyRow{Qt::Key_Down, 40},     KeyRow{Qt::Key_Insert, 45},
    KeyRow{Qt::Key_Delete, 46},   KeyRow{Qt::Key_Plus, 187},    KeyRow{Qt::Key_Comma, 188},
    KeyRow{Qt::Key_Minus, 189},   KeyRow{Qt::Key_Period, 190},
};

template <class Rows>
int Find_Code(const Rows& rows, int key) {
  const auto row = std::ranges::find(rows, key, &KeyRow::key);
  return row == rows.end() ? 0 : row->code;
}

}  // namespace

int Shift_Mask(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? kShift : 0) |
         (modifiers.testFlag(Qt::ControlModifier) ? kCtrl : 0) |
         (modifiers.testFlag(Qt::AltModifier) ? kAlt : 0);
}

int Event_Key_Code(const QKeyEvent& key) {
  constexpr int kKeyPadZero = 96;
  constexpr int kF1 = 112;
  const int code = key.key();
  const bool on_key_pad = key.modifiers().testFlag(Qt::KeypadModifier);
  if (code >= Qt::Key_A && code <= Qt::Key_Z) return 'A' + (code - Qt::Key_A);
  if (code >= Qt::Key_0 && code <= Qt::Key_9) {
    return (on_key_pad ? kKeyPadZero : '0') + (code - Qt::Key_0);
  }
  if (code >= Qt::Key_F1 && code <= Qt::Key_F12) return kF1 + (code - Qt::Key_F1);
  if (const int key_pad = on_key_pad ? Find_Code(kKeyPadRows, code) : 0; key_pad != 0) {
    return key_pad;
  }
  return Find_Code(kOtherRows, code);
}

}  // namespace sylvomex
