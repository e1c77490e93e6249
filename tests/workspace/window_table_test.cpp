// SPDX-License-Identifier: MIT
// Invariants of every window in the table, and look-up of windows by name.
#include "workspace/window_table.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "session/script_screen.h"
#include "support/session_run.h"
#include "support/small_site.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {
namespace {

struct WindowTable : testing::Test {
  SmallSite site;
  std::ostringstream out;
  ScriptScreen screen{out, out};
  std::unique_ptr<Workspace> block = std::make_unique<Workspace>(site.Drives(), screen);
  Workspace& w = *block;

  static std::set<std::string> Control_Names(const WindowRow& window) {
    std::set<std::string> names;
    for (const ControlRow& row : window.design->controls) names.insert(row.name);
    return names;
  }
};

const void* Address(AnyControl control) {
  return std::visit(
      [](auto found) -> const void* {
        if constexpr (requires { *found; }) {
          return found;
        } else {
          return nullptr;
        }
      },
      control);
}

TEST_F(WindowTable, BeginsWithTheMainWindowAndHasEachNameOnce) {
  std::set<std::string> names;
  for (const WindowRow& window : All_Windows()) names.insert(window.name);
  EXPECT_STREQ(All_Windows().front().name, "Form1");
  EXPECT_EQ(names.size(), All_Windows().size());
}

TEST_F(WindowTable, NamesEveryControlOfAWindowOnceAndNoneTwice) {
  for (const WindowRow& window : All_Windows()) {
    EXPECT_EQ(Control_Names(window).size(), window.design->controls.size()) << window.name;
    std::set<const void*> controls;
    Visit_Controls(window.record(w), window.design->controls,
                   [&](const ControlRow& row, int, AnyControl control) {
                     EXPECT_TRUE(controls.insert(Address(control)).second)
                         << window.name << "." << row.name;
                   });
  }
}

TEST_F(WindowTable, HandlersBelongToControlsThatExistAndEachOnce) {
  for (const WindowRow& window : All_Windows()) {
    const std::set<std::string> names = Control_Names(window);
    std::set<std::string> handlers;
    for (const HandlerRow& row : window.handlers) {
      const bool of_window = std::string(row.control) == kWindowItself;
      EXPECT_TRUE(of_window || names.contains(row.control)) << window.name << "." << row.control;
      EXPECT_TRUE(handlers.insert(Handler_Name(row)).second) << Handler_Name(row);
    }
  }
}

TEST_F(WindowTable, ClosingNamesAMenuItemOrAButtonThatActs) {
  for (const WindowRow& window : All_Windows()) {
    if (std::string(window.closing).empty()) continue;
    const MenuRow* item = Find_Menu_Row(window.name, window.closing);
    const bool acts = item != nullptr
                          ? item->handler != nullptr && !item->greyed
                          : Find_Handler(window, window.closing, Happening::Click) != nullptr;
    EXPECT_TRUE(acts) << window.name << " closes by " << window.closing;
  }
}

TEST_F(WindowTable, MenuItemsOfEveryWindowActOrOpenASubmenu) {
  for (const WindowRow& window : All_Windows()) {
    for (const MenuRow& row : window.menu) {
      EXPECT_EQ(row.handler != nullptr, row.role == MenuRole::Command) << row.name;
    }
  }
}

TEST_F(WindowTable, RecordsStartWithTheTitlesOfTheirDesigns) {
  for (const WindowRow& window : All_Windows()) {
    EXPECT_EQ(window.record(w).Title, window.design->title) << window.name;
  }
}

TEST_F(WindowTable, TheTitleBarTriggersAnItemOrAButtonOfTheWindow) {
  const OperatorEvent options = Close_Event(*Find_Window("Form2"));
  EXPECT_EQ(options.kind, OperatorEvent::Kind::Menu);
  EXPECT_EQ(options.control, "close_window");
  const OperatorEvent about = Close_Event(*Find_Window("Form4"));
  EXPECT_EQ(about.kind, OperatorEvent::Kind::Press);
  EXPECT_EQ(about.control, "OK_Button");
}

TEST_F(WindowTable, AMenuCommandOfAWrongNameFailsWithIt) {
  try {
    Run_Menu_Command(w, "Get_Surfaec_Height");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_NE(std::string(error.what()).find("Get_Surfaec_Height"), std::string::npos);
  }
}

TEST_F(WindowTable, AScriptClosesAWindowAsItsTitleBarDoes) {
  const PlayedSession played = Play_Script(site.Folder(),
                                           "menu Open_Options_Window\n"
                                           "set Form2.Text2 2.5\n"
                                           "close Form2\n"
                                           "expect Form2.Visible 0\n"
                                           "expect StepLength 1\n");
  EXPECT_EQ(played.status, 0) << played.reason;
}

TEST_F(WindowTable, WindowsGiveTheirTitles) {
  const PlayedSession played = Play_Script(site.Folder(),
                                           "print Form3.Caption\n"
                                           "print Form3.Visible\n"
                                           "menu Save_measured_point\n"
                                           "print Form3.Visible\n");
  EXPECT_EQ(played.transcript,
            "Form3.Caption = Point Data structure to be saved as an observation\n"
            "Form3.Visible = 0\n"
            "Form3.Visible = -1\n");
}

}  // namespace
}  // namespace sylvomex
