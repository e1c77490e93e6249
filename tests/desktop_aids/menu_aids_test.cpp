// SPDX-License-Identifier: MIT
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>

#include "aids_fixture.h"
#include "desktop_aids/menu_keys.h"

namespace sylvomex {
namespace {

using MenuAids = AidedDesktop;

TEST(Mnemonics, TheFirstFreeLetterIsMarked) {
  QString taken;
  EXPECT_EQ(With_Mnemonic("Zoom In", taken), "&Zoom In");
  EXPECT_EQ(With_Mnemonic("Zoom Out", taken), "Z&oom Out");
  EXPECT_EQ(With_Mnemonic("oz\tCtrl+Q", taken), "oz\tCtrl+Q");
  EXPECT_EQ(With_Mnemonic("1:1", taken), "1:1");
}

TEST_F(MenuAids, NoMenuTakesALetterThatACommandListensTo) {
  QString seen;
  for (const QAction* action : Main().menuBar()->actions()) {
    const qsizetype mark = action->text().indexOf('&');
    if (mark < 0) continue;
    const QChar letter = action->text()[mark + 1].toUpper();
    EXPECT_FALSE(QStringLiteral("UDWENSMPL1234").contains(letter)) << action->text().toStdString();
    EXPECT_FALSE(seen.contains(letter)) << action->text().toStdString();
    seen += letter;
  }
  EXPECT_GE(seen.size(), 8);
}

TEST_F(MenuAids, TheClientAreaKeepsItsSize) {
  EXPECT_EQ(Main().centralWidget()->size(), QSize(1000, 700));
  EXPECT_EQ(w().Form1.ClientWidth, 1000);
  EXPECT_EQ(w().Form1.ClientHeight, 700);
}

TEST_F(MenuAids, F10OpensTheMenus) {
  QTest::keyClick(&Pane(0), Qt::Key_F10);
  EXPECT_EQ(Main().menuBar()->activeAction(), Main().menuBar()->actions().constFirst());
}

TEST_F(MenuAids, F10LeavesTheFocusForTheKeysThatFollow) {
  Click_Pane(0, 100, 50);
  const QWidget* focus = Main().focusWidget();
  QTest::keyClick(&Pane(0), Qt::Key_F10);
  EXPECT_NE(focus, Main().menuBar());
  EXPECT_EQ(Main().focusWidget(), focus);
}

TEST_F(MenuAids, ShiftF10OpensTheMenuOfTheAids) {
  QTest::keyClick(&Pane(0), Qt::Key_F10, Qt::ShiftModifier);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  QString letters;
  for (const QAction* action : menu->actions()) {
    const qsizetype mark = action->text().indexOf('&');
    ASSERT_GE(mark, 0) << action->text().toStdString();
    const QChar letter = action->text()[mark + 1].toUpper();
    EXPECT_FALSE(letters.contains(letter)) << action->text().toStdString();
    letters += letter;
  }
  QTest::keyClick(menu, Qt::Key_B);
  EXPECT_TRUE(Main().findChild<QAction*>("AidSafeColours")->isChecked());
}

TEST_F(MenuAids, ThePaletteRunsACommandByAPartOfItsName) {
  Click_Pane(0, 100, 50);
  QTest::keyClick(&Pane(0), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_TRUE(aids_->Palette().isVisible());
  auto& typed = *aids_->Palette().findChild<QLineEdit*>();
  QTest::keyClicks(&typed, "200 zoom");
  QTest::keyClick(&typed, Qt::Key_Return);
  EXPECT_FALSE(aids_->Palette().isVisible());
  EXPECT_EQ(w().PaneViews(0).ZoomX, 2);
}

TEST_F(MenuAids, EscapeClosesThePaletteWithoutACommand) {
  Start_Recorded("session.txt");
  QTest::keyClick(&Pane(0), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
  const std::string before = site_.Folder().Read("session.txt");
  QTest::keyClick(aids_->Palette().findChild<QLineEdit*>(), Qt::Key_Escape);
  EXPECT_FALSE(aids_->Palette().isVisible());
  EXPECT_EQ(site_.Folder().Read("session.txt"), before);
}

TEST_F(MenuAids, ThePaletteListsFirstWhatStartsWithTheTypedText) {
  aids_->Palette().Bring_Up();
  const auto& list = *aids_->Palette().findChild<QListWidget*>();
  const auto first_shown = [&] {
    int k = 0;
    while (list.item(k)->isHidden()) ++k;
    return list.item(k);
  };
  const QString first_of_all = first_shown()->text();
  auto& typed = *aids_->Palette().findChild<QLineEdit*>();
  QTest::keyClicks(&typed, "dark");
  EXPECT_TRUE(first_shown()->text().contains("Dark windows"))
      << first_shown()->text().toStdString();
  EXPECT_EQ(list.currentItem(), first_shown());
  EXPECT_FALSE(list.findItems("Gamma correct too dark (1)", Qt::MatchContains).front()->isHidden());
  typed.clear();
  EXPECT_EQ(first_shown()->text(), first_of_all);
}

TEST_F(MenuAids, AGreyedCommandIsNotRunFromThePalette) {
  aids_->Palette().Bring_Up();
  auto& typed = *aids_->Palette().findChild<QLineEdit*>();
  QTest::keyClicks(&typed, "PGMTexture");
  QTest::keyClick(&typed, Qt::Key_Return);
  EXPECT_TRUE(aids_->Palette().isVisible());
}

TEST_F(MenuAids, ThePaletteSaysThatNothingMatchesAndItsKeyBeginsAnew) {
  aids_->Palette().Bring_Up();
  auto& typed = *aids_->Palette().findChild<QLineEdit*>();
  const auto& none = *aids_->Palette().findChild<QLabel*>();
  EXPECT_FALSE(none.isVisible());
  QTest::keyClicks(&typed, "no such command");
  EXPECT_TRUE(none.isVisible());
  QTest::keyClick(&typed, Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
  QTest::keyClicks(&typed, "zoom");
  EXPECT_EQ(typed.text(), "zoom");
  EXPECT_FALSE(none.isVisible());
}

}  // namespace
}  // namespace sylvomex
