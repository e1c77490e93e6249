// SPDX-License-Identifier: MIT
#include "workspace/menu_table.h"

#include "commands/solver/distance_window.h"
#include "commands/solver/observation_window.h"
#include "workspace/operator_event.h"
#include "workspace/options_window.h"

namespace sylvomex {
namespace {

constexpr int kF1 = 112;
constexpr int kF12 = 123;

constexpr MenuRow kOptionsMenu[] = {
    {0, "Window", "Window"},
    {1, "Apply", "Apply Changes and Close", 0, 0, false, MenuRole::Command, Form2_Apply},
    {1, "close_window", "Close Without Applying Changes", 0, 0, false, MenuRole::Command,
     Form2_Close_Window},
};

constexpr MenuRow kObservationMenu[] = {
    {0, "Window", "Window"},
    {1, "A_and_s", "Accept save and close", 0, 0, false, MenuRole::Command, Form3_Accept_And_Save},
    {1, "C_and_c", "Cancel and close", 0, 0, false, MenuRole::Command, Form3_Cancel},
};

constexpr MenuRow kDistanceMenu[] = {
    {0, "Window", "Window"},
    {1, "Save_and_Close", "Close, Save and Reset", 'S', kCtrl, false, MenuRole::Command,
     Form7_Save_Close_And_Reset},
    {1, "Reset_and_Close", "Close and Reset", 'A', kCtrl, false, MenuRole::Command,
     Form7_Reset_And_Close},
    {1, "Close_No_Save", "Close (just)", 'Z', kCtrl, false, MenuRole::Command,
     Form7_Return_To_Main},
};

}  // namespace

std::span<const MenuRow> Window_Menu(std::string_view form) {
  if (form == "Form1") return Main_Menu();
  if (form == "Form2") return kOptionsMenu;
  if (form == "Form3") return kObservationMenu;
  if (form == "Form7") return kDistanceMenu;
  return {};
}

const MenuRow* Find_Menu_Row(std::string_view form, std::string_view name) {
  for (const MenuRow& row : Window_Menu(form)) {
    if (name == row.name) return &row;
  }
  return nullptr;
}

std::string Key_Text(const MenuRow& row) {
  if (row.key_code == 0) return "";
  std::string text;
  if ((row.key_shift & kCtrl) != 0) text += "Ctrl+";
  if ((row.key_shift & kShift) != 0) text += "Shift+";
  if (row.key_code >= kF1 && row.key_code <= kF12) {
    return text + "F" + std::to_string(row.key_code - kF1 + 1);
  }
  return text + static_cast<char>(row.key_code);
}

void Run_Menu_Row(Workspace& w, const MenuRow& row) {
  if (row.role == MenuRole::Command) row.handler(w);
  if (row.role == MenuRole::NotBuilt) Say_Not_Built(w, row.caption);
}

void Run_Menu_Command(Workspace& w, std::string_view name) {
  Run_Menu_Row(w, *Find_Menu_Row("Form1", name));
}

void Say_Not_Built(Workspace& w, std::string_view caption) {
  w.screen->Message_Box(std::string(caption) + ": this command is not built yet.");
}

}  // namespace sylvomex
