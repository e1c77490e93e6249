// SPDX-License-Identifier: MIT
// The menu Site and its dialogs, by mouse and keys, with the program itself behind them.
#include "desktop_site/site_menu.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <set>

#include "aids_fixture.h"
#include "desktop_site/site_words.h"
#include "platform/guest_files.h"
#include "support/las_files.h"

namespace sylvomex {
namespace {

constexpr const char* kTrees = "x,y,z,h\n385000.5,6672000.25,160,12.5\n385010,6672010,161,9\n";

class SiteMenuTest : public AidedDesktop {
 protected:
  SiteMenuTest() { menu_ = new SiteMenu(*desktop_, *aids_); }

  [[nodiscard]] std::filesystem::path Root() const { return site_.Folder().Path(); }

  QAction& Item(const std::string& words) {
    return *Main().findChild<QAction*>(QString::fromStdString("Site " + words));
  }

  /// Chooses an item of the opened menu.
  void Choose(const char* words) {
    auto& menu = *Main().findChild<QMenu*>("Site");
    menu.popup(Main().mapToGlobal(QPoint(200, 20)));
    QApplication::processEvents();
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&Item(words)).center());
    QApplication::processEvents();
  }

  SiteDialog& Open(const char* words) {
    Choose(words);
    for (SiteDialog* dialog : Main().findChildren<SiteDialog*>()) {
      if (dialog->windowTitle() == Site_Caption(Site_Command(words))) return *dialog;
    }
    throw std::runtime_error("no dialog");
  }

  static QPushButton& Button(SiteDialog& dialog, const char* text) {
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
      if (button->text() == text) return *button;
    }
    throw std::runtime_error("no such button");
  }
  static void Press(SiteDialog& dialog, const char* text) {
    QTest::mouseClick(&Button(dialog, text), Qt::LeftButton);
  }
  static void Type(SiteDialog& dialog, const char* field, const std::string& text) {
    auto* row = dialog.findChild<QWidget*>(field);
    auto* edit = qobject_cast<QLineEdit*>(row);
    QTest::keyClicks(edit != nullptr ? edit : row->findChild<QLineEdit*>(),
                     QString::fromStdString(text));
  }
  static std::string State(SiteDialog& dialog) {
    for (QLabel* label : dialog.findChildren<QLabel*>()) {
      if (label->accessibleName() == "State") return label->text().toStdString();
    }
    return "";
  }
  static std::string Messages(SiteDialog& dialog) {
    return dialog.findChild<QPlainTextEdit*>()->toPlainText().toStdString();
  }
  static bool Ends_With(SiteDialog& dialog, const std::string& state) {
    return QTest::qWaitFor([&] { return State(dialog) != "" && State(dialog) != "Running ..."; },
                           60000) &&
           State(dialog) == state;
  }

  void Make_Site() {
    SiteDialog& dialog = Open("init");
    Type(dialog, "--crs", "EPSG:3067");
    Press(dialog, "Run");
    ASSERT_TRUE(Ends_With(dialog, "Done.")) << State(dialog) << Messages(dialog);
    Press(dialog, "Close");
  }

  std::map<std::string, std::uintmax_t> Files() const {
    std::map<std::string, std::uintmax_t> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Root())) {
      files[entry.path().string()] = entry.is_regular_file() ? entry.file_size() : 0;
    }
    return files;
  }

  SiteMenu* menu_;  // of the main window
};

TEST_F(SiteMenuTest, StandsRightOfTheLastMenuAndTakesNoOthersLetter) {
  const QList<QAction*> actions = Main().menuBar()->actions();
  EXPECT_EQ(actions.constLast()->menu()->objectName(), "Site");
  std::set<QChar> letters;
  for (const QAction* action : actions) {
    const qsizetype mark = action->text().indexOf('&');
    if (mark < 0) continue;
    const QChar letter = action->text()[mark + 1].toUpper();
    EXPECT_FALSE(QStringLiteral("UDWENSMPL1234").contains(letter)) << action->text().toStdString();
    EXPECT_TRUE(letters.insert(letter).second) << action->text().toStdString();
  }
  EXPECT_EQ(Main().centralWidget()->size(), QSize(1000, 700));
}

TEST_F(SiteMenuTest, ARootIsMadeASiteFirst) {
  EXPECT_TRUE(Item("init").isEnabled());
  EXPECT_FALSE(Item("import dem").isEnabled());
  Make_Site();
  EXPECT_TRUE(std::filesystem::exists(Root() / "site.toml"));
  EXPECT_FALSE(Item("init").isEnabled());
  EXPECT_TRUE(Item("import dem").isEnabled());
}

