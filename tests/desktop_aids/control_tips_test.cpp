// SPDX-License-Identifier: MIT
#include "desktop_aids/control_tips.h"

#include <QHelpEvent>
#include <QToolTip>

#include "aids_fixture.h"

namespace sylvomex {
namespace {

class ControlTipsTest : public AidedDesktop {
 protected:
  static QString Tip_Over(QWidget& widget) {
    QToolTip::hideText();
    QHelpEvent help(QEvent::ToolTip, {3, 3}, widget.mapToGlobal(QPoint(3, 3)));
    QApplication::sendEvent(&widget, &help);
    return QToolTip::text();
  }
};

TEST_F(ControlTipsTest, ABoxTellsWhatItHolds) {
  EXPECT_EQ(Tip_Over(Get<QLineEdit>("Text4")), "r: radius of the plot, metres");
}

TEST_F(ControlTipsTest, ASpeciesTellsItsKeyAndTheKeyDoesTheSame) {
  EXPECT_EQ(Tip_Over(Get<QCheckBox>("Check2(3)")), "Species 20  (key 4)");
  Press_Key(Qt::Key_4);
  EXPECT_EQ(w().Form1.Check2(3).Value, 1);
}

TEST_F(ControlTipsTest, ATextThatIsCutStandsFirst) {
  auto& box = Get<QLineEdit>("Text4");
  box.setText("a text that is longer than its box");
  EXPECT_EQ(Tip_Over(box), "a text that is longer than its box\nr: radius of the plot, metres");
}

TEST_F(ControlTipsTest, ALabelWithoutATipShowsNone) {
  EXPECT_EQ(Tip_Over(*Window("Form1").Control_Widget("ResultsCaption")), "");
}

}  // namespace
}  // namespace sylvomex
