// SPDX-License-Identifier: MIT
#include "aids_fixture.h"

namespace sylvomex {
namespace {

class DialogKeysTest : public AidedDesktop {
 protected:
  /// Opens the options and types another depth of the epipolar line.
  QLineEdit& Type_A_Depth() {
    Choose("Open_Options_Window");
    EXPECT_TRUE(Window("Form2").isVisible());
    auto& box = Get<QLineEdit>("Text1", "Form2");
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, "77");
    return box;
  }
};

TEST_F(DialogKeysTest, EscapeLeavesTheOptionsAsTheyWere) {
  QTest::keyClick(&Type_A_Depth(), Qt::Key_Escape);
  EXPECT_FALSE(Window("Form2").isVisible());
  EXPECT_EQ(w().options.EpipolarZDepth, 5);
}

TEST_F(DialogKeysTest, EnterAppliesTheOptions) {
  QTest::keyClick(&Type_A_Depth(), Qt::Key_Return);
  EXPECT_EQ(w().options.EpipolarZDepth, 77);
}

TEST_F(DialogKeysTest, EscapeClosesTheAboutWindowAndIsRecorded) {
  Start_Recorded("session.txt");
  Choose("Open_About_Window");
  ASSERT_TRUE(Window("Form4").isVisible());
  Press_Key(Qt::Key_Escape, {}, "Form4");
  EXPECT_FALSE(Window("Form4").isVisible());
  EXPECT_NE(site_.Folder().Read("session.txt").find("press Form4.OK_Button"), std::string::npos);
}

TEST_F(DialogKeysTest, EnterOnTheCancelButtonOfTheRecordSavesNothing) {
  Click_Pane(0, 200, 60);
  Click_Pane(1, 100, 60);
  Choose("Point_Intersection");
  Choose("Save_measured_point");
  ASSERT_TRUE(Window("Form3").isVisible());
  QTest::keyClick(&Get<QPushButton>("Cancel_Button", "Form3"), Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_FALSE(Window("Form3").isVisible());
  EXPECT_EQ(w().NextMeasurementNumber, 1);
}

TEST_F(DialogKeysTest, EnterInABoxOfTheRecordSavesOnce) {
  Click_Pane(0, 200, 60);
  Click_Pane(1, 100, 60);
  Choose("Point_Intersection");
  Choose("Save_measured_point");
  QTest::keyClick(&Get<QLineEdit>("Text4", "Form3"), Qt::Key_Return);
  EXPECT_FALSE(Window("Form3").isVisible());
  EXPECT_EQ(w().NextMeasurementNumber, 2);
}

TEST_F(DialogKeysTest, EscapeClosesTheMapWindowWhichHasNoButton) {
  Start_Recorded("session.txt");
  Choose("Open_Map_Window");
  ASSERT_TRUE(Window("Form8").isVisible());
  Press_Key(Qt::Key_Escape, {}, "Form8");
  EXPECT_FALSE(Window("Form8").isVisible());
  EXPECT_FALSE(w().Form8.Visible);
  EXPECT_NE(site_.Folder().Read("session.txt").find("Exit_Map_Window"), std::string::npos)
      << site_.Folder().Read("session.txt");
}

TEST_F(DialogKeysTest, EscapeLeavesTheMainWindowOpen) {
  QTest::keyClick(&Pane(0), Qt::Key_Escape);
  EXPECT_TRUE(Main().isVisible());
  EXPECT_EQ(ends_, 0);
}

}  // namespace
}  // namespace sylvomex
