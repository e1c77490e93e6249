// SPDX-License-Identifier: MIT
// Files dropped on the window, by real drag and drop events.
#include "desktop_aids/file_drops.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

#include "aids_fixture.h"
#include "session/session.h"
#include "support/flat_model.h"
#include "support/map_files.h"

namespace sylvomex {
namespace {

class FileDropsTest : public AidedDesktop {
 protected:
  std::string Path(const char* name) { return (site_.Folder().Path() / name).string(); }

  /// Returns whether the window would take them.
  bool Drop(QWidget& on, const std::vector<const char*>& names) {
    QMimeData dragged;
    QList<QUrl> urls;
    for (const char* name : names) urls << QUrl::fromLocalFile(QString::fromStdString(Path(name)));
    dragged.setUrls(urls);
    QDragEnterEvent enter({20, 20}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
    enter.ignore();
    QApplication::sendEvent(&on, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop({20, 20}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(&on, &drop);
    QApplication::processEvents();
    return true;
  }

  /// Chooses in the menu that asks for the kind of a model, as soon as it is there.
  void Choose_In_Menu(qsizetype line) {
    auto* const look = new QTimer(&Main());
    QObject::connect(look, &QTimer::timeout, look, [this, look, line] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (menu == nullptr) return;
      look->stop();
      look->deleteLater();
      for (qsizetype k = 0; k < line; ++k) QTest::keyClick(menu, Qt::Key_Down);
      QTest::keyClick(menu, Qt::Key_Return);
      ++chosen_;
    });
    look->start(5);
  }

  int chosen_ = 0;  // lines of menus
};

TEST_F(FileDropsTest, HeadersOfImagesAreAddedInTheOrderOfTheirNames) {
  SmallImage image;
  image.id = 4;
  site_.Write_Image("d", image);
  image.id = 3;
  site_.Write_Image("c", image);
  ASSERT_TRUE(Drop(Main(), {"c/data/d.hdr", "c/data/c.hdr"}));
  ASSERT_EQ(w().ImageCount, 4);
  EXPECT_EQ(w().ImageBlock(2).ImageId, 3);
  EXPECT_EQ(w().ImageBlock(3).ImageId, 4);
  EXPECT_TRUE(dialogs_.titles.size() == 2u) << "only the fixture's own two file dialogs";
}

TEST_F(FileDropsTest, ATextBoxDoesNotTakeTheNameAsItsText) {
  SmallImage image;
  image.id = 3;
  site_.Write_Image("c", image);
  auto& box = Get<QLineEdit>("Text4");
  const QString text = box.text();
  ASSERT_TRUE(Drop(box, {"c/data/c.hdr"}));
  EXPECT_EQ(box.text(), text);
  EXPECT_EQ(w().ImageCount, 3);
}

TEST_F(FileDropsTest, ARasterModelIsOneOfTheGroundOrOfTheCanopyAsTheMenuIsAnswered) {
  Write_Flat_Model(site_.Folder(), 37);
  dialogs_.inputs = {"0"};
  Choose_In_Menu(1);
  ASSERT_TRUE(Drop(Main(), {"c/data/dem.hdr"}));
  ASSERT_TRUE(Soon([&] { return w().RasterDemLoaded; }));
  EXPECT_EQ(w().RasterDem.Cells[0], 37);
  EXPECT_EQ(w().RasterChm.columns, 0);
  Choose_In_Menu(2);
  ASSERT_TRUE(Drop(Main(), {"c/data/dem.hdr"}));
  EXPECT_TRUE(Soon([&] { return w().RasterChm.columns == 40; }));
}

TEST_F(FileDropsTest, AModelThatIsNotWantedIsNotAdded) {
  Write_Flat_Model(site_.Folder(), 37);
  Choose_In_Menu(3);
  ASSERT_TRUE(Drop(Main(), {"c/data/dem.hdr"}));
  ASSERT_TRUE(Soon([this] { return chosen_ == 1; }));
  QApplication::processEvents();
  EXPECT_FALSE(w().RasterDemLoaded);
  EXPECT_EQ(w().RasterChm.columns, 0);
}

TEST_F(FileDropsTest, NodesAloneAddTheirTin) {
  site_.Folder().Write("c/data/t.nod", "1000,1000,5\n1100,1000,5\n1000,1100,5\n");
  site_.Folder().Write("c/data/t.tri", "0,1,2\n");
  Choose_In_Menu(1);
  ASSERT_TRUE(Drop(Pane(0), {"c/data/t.nod"}));
  EXPECT_TRUE(Soon([&] { return w().TinDemLoaded; }));
}

TEST_F(FileDropsTest, AMapThatIsDroppedOnTheMapIsShownThere) {
  Write_Map(site_.Folder());
  Choose("Open_Map_Window");
  ASSERT_TRUE(Drop(Get<PictureWidget>("Picture1", "Form8"), {"c/data/map.hdr"}));
  EXPECT_EQ(w().Map.Header.MapWidth, kMapWidth);
  ASSERT_NE(w().Form8.Picture1.bitmap, nullptr);
  EXPECT_EQ(w().ImageCount, 2);
}

TEST_F(FileDropsTest, AMapThatIsDroppedOnThePanesOpensTheMapWindow) {
  Write_Map(site_.Folder());
  ASSERT_TRUE(Drop(Pane(0), {"c/data/map.hdr"}));
  EXPECT_TRUE(Window("Form8").isVisible());
  EXPECT_EQ(w().Map.Header.MapHeight, kMapHeight);
}

TEST_F(FileDropsTest, ImagesAndModelsCanBeDroppedOnTheMapAsOnThePanes) {
  SmallImage image;
  image.id = 3;
  site_.Write_Image("c", image);
  Write_Flat_Model(site_.Folder(), 37);
  dialogs_.inputs = {"0"};
  Choose("Open_Map_Window");
  Choose_In_Menu(1);
  ASSERT_TRUE(Drop(Get<PictureWidget>("Picture1", "Form8"), {"c/data/c.hdr", "c/data/dem.hdr"}));
  EXPECT_EQ(w().ImageCount, 3);
  EXPECT_TRUE(Soon([&] { return w().RasterDemLoaded; }));
}

TEST_F(FileDropsTest, ADropOnTheMapIsRecordedAsItsCommand) {
  Start_Recorded("session.txt");
  Write_Map(site_.Folder());
  Choose("Open_Map_Window");
  ASSERT_TRUE(Drop(Window("Form8"), {"c/data/map.hdr"}));
  const std::string script = site_.Folder().Read("session.txt");
  EXPECT_NE(script.find("file c:\\data\\map.hdr\nmenu Form8.Open_a_Map\n"), std::string::npos)
      << script;
}

TEST_F(FileDropsTest, AFileOfAnotherKindIsToldAndChangesNothing) {
  site_.Folder().Write("c/data/a.jpg", "");
  ASSERT_TRUE(Drop(Main(), {"c/data/a.jpg"}));
  ASSERT_EQ(dialogs_.messages.size(), 1u);
  EXPECT_NE(dialogs_.messages[0].find("neither the header of an image"), std::string::npos);
  EXPECT_EQ(w().ImageCount, 2);
}

TEST_F(FileDropsTest, ADropIsRecordedAsItsCommandAndPlaysBack) {
  Start_Recorded("session.txt");
  SmallImage image;
  image.id = 3;
  site_.Write_Image("c", image);
  ASSERT_TRUE(Drop(Main(), {"c/data/c.hdr"}));
  ASSERT_EQ(w().ImageCount, 3);
  const std::string script = site_.Folder().Read("session.txt");
  EXPECT_NE(script.find("file c:\\data\\c.hdr\nmenu Add_images_to_set\n"), std::string::npos)
      << script;
  site_.Folder().Write("again.txt", script + "print ImageCount\nprint ImageBlock(2).ImageId\n");
  std::ostringstream transcript, reasons;
  SessionOptions options;
  options.root = site_.Folder().Path();
  options.script = site_.Folder().Path() / "again.txt";
  std::istringstream in;
  EXPECT_EQ(Run_Session(options, {in, transcript, reasons, false}, {}), 0) << reasons.str();
  EXPECT_NE(transcript.str().find("ImageBlock(2).ImageId = 3"), std::string::npos)
      << transcript.str();
}

}  // namespace
}  // namespace sylvomex
