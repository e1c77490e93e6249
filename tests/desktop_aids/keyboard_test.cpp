// SPDX-License-Identifier: MIT
// Every window, dialog and dock with the keyboard alone and for ears.
#include "keyboard_reach.h"

#include <QDockWidget>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <ostream>

#include "aids_fixture.h"
#include "desktop/dialog_layout.h"

namespace sylvomex {
namespace {

class KeyboardTest : public AidedDesktop {
 protected:
  KeyboardTest() { qApp->setProperty("QAccessible", true); }

  QDockWidget& Open_Dock(const char* name) {
    Main().findChild<QAction*>(name)->trigger();
    QApplication::processEvents();
    return *Main().findChild<QDockWidget*>(QString::fromLatin1(name));
  }

  static void Expect_Usable_And_Left_By_Escape(QWidget& window) {
    Expect_All_Are_Named(window);
    Expect_Tab_Reaches_All(window, window);
    Press_Escape_In(window);
    EXPECT_FALSE(window.isVisible()) << window.windowTitle().toStdString();
  }
};

struct OpenedWindow {
  const char* form;
  const char* command;

  friend std::ostream& operator<<(std::ostream& out, const OpenedWindow& opened) {
    return out << opened.command;
  }
};

constexpr OpenedWindow kOpened[] = {
    {"Form2", "Open_Options_Window"}, {"Form4", "Open_About_Window"},
    {"Form5", "Open_Stereo_window"},  {"Form6", "Show_Results_Window"},
    {"Form7", "Save_XY_Distances"},   {"Form8", "Open_Map_Window"},
};

class EveryWindow : public KeyboardTest, public testing::WithParamInterface<OpenedWindow> {};

TEST_P(EveryWindow, IsNamedReachedByTabAndLeftByEscape) {
  Choose(GetParam().command);
  ASSERT_TRUE(Window(GetParam().form).isVisible());
  Expect_Usable_And_Left_By_Escape(Window(GetParam().form));
}

INSTANTIATE_TEST_SUITE_P(Forms, EveryWindow, testing::ValuesIn(kOpened),
                         [](const auto& row) { return std::string(row.param.form); });

TEST_F(KeyboardTest, TheObservationRecordIsNamedReachedByTabAndLeftByEscape) {
  Click_Pane(0, 200, 60);
  Click_Pane(1, 100, 60);
  Choose("Point_Intersection");
  Choose("Save_measured_point");
  ASSERT_TRUE(Window("Form3").isVisible());
  Expect_Usable_And_Left_By_Escape(Window("Form3"));
  EXPECT_EQ(w().NextMeasurementNumber, 1);
}

TEST_F(KeyboardTest, TheMainWindowIsNamedAndReachedByTab) {
  Expect_All_Are_Named(Main());
  Expect_Tab_Reaches_All(Main(), *Main().centralWidget());
}

TEST_F(KeyboardTest, DocksAreNamedReachedByTabAndLeftByEscape) {
  for (const char* name : {"MeasuredDock", "OverlaysDock"}) {
    QDockWidget& dock = Open_Dock(name);
    ASSERT_TRUE(dock.isVisible());
    Expect_All_Are_Named(*dock.widget());
    Expect_Tab_Reaches_All(Main(), *dock.widget());
    Usable_Controls(*dock.widget()).front()->setFocus();
    Press_Escape_In(Main());
    EXPECT_EQ(Main().focusWidget()->objectName(), "client") << name;
  }
}

TEST_F(KeyboardTest, EscapeInABoxGivesTheKeysBackToThePanes) {
  auto& box = Get<QLineEdit>("Text4");
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_Escape);
  EXPECT_EQ(Main().focusWidget()->objectName(), "client");
  QTest::keyClick(Main().focusWidget(), Qt::Key_G);
  EXPECT_TRUE(aids_->Glass().isVisible() || box.text() == "23");
  EXPECT_EQ(box.text(), "23") << "the letter is not typed";
}

TEST_F(KeyboardTest, ThePaletteAndTheGuideAreNamedReachedByTabAndLeftByEscape) {
  aids_->Palette().Bring_Up();
  Expect_Usable_And_Left_By_Escape(aids_->Palette());
  aids_->Help().Open({"user-guide.md", ""});
  Expect_Usable_And_Left_By_Escape(aids_->Help());
}

TEST_F(KeyboardTest, QuestionsAreNamedReachedByTabAndLeftByEscape) {
  dialogs_.Leave_Dialogs_Open();
  QFileDialog files(&Main(), "Header file", QString::fromStdString(site_.Folder().Path()));
  files.setOption(QFileDialog::DontUseNativeDialog);
  QInputDialog input(&Main());
  input.setLabelText("Image number");
  QMessageBox box(QMessageBox::Warning, "SYLVOMEX", "A message", QMessageBox::Ok, &Main());
  Lay_Out(files);
  Lay_Out(input);
  Lay_Out(box);
  for (QDialog* dialog : {static_cast<QDialog*>(&files), static_cast<QDialog*>(&input),
                          static_cast<QDialog*>(&box)}) {
    dialog->show();
    Expect_Usable_And_Left_By_Escape(*dialog);
  }
}

TEST_F(KeyboardTest, NoTwoItemsOfAMenuHaveTheSameLetter) {
  for (const WindowRow& row : All_Windows()) Expect_Letters_Differ_In_All_Menus(Window(row.name));
}

}  // namespace
}  // namespace sylvomex
