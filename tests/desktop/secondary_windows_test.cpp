// SPDX-License-Identifier: MIT
#include "desktop_fixture.h"

namespace sylvomex {
namespace {

class SecondaryWindows : public DesktopTest {
 protected:
  void Type_Into(const char* control, const char* form, const char* text) {
    auto& box = Get<QLineEdit>(control, form);
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, text);
  }
};

TEST_F(SecondaryWindows, OptionsOpenByTheirKeyAndShowTheValues) {
  Press_Key(Qt::Key_O, Qt::ControlModifier);
  EXPECT_TRUE(Window("Form2").isVisible());
  EXPECT_EQ(Get<QLineEdit>("Text1", "Form2").text(), "5");
  EXPECT_TRUE(Get<QCheckBox>("Check3", "Form2").isChecked());
}

TEST_F(SecondaryWindows, OptionsAreAppliedAndTheWindowCloses) {
  Choose("Open_Options_Window");
  Type_Into("Text2", "Form2", "2.5");
  QTest::mouseClick(&Get<QCheckBox>("Check2", "Form2"), Qt::LeftButton, {}, QPoint(8, 8));
  Choose("Apply", "Form2");
  EXPECT_EQ(w().options.StepLength, 2.5);
  EXPECT_TRUE(w().options.PlotAllAfterSave);
  EXPECT_FALSE(Window("Form2").isVisible());
}

TEST_F(SecondaryWindows, OptionsClosedByTheTitleBarAreNotApplied) {
  Choose("Open_Options_Window");
  Type_Into("Text2", "Form2", "2.5");
  Window("Form2").close();
  EXPECT_FALSE(Window("Form2").isVisible());
  EXPECT_EQ(w().options.StepLength, 1.0);
}

TEST_F(SecondaryWindows, OptionsWithABadValueSayWhy) {
  Choose("Open_Options_Window");
  Type_Into("Text5", "Form2", "x");
  QTest::mouseClick(&Get<QPushButton>("Apply_Options_Changes", "Form2"), Qt::LeftButton);
  EXPECT_EQ(dialogs_.messages,
            std::vector<std::string>{
                "Cannot convert parameter values into numeric/string values, try again!"});
  EXPECT_TRUE(Window("Form2").isVisible());
}

TEST_F(SecondaryWindows, ObservationIsAcceptedByEnterInTheSpeciesBox) {
  Press_Key(Qt::Key_F12, Qt::ShiftModifier);
  ASSERT_TRUE(Window("Form3").isVisible());
  EXPECT_EQ(Window("Form3").focusWidget(), &Get<QLineEdit>("Text2", "Form3"));
  Type_Into("Text5", "Form3", "c:\\data\\points.txt");
  Type_Into("Text2", "Form3", "3");
  QTest::keyClick(&Get<QLineEdit>("Text2", "Form3"), Qt::Key_Return);
  EXPECT_FALSE(Window("Form3").isVisible());
  const std::string line = site_.Folder().Read("c/data/points.txt");
  EXPECT_EQ(line.substr(0, 2), "1,");
  EXPECT_EQ(Get<QLabel>("Label2").text(), "Measurement number: 2");
}

TEST_F(SecondaryWindows, ObservationClosedByTheTitleBarIsNotWritten) {
  Choose("Save_measured_point");
  Window("Form3").close();
  EXPECT_FALSE(Window("Form3").isVisible());
  EXPECT_EQ(w().NextMeasurementNumber, 1);
}

TEST_F(SecondaryWindows, FirstKeyInTheEmptyIntegerBoxLeavesAZero) {
  Choose("Save_XY_Distances");
  ASSERT_TRUE(Window("Form7").isVisible());
  Type_Into("Text2", "Form7", "");
  auto& box = Get<QLineEdit>("Text2", "Form7");
  box.clear();
  w().Form7.Text2.Text = "";
  QTest::keyClick(&box, Qt::Key_Left);
  EXPECT_EQ(box.text(), "0");
}

TEST_F(SecondaryWindows, EnterInTheTreeNumberMovesOnToTheNextBox) {
  Choose("Save_XY_Distances");
  Type_Into("Text1", "Form7", "17");
  QTest::keyClick(&Get<QLineEdit>("Text1", "Form7"), Qt::Key_Return);
  EXPECT_EQ(w().XYDistanceEntries(0).TreeNumber, 17);
  EXPECT_EQ(Window("Form7").focusWidget(), &Get<QLineEdit>("Text2", "Form7"));
}

TEST_F(SecondaryWindows, DistancesCloseByTheirMenuKey) {
  Choose("Save_XY_Distances");
  Press_Key(Qt::Key_Z, Qt::ControlModifier, "Form7");
  EXPECT_FALSE(Window("Form7").isVisible());
}

TEST_F(SecondaryWindows, AboutClosesByItsButtonAndByTheTitleBar) {
  Choose("Open_About_Window");
  ASSERT_TRUE(Window("Form4").isVisible());
  EXPECT_TRUE(Get<QLabel>("Label1", "Form4").text().contains("oevrlayed"));
  QTest::mouseClick(&Get<QPushButton>("OK_Button", "Form4"), Qt::LeftButton);
  EXPECT_FALSE(Window("Form4").isVisible());
  Choose("Open_About_Window");
  Window("Form4").close();
  EXPECT_FALSE(Window("Form4").isVisible());
}

TEST_F(SecondaryWindows, HaveTheClientSizesOfTheirRecords) {
  Choose("Open_Options_Window");
  EXPECT_EQ(Window("Form2").centralWidget()->size(),
            QSize(int(w().Form2.ClientWidth), int(w().Form2.ClientHeight)));
}

}  // namespace
}  // namespace sylvomex
