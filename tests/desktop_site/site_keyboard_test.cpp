// SPDX-License-Identifier: MIT
// The dialogs of the menu Site with the keyboard alone and for ears.
#include "desktop_aids/keyboard_reach.h"

#include <QScreen>

#include "aids_fixture.h"
#include "desktop_site/site_menu.h"

namespace sylvomex {
namespace {

class SiteKeyboardTest : public AidedDesktop {
 protected:
  SiteKeyboardTest() : menu_(new SiteMenu(*desktop_, *aids_)) {}

  SiteMenu* menu_;  // of the main window
};

TEST_F(SiteKeyboardTest, EveryDialogIsNamedReachedByTabAndLeftByEscape) {
  for (const SiteCommand& command : Site_Commands()) {
    SiteDialog& dialog = menu_->Open(command);
    ASSERT_TRUE(dialog.isVisible()) << command.words;
    Expect_All_Are_Named(dialog);
    Expect_Tab_Reaches_All(dialog, dialog);
    Press_Escape_In(dialog);
    EXPECT_FALSE(dialog.isVisible()) << command.words;
  }
}

TEST_F(SiteKeyboardTest, WithLargeLettersEveryDialogFitsOnTheScreenAndTheMenuHasThemToo) {
  const QFont usual = QApplication::font();
  QFont large = usual;
  large.setPixelSize(22);
  QApplication::setFont(large);
  const QSize room = Main().screen()->availableSize();
  ASSERT_LT(room.width(), 900) << "the offscreen screen";
  for (const SiteCommand& command : Site_Commands()) {
    SiteDialog& dialog = menu_->Open(command);
    QApplication::processEvents();
    EXPECT_LE(dialog.width(), room.width()) << command.words;
    EXPECT_LE(dialog.height(), room.height()) << command.words;
    for (const QWidget* control : Usable_Controls(dialog)) {
      EXPECT_TRUE(dialog.rect().contains(QRect(control->mapTo(&dialog, QPoint()), control->size())))
          << Described(*control);
    }
    dialog.close();
  }
  QApplication::setFont(usual);
  EXPECT_EQ(Main().findChild<QMenu*>("Site")->font().pixelSize(),
            Main().menuBar()->font().pixelSize());
}

TEST_F(SiteKeyboardTest, NoTwoItemsOfItsMenuHaveTheSameLetter) {
  Expect_Letters_Differ_In_All_Menus(Main());
}

}  // namespace
}  // namespace sylvomex
