// SPDX-License-Identifier: MIT
#include "desktop_aids/control_names.h"

#include "aids_fixture.h"

namespace sylvomex {
namespace {

using ControlNames = AidedDesktop;

TEST_F(ControlNames, TellThePanesAndBoxesOfAnImage) {
  EXPECT_EQ(Pane(1).accessibleName(), "Pane of image 1");
  EXPECT_EQ(Get<QLineEdit>("Text1(2)").accessibleName(), "Film x of image 1");
  EXPECT_EQ(Get<QLineEdit>("Text1(3)").accessibleName(), "Film y of image 1");
  EXPECT_EQ(Get<QCheckBox>("Check1(0)").accessibleName(), "Use of image 0");
}

TEST_F(ControlNames, TellTheLabelBesideABox) {
  EXPECT_EQ(Get<QLineEdit>("Text4").accessibleName(), "r");
  EXPECT_EQ(Get<QLineEdit>("Text7").accessibleName(), "EZA");
}

TEST_F(ControlNames, OfTheOtherWindowsTellTheLabelOnTheLeft) {
  EXPECT_EQ(Get<QLineEdit>("Text1", "Form2").accessibleName(), "Z-depth of epipolar line , m");
  EXPECT_EQ(Get<QLineEdit>("Text13", "Form2").accessibleName(), "Plot Trees with Height >");
  EXPECT_EQ(Get<QLineEdit>("Text2", "Form3").accessibleName(), "TreeSpecies (0-255)");
  EXPECT_EQ(Get<QLineEdit>("Text2", "Form7").accessibleName(), "Free Integer Field");
  EXPECT_EQ(Get<QLineEdit>("Text3(4)", "Form7").accessibleName(), "OBS Coding of image 4");
}

TEST_F(ControlNames, NoControlThatTakesTheFocusIsWithoutOne) {
  for (const WindowRow& row : All_Windows()) {
    for (const QWidget* widget : Window(row.name).centralWidget()->findChildren<QWidget*>(
             QString(), Qt::FindDirectChildrenOnly)) {
      const std::string name = widget->objectName().toStdString();
      if (widget->focusPolicy() == Qt::NoFocus || Window(row.name).Control_Widget(name) != widget)
        continue;
      const auto* button = qobject_cast<const QAbstractButton*>(widget);
      if (button != nullptr && !button->text().isEmpty()) continue;  // read by its caption
      EXPECT_FALSE(widget->accessibleName().isEmpty()) << row.name << '.' << name;
      EXPECT_NE(widget->accessibleName().toStdString(), name) << row.name;
    }
  }
}

}  // namespace
}  // namespace sylvomex