TEST_F(SiteMenuTest, TheWindowAndAPaneAreSavedAsSvgAndPdf) {
  const std::filesystem::path window = Root() / "window.svg", pane = Root() / "pane.pdf";
  dialogs_.files.push_back(window.string());
  Choose("window");
  dialogs_.inputs.push_back(std::to_string(w().ImageBlock(1).ImageId));
  dialogs_.files.push_back(pane.string());
  Choose("pane");
  const std::string svg = site_.Folder().Read("window.svg");
  std::size_t pictures = 0;
  for (std::size_t at = svg.find("<image"); at != std::string::npos;
       at = svg.find("<image", at + 1))
    ++pictures;
  EXPECT_EQ(pictures, 2U);
  EXPECT_EQ(site_.Folder().Read("pane.pdf").rfind("%PDF-", 0), 0U);
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(SiteMenuTest, AWindowThatCannotBeSavedIsTold) {
  dialogs_.files.push_back((Root() / "none/window.svg").string());
  Choose("window");
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  EXPECT_NE(dialogs_.messages[0].find("none/window.svg"), std::string::npos);
}

TEST_F(SiteMenuTest, ADesktopThatOnlyReadsItsRootOffersExportsAlone) {
  Make_Site();
  const GuestFiles guest(Root(), GuestAccess::ReadsOnly);
  EXPECT_TRUE(Open("export").isVisible());
  for (const SiteCommand& command : Site_Commands()) {
    EXPECT_EQ(Item(command.words).isEnabled(), std::string_view(command.words) == "export")
        << command.words;
  }
}

TEST_F(SiteMenuTest, NothingRunsBeforeAllThatIsRequiredIsThere) {
  SiteDialog& dialog = Open("init");
  EXPECT_FALSE(Button(dialog, "Run").isEnabled());
  Type(dialog, "--crs", "E");
  EXPECT_TRUE(Button(dialog, "Run").isEnabled());
}

TEST_F(SiteMenuTest, ADialogBeginsInItsFirstFieldAndTabGoesOnInOrder) {
  SiteDialog& dialog = Open("init");
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog, 60000));
  EXPECT_EQ(dialog.focusWidget(), dialog.findChild<QLineEdit*>("--crs"));
  QTest::keyClicks(dialog.focusWidget(), "EPSG:3067");
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(dialog.focusWidget(), dialog.findChild<QPlainTextEdit*>());
}

TEST_F(SiteMenuTest, ImportsAFileThatTheFileDialogChose) {
  Make_Site();
  const std::string csv = site_.Folder().Write("trees.csv", kTrees).native.string();
  SiteDialog& dialog = Open("import trees");
  dialogs_.files.push_back(csv);
  Press(dialog, "Browse ...");
  Type(dialog, "--columns", "X=x,Y=y,Z=z,TreeHeight=h");
  Press(dialog, "Run");
  EXPECT_EQ(Button(dialog, "Cancel").text(), "Cancel");
  ASSERT_TRUE(Ends_With(dialog, "Done.")) << State(dialog) << Messages(dialog);
  EXPECT_NE(Messages(dialog).find("\ntrees: 2\n"), std::string::npos) << Messages(dialog);
  EXPECT_TRUE(std::filesystem::exists(Root() / "c/data/vektorit/trees_plot.txt"));
}

TEST_F(SiteMenuTest, ARefusalIsShownWithItsMessage) {
  Make_Site();
  const auto before = Files();
  SiteDialog& dialog = Open("import trees");
  Type(dialog, "FILE", "nowhere.csv");
  Type(dialog, "--columns", "TreeHeight=h");
  Press(dialog, "Run");
  EXPECT_TRUE(Ends_With(dialog, "Refused. The site is as it was.")) << State(dialog);
  EXPECT_NE(Messages(dialog).find("nowhere.csv"), std::string::npos);
  EXPECT_EQ(Files(), before);
}

TEST_F(SiteMenuTest, CancelLeavesTheSiteAsItWas) {
  Make_Site();
  TestLas las;
  las.count = 40'000'000;
  const std::string file = site_.Folder().Write("zeros.las", las.Bytes()).native.string();
  std::filesystem::resize_file(file, 227 + 40'000'000LL * 28);  // holes take no room on the disk
  const auto before = Files();
  SiteDialog& dialog = Open("import lidar");
  dialogs_.files.push_back(file);
  Press(dialog, "Add ...");
  ASSERT_EQ(dialog.findChild<QListWidget*>()->count(), 1);
  Press(dialog, "Run");
  EXPECT_FALSE(Button(dialog, "Run").isEnabled());
  auto& bar = *dialog.findChild<QProgressBar*>();
  ASSERT_TRUE(QTest::qWaitFor([&] { return bar.maximum() == 100 && bar.value() > 25; }, 60000))
      << State(dialog) << Messages(dialog);
  Press(dialog, "Cancel");
  ASSERT_TRUE(Ends_With(dialog, "Cancelled. The site is as it was.")) << State(dialog);
  EXPECT_EQ(Files(), before);
  EXPECT_TRUE(dialog.isVisible());
}

