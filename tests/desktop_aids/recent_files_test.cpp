// SPDX-License-Identifier: MIT
#include "desktop_aids/recent_files.h"

#include <QFileDialog>

#include "aids_fixture.h"
#include "support/flat_model.h"

namespace sylvomex {
namespace {

class RecentFilesTest : public AidedDesktop {
 protected:
  RecentFilesTest() {
    aids_.reset();
    Start({});
    aids_.emplace(*desktop_);
    Add_Two_Images();
  }

  QMenu& Menu() { return *Main().findChild<QMenu*>("RecentFiles"); }

  /// The lines of the menu as it opens.
  QStringList Shown() {
    emit Menu().aboutToShow();
    QStringList lines;
    for (const QAction* action : Menu().actions()) lines << action->text();
    return lines;
  }
};

TEST_F(RecentFilesTest, WhatWasOpenedStandsThereNewestFirst) {
  EXPECT_EQ(Shown(),
            (QStringList{"&1  b.hdr   Add an image to set", "&2  a.hdr   Add an image to set"}));
}

TEST_F(RecentFilesTest, ChoosingOneRunsItsCommandWithoutADialog) {
  Shown();
  const std::size_t asked = dialogs_.titles.size();
  Menu().actions().at(1)->trigger();
  EXPECT_EQ(w().ImageCount, 3);
  EXPECT_EQ(w().ImageBlock(2).ImageId, 1);
  EXPECT_EQ(dialogs_.titles.size(), asked);
  EXPECT_EQ(Shown().first(), "&1  a.hdr   Add an image to set");
  EXPECT_EQ(Shown().size(), 2);
}

TEST_F(RecentFilesTest, ACommandByItsKeyCountsToo) {
  SmallImage image;
  image.id = 3;
  site_.Write_Image("c", image);
  dialogs_.files.push_back((site_.Folder().Path() / "c/data/c.hdr").string());
  Press_Key(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(Shown().first(), "&1  c.hdr   Add an image to set");
}

TEST_F(RecentFilesTest, ADismissedDialogLeavesTheListAlone) {
  Choose("Add_images_to_set");
  EXPECT_EQ(Shown().size(), 2);
}

TEST_F(RecentFilesTest, AFileThatIsGoneIsGreyed) {
  std::filesystem::remove(site_.Folder().Path() / "c/data/a.hdr");
  Shown();
  EXPECT_TRUE(Menu().actions().at(0)->isEnabled());
  EXPECT_FALSE(Menu().actions().at(1)->isEnabled());
}

TEST_F(RecentFilesTest, TheTenNewestStay) {
  Write_Flat_Model(site_.Folder(), 5);
  for (int k = 0; k < 12; ++k) {
    const std::string name = "c/data/m" + std::to_string(k) + ".hdr";
    site_.Folder().Write(name, site_.Folder().Read("c/data/dem.hdr"));
    dialogs_.files.push_back((site_.Folder().Path() / name).string());
    Choose("Add_Raster_CHM");
  }
  const QStringList lines = Shown();
  ASSERT_EQ(lines.size(), 10);
  EXPECT_EQ(lines.first(), "&1  m11.hdr   Add Raster canopy height (CHM) model");
  EXPECT_TRUE(lines.last().startsWith("m2.hdr"));
}

TEST_F(RecentFilesTest, ADialogOpensInTheFolderOfItsOwnKind) {
  SmallImage image;
  image.id = 3;
  site_.Write_Image("c", image);
  Write_Flat_Model(site_.Folder(), 5);
  const auto other = site_.Folder().Path() / "c/data/models/dem.hdr";
  site_.Folder().Write("c/data/models/dem.hdr", site_.Folder().Read("c/data/dem.hdr"));
  dialogs_.files.push_back(other.string());
  Choose("Add_Raster_CHM");
  std::vector<std::string> folders;
  dialogs_.when_asked = [&](QDialog& asked) {
    if (auto* dialog = qobject_cast<QFileDialog*>(&asked)) {
      folders.push_back(dialog->directory().path().toStdString());
    }
  };
  Choose("Add_images_to_set");
  Choose("Add_Raster_CHM");
  ASSERT_EQ(folders.size(), 2u);
  EXPECT_TRUE(folders[0].ends_with("/c/data")) << folders[0];
  EXPECT_TRUE(folders[1].ends_with("/c/data/models")) << folders[1];
}

}  // namespace
}  // namespace sylvomex
