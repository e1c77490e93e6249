// SPDX-License-Identifier: MIT
// The guide at the place of what has the focus, by its keys.
#include "desktop_aids/guide.h"

#include <QAbstractTextDocumentLayout>
#include <QMenuBar>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>
#include <map>
#include <set>

#include "aids_fixture.h"
#include "workspace/menu_table.h"

namespace sylvomex {
namespace {

class GuideTest : public AidedDesktop {
 protected:
  std::set<std::string> Headings(const std::string& page) {
    std::set<std::string> headings{""};
    Help().Open({page, ""});
    const QTextDocument& text = *Help().Browser().document();
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
      if (block.blockFormat().headingLevel() > 0) headings.insert(block.text().toStdString());
    }
    return headings;
  }

  void Expect_Known(const GuidePlace& place, const std::string& of) {
    if (!headings_.contains(place.page)) headings_[place.page] = Headings(place.page);
    EXPECT_GT(headings_[place.page].size(), 3u) << place.page << " of " << of;
    EXPECT_TRUE(headings_[place.page].contains(place.heading))
        << place.page << " has no \"" << place.heading << "\" for " << of;
  }

  Guide& Help() { return aids_->Help(); }

  std::map<std::string, std::set<std::string>> headings_;  // by page
};

TEST_F(GuideTest, EveryControlLeadsToAHeadingThatTheGuideHas) {
  for (const WindowRow& row : All_Windows()) {
    for (const ControlRow& control : row.design->controls) {
      Expect_Known(Place_Of_Control(row.name, control.name), control.name);
    }
  }
  for (const char* part : {"MeasuredDock", "OverlaysDock", "Strip"}) {
    Expect_Known(Place_Of_Control("Form1", part), part);
  }
}

TEST_F(GuideTest, EveryCommandLeadsToAHeadingThatTheGuideHas) {
  for (const MenuRow& row : Main_Menu()) Expect_Known(Place_Of_Command(row.name), row.name);
}

TEST_F(GuideTest, ShiftF1OnAPaneTellsOfThePanes) {
  Click_Pane(0, 100, 50);
  QTest::keyClick(&Pane(0), Qt::Key_F1, Qt::ShiftModifier);
  ASSERT_TRUE(Help().isVisible());
  EXPECT_EQ(Help().First_Line(), "The panes");
}

TEST_F(GuideTest, ShiftF1InABoxTellsOfTheBox) {
  auto& box = Get<QLineEdit>("Text6");
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_EQ(Help().First_Line(), "Finding the tree tops of a plot");
}

TEST_F(GuideTest, F1BelongsToItsCommandInTheMainWindowAndToTheGuideInTheOthers) {
  QTest::keyClick(&Pane(0), Qt::Key_F1);
  EXPECT_FALSE(Help().isVisible());
  EXPECT_NE(std::ranges::find(dialogs_.titles, "File with X (comma) Y (comma) Z "),
            dialogs_.titles.end());
  Choose("Open_Options_Window");
  Press_Key(Qt::Key_F1, {}, "Form2");
  EXPECT_TRUE(Help().isVisible());
  EXPECT_EQ(Help().First_Line(), "Other services");
}

TEST_F(GuideTest, ShiftF1OnAMarkedMenuItemTellsOfItsCommand) {
  QMenu* menu = Main().findChild<QMenu*>("Dem_");
  menu->popup({50, 50});
  menu->setActiveAction(Main().findChild<QAction*>("Test_DEM"));
  QTest::keyClick(menu, Qt::Key_F1, Qt::ShiftModifier);
  ASSERT_TRUE(Help().isVisible());
  EXPECT_FALSE(menu->isVisible());
  EXPECT_EQ(Help().Browser().textCursor().selectedText(), "Plot (Test) DEM");
}

TEST_F(GuideTest, TheKeyIsNotRecorded) {
  Start_Recorded("session.txt");
  const std::string before = site_.Folder().Read("session.txt");
  QTest::keyClick(&Pane(0), Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_EQ(site_.Folder().Read("session.txt"), before);
}

TEST_F(GuideTest, ALinkLeadsToItsPageAndEscapeClosesTheWindow) {
  Help().Open({"user-guide.md", ""});
  emit Help().Browser().anchorClicked(QUrl("keys-and-mouse.md#the-dock-measured"));
  EXPECT_EQ(Help().First_Line(), "The dock Measured");
  QTest::keyClick(&Help().Browser(), Qt::Key_Escape);
  EXPECT_FALSE(Help().isVisible());
}

TEST_F(GuideTest, WordsAreFoundAndEnterFindsTheNextPlace) {
  Help().Open({"user-guide.md", ""});
  auto& find = *Help().findChild<QLineEdit*>();
  QTest::keyClicks(&find, "lidar");
  const int first = Help().Browser().textCursor().position();
  EXPECT_EQ(Help().Browser().textCursor().selectedText().toLower(), "lidar");
  QTest::keyClick(&find, Qt::Key_Return);
  EXPECT_GT(Help().Browser().textCursor().position(), first);
}

TEST_F(GuideTest, PicturesAreAsWideAsThePageAtMostAlsoInLists) {
  for (const GuidePage& page : Guide_Pages()) {
    Help().Open({page.file, ""});
    const QTextDocument& text = *Help().Browser().document();
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
      const QRectF lines = text.documentLayout()->blockBoundingRect(block);
      for (auto part = block.begin(); !part.atEnd(); ++part) {
        if (!part.fragment().charFormat().isImageFormat()) continue;
        EXPECT_LE(lines.left() + block.layout()->boundingRect().width(),
                  Help().Browser().viewport()->width())
            << page.file << ": " << block.text().toStdString();
      }
    }
  }
}

}  // namespace
}  // namespace sylvomex