TEST_F(SiteMenuTest, ImportedPhotographsAreOpenedByTheCommandAndRecorded) {
  Start_Recorded("session.txt");
  menu_ = new SiteMenu(*desktop_, *aids_);
  Make_Site();
  const std::string table =
      site_.Folder()
          .Write("table.csv",
                 "name,width,height,f_mm,pixel_mm,x0_mm,y0_mm,omega,phi,kappa,"
                 "X0,Y0,Z0\nphoto,400,400,100,0.1,0,0,0,0,0,385000,6672000,900\n")
          .native.string();
  const std::string photo =
      site_.Folder()
          .Write("photo.pgm", "P5 400 400 255\n" + std::string(160000, '\x40'))
          .native.string();
  SiteDialog& dialog = Open("import images");
  Type(dialog, "TABLE", table);
  dialogs_.files.push_back(photo);
  Press(dialog, "Add ...");
  dialogs_.choice = QMessageBox::Yes;
  Press(dialog, "Run");
  ASSERT_TRUE(Ends_With(dialog, "Done.")) << State(dialog) << Messages(dialog);
  ASSERT_TRUE(Soon([&] { return w().ImageCount == 3; }));
  EXPECT_EQ(dialogs_.messages.back(), "Open the imported photograph in a pane?");
  EXPECT_EQ(dialogs_.texts_cut, 0);
  const std::string script = site_.Folder().Read("session.txt");
  EXPECT_NE(script.find("file c:\\data\\images\\photo.hdr\nmenu Add_images_to_set\n"),
            std::string::npos)
      << script;
}

TEST_F(SiteMenuTest, TheStripTellsPlacesInTheWorld) {
  Make_Site();
  const std::string csv = site_.Folder().Write("trees.csv", kTrees).native.string();
  SiteDialog& dialog = Open("import trees");
  Type(dialog, "FILE", csv);
  Type(dialog, "--columns", "X=x,Y=y,Z=z,TreeHeight=h");
  Press(dialog, "Run");
  ASSERT_TRUE(Ends_With(dialog, "Done.")) << Messages(dialog);
  const std::string toml = site_.Folder().Read("site.toml");
  w().Solution3D = {0, 0, 0};
  w().SolutionValid = -1;
  Point_At(0, 100, 100);
  const std::string place = Main().findChild<QLabel*>("StripPlace")->text().toStdString();
  ASSERT_NE(place.find("EPSG:3067"), std::string::npos) << place << toml;
  // X and Y of the world less those of the working system are the shift of the tree list.
  double X = 0, Y = 0, world_X = 0, world_Y = 0;
  ASSERT_EQ(std::sscanf(place.c_str(), "X %lf Y %lf", &X, &Y), 2) << place;
  ASSERT_EQ(std::sscanf(place.substr(place.find("EPSG")).c_str(), "EPSG:3067 %lf %lf", &world_X,
                        &world_Y),
            2);
  double shift_X = 0, shift_Y = 0;
  ASSERT_EQ(std::sscanf(toml.substr(toml.find("shift = ")).c_str(), "shift = [ %lf, %lf", &shift_X,
                        &shift_Y),
            2)
      << toml;
  EXPECT_NE(shift_X, 0);
  EXPECT_NEAR(world_X - X, shift_X, 1.01);
  EXPECT_NEAR(world_Y - Y, shift_Y, 1.01);
}

TEST_F(SiteMenuTest, EveryFieldHasALabelOfItsOwnThatFitsIntoALine) {
  constexpr int kLine = 50;
  for (const SiteCommand& command : Site_Commands()) {
    std::set<QString> labels;
    for (const SiteField& field : command.fields) {
      if (field.kind == SiteFieldKind::Site) continue;
      const QString label = Label_Of(command, field);
      EXPECT_NE(label.left(1), label.left(1).toLower()) << label.toStdString();
      EXPECT_NE(label, QString::fromUtf8(field.help)) << "no label: " << field.name;
      EXPECT_LT(label.size(), kLine) << label.toStdString();
      EXPECT_TRUE(labels.insert(label).second) << label.toStdString();
    }
    EXPECT_NE(Site_Caption(command), command.words);
  }
}

TEST_F(SiteMenuTest, TheBarIsShownFromTheFirstRunOn) {
  SiteDialog& dialog = Open("init");
  const auto& bar = *dialog.findChild<QProgressBar*>();
  EXPECT_FALSE(bar.isVisible());
  Type(dialog, "--crs", "EPSG:3067");
  Press(dialog, "Run");
  EXPECT_TRUE(bar.isVisible());
  EXPECT_TRUE(Ends_With(dialog, "Done."));
}

}  // namespace
}  // namespace sylvomex
