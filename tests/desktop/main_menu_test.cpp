// SPDX-License-Identifier: MIT
#include <QMenu>
#include <QMenuBar>

#include "desktop_fixture.h"

namespace sylvomex {
namespace {

class MainMenu : public DesktopTest {
 protected:
  // All items, from the menu bar downwards, each menu before its items.
  static void Collect(const QWidget& parent, std::vector<QAction*>& items) {
    for (QAction* item : parent.actions()) {
      items.push_back(item);
      if (item->menu() != nullptr) Collect(*item->menu(), items);
    }
  }

  std::vector<QAction*> Items() {
    std::vector<QAction*> items;
    Collect(*Main().menuBar(), items);
    return items;
  }
};

TEST_F(MainMenu, ShowsAll127ItemsInTheirOrder) {
  const auto items = Items();
  ASSERT_EQ(items.size(), 127U);
  for (std::size_t k = 0; k < items.size(); ++k) {
    const MenuRow& row = Main_Menu()[k];
    const QString name = items[k]->menu() ? items[k]->menu()->objectName() : items[k]->objectName();
    EXPECT_EQ(name.toStdString(), row.name);
    EXPECT_EQ(items[k]->text().section('\t', 0, 0).replace("&&", "&").toStdString(), row.caption);
    EXPECT_EQ(items[k]->isEnabled(), !row.greyed) << row.name;
  }
}

TEST_F(MainMenu, HasTheMenusFromFileToAbout) {
  QStringList captions;
  for (QAction* item : Main().menuBar()->actions()) captions << item->text();
  EXPECT_EQ(captions.front(), "File");
  EXPECT_EQ(captions[1], "Edit");
  EXPECT_EQ(captions[2], "3D");
  EXPECT_EQ(captions.back(), "About");
}

TEST_F(MainMenu, ShowsTheKeyBesideTheCaption) {
  EXPECT_EQ(Main().findChild<QAction*>("Point_Intersection")->text(),
            "Point Intersection, N>1 images\tCtrl+I");
  EXPECT_EQ(Main().findChild<QAction*>("Save_measured_point")->text(),
            "Save measured point\tShift+F12");
}

TEST_F(MainMenu, GreysTheDisabledItems) {
  EXPECT_FALSE(Main().findChild<QAction*>("Open_a_set")->isEnabled());
  EXPECT_TRUE(Main().findChild<QAction*>("Add_images_to_set")->isEnabled());
}

TEST_F(MainMenu, ChecksAModeWhenItIsChosenAndUnchecksItAgain) {
  QAction* item = Main().findChild<QAction*>("Draw_Polygon");
  EXPECT_FALSE(item->isChecked());
  item->trigger();
  EXPECT_TRUE(item->isChecked());
  EXPECT_TRUE(w().Menu.Draw_Polygon);
  item->trigger();
  EXPECT_FALSE(item->isChecked());
}

TEST_F(MainMenu, CheckBoxOfMultiSizeTurnsTheModesCheckMark) {
  QTest::mouseClick(&Get<QCheckBox>("Check5"), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_TRUE(w().Menu.Measure_tree_tops_By_Matching);
  EXPECT_TRUE(Main().findChild<QAction*>("Measure_tree_tops_By_Matching")->isChecked());
}

}  // namespace
}  // namespace sylvomex
