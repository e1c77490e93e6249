// SPDX-License-Identifier: MIT
#include "desktop_aids/remembered.h"

#include "aids_fixture.h"

namespace sylvomex {
namespace {

class RememberedTest : public AidedDesktop {
 protected:
  [[nodiscard]] QString File() const {
    return QString::fromStdString((site_.Folder().Path() / "settings/desktop.ini").string());
  }

  void Remember() { remembered_.emplace(*desktop_, *aids_, File()); }

  /// The program ends and is started again.
  void Start_Again() {
    remembered_.reset();
    aids_.reset();
    Start({});
    aids_.emplace(*desktop_);
    Remember();
  }

  QAction& Choice(const char* name) { return *Main().findChild<QAction*>(name); }

  std::optional<Remembered> remembered_;
};

TEST_F(RememberedTest, WithoutSettingsEverythingStaysAsItIs) {
  Remember();
  EXPECT_TRUE(Choice("AidFrames").isChecked());
  EXPECT_FALSE(Choice("AidTops").isChecked());
  EXPECT_FALSE(aids_->Measured().isVisible());
  EXPECT_FALSE(std::filesystem::exists(File().toStdString()));
}

TEST_F(RememberedTest, ChoicesComeBack) {
  Remember();
  Choice("AidFrames").trigger();
  Choice("AidSafeColours").trigger();
  Start_Again();
  EXPECT_FALSE(Choice("AidFrames").isChecked());
  EXPECT_TRUE(Choice("AidSafeColours").isChecked());
  EXPECT_FALSE(Choice("AidLargeMarks").isChecked());
}

TEST_F(RememberedTest, TheDockComesBackOnItsSide) {
  Remember();
  Choice("MeasuredDock").trigger();
  Main().addDockWidget(Qt::RightDockWidgetArea, &aids_->Measured());
  Start_Again();
  EXPECT_TRUE(aids_->Measured().isVisible());
  EXPECT_EQ(Main().dockWidgetArea(&aids_->Measured()), Qt::RightDockWidgetArea);
}

TEST_F(RememberedTest, AWindowComesBackToItsPlace) {
  Remember();
  Choose("Open_Options_Window");
  Window("Form2").move(37, 91);
  QApplication::processEvents();
  Start_Again();
  Choose("Open_Options_Window");
  EXPECT_EQ(Window("Form2").pos(), QPoint(37, 91));
}

TEST_F(RememberedTest, AWindowComesBackInItsSizeAndTheBlockFollows) {
  Remember();
  Choose("Show_Results_Window");
  Window("Form6").resize(700, 600);
  ASSERT_TRUE(Soon([&] { return w().Form6.ClientWidth == 700; }));
  Start_Again();
  Choose("Show_Results_Window");
  EXPECT_EQ(Window("Form6").size(), QSize(700, 600));
  EXPECT_TRUE(Soon([&] { return w().Form6.ClientWidth == 700; }));
}

TEST_F(RememberedTest, TheHeightOfTheDockComesBack) {
  Remember();
  Choice("MeasuredDock").trigger();
  QApplication::processEvents();
  Main().resizeDocks({&aids_->Measured()}, {260}, Qt::Vertical);
  QApplication::processEvents();
  ASSERT_EQ(aids_->Measured().height(), 260);
  Start_Again();
  QApplication::processEvents();
  EXPECT_EQ(aids_->Measured().height(), 260);
}

TEST_F(RememberedTest, RecentFilesAndTheFoldersOfTheDialogsComeBack) {
  Remember();
  SmallImage third;
  third.id = 3;
  site_.Folder().Make_Folder("c/data/flight");
  site_.Write_Image("flight/c", third);
  dialogs_.files.push_back((site_.Folder().Path() / "c/data/flight/c.hdr").string());
  Choose("Add_images_to_set");
  const QStringList lines = aids_->Recent().Lines();
  ASSERT_FALSE(lines.isEmpty());
  Start_Again();
  EXPECT_EQ(aids_->Recent().Lines(), lines);
  EXPECT_TRUE(desktop_->Dialogs()
                  .Last_Folders()
                  .at(QStringLiteral("Header file for an image"))
                  .endsWith("/c/data/flight"));
}

TEST_F(RememberedTest, APlaceOutsideTheScreensIsForgotten) {
  QSettings(File(), QSettings::IniFormat).setValue("Places/Form2", QPoint(90000, 90000));
  Remember();
  Choose("Open_Options_Window");
  EXPECT_LT(Window("Form2").x(), 90000);
}

}  // namespace
}  // namespace sylvomex
