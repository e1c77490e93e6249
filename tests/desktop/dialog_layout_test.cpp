// SPDX-License-Identifier: MIT
#include "desktop/dialog_layout.h"

#include <QScreen>
#include <QTreeView>

#include "desktop/wrapped_text.h"
#include "desktop_fixture.h"

namespace sylvomex {
namespace {

QFontMetrics Letters() { return QFontMetrics(QFont(QStringLiteral("Liberation Sans"), 9)); }

int Width_Of(const char* text) { return Letters().horizontalAdvance(QString::fromLatin1(text)); }

QString Wrapped(const char* text, int width) {
  return Wrapped_Text(QString::fromUtf8(text), Letters(), width);
}

TEST(WrappedText, ShortTextStaysAsItIs) {
  EXPECT_EQ(Wrapped("one two", Width_Of("one two")), "one two");
  EXPECT_EQ(Wrapped("", 10), "");
}

TEST(WrappedText, BreaksAtTheLastBlankThatFits) {
  EXPECT_EQ(Wrapped("one two three", Width_Of("one two th")), "one two\nthree");
}

TEST(WrappedText, LineEndsOfTheTextStay) {
  EXPECT_EQ(Wrapped("one\n\ntwo three", Width_Of("two thre")), "one\n\ntwo\nthree");
}

TEST(WrappedText, PathsBreakBehindSlashesOfBothKinds) {
  EXPECT_EQ(Wrapped("c:\\data\\images\\a.hdr", Width_Of("c:\\data\\image")),
            "c:\\data\\\nimages\\a.hdr");
  EXPECT_EQ(Wrapped("/home/data/images/a.hdr", Width_Of("/home/data/ima")),
            "/home/data/\nimages/a.hdr");
}

TEST(WrappedText, AWordWiderThanTheLineIsSplit) {
  const QString wrapped = Wrapped("mmmmmmmmmm", Width_Of("mmmm"));
  EXPECT_EQ(wrapped, "mmmm\nmmmm\nmm");
}

TEST(WrappedText, ALineHasAtLeastOneLetter) { EXPECT_EQ(Wrapped("mm", 1), "m\nm"); }

TEST(WrappedText, SurrogatePairsAreNotSplit) {
  const QString trees = QString::fromUtf8("\U0001F332\U0001F332\U0001F332");
  const int one_and_a_half = Letters().horizontalAdvance(trees) / 2;
  for (const QString& line : Wrapped_Text(trees, Letters(), one_and_a_half).split('\n')) {
    EXPECT_FALSE(line.front().isLowSurrogate());
    EXPECT_FALSE(line.back().isHighSurrogate());
  }
}

// For any width, nothing is lost except blanks at the breaks, and no line is too wide.
TEST(WrappedText, KeepsEveryLetterAndEveryLineFits) {
  const QString text = QStringLiteral(
      "File not found: /home/researcher/sites/spruce stand "
      "14/c/data/images/2004/line_3/photo_0417.hdr");
  for (int width = Width_Of("mmm"); width < 700; width += 7) {
    const QString wrapped = Wrapped_Text(text, Letters(), width);
    EXPECT_LE(Widest_Line(wrapped, Letters()), width);
    QString letters = wrapped;
    EXPECT_EQ(letters.remove('\n').remove(' '), QString(text).remove(' ')) << width;
  }
}

using DialogTexts = DesktopTest;

std::string Long_Path() {
  std::string path = "/home";
  for (int k = 0; k < 40; ++k) path += "/a folder of some length " + std::to_string(k);
  return path;
}

TEST_F(DialogTexts, MessagesOfAnyLengthAreShownWhole) {
  for (int words = 1; words < 200; words += 13) {
    std::string text;
    for (int k = 0; k < words; ++k) text += "word" + std::to_string(k * k) + " ";
    w().screen->Message_Box(text);
  }
  w().screen->Message_Box("cannot read " + Long_Path(), Buttons::YesNo);
  w().screen->Message_Box(std::string(1000, 'm'));
  EXPECT_EQ(dialogs_.texts_cut, 0);
}

TEST_F(DialogTexts, ErrorsAndTheirPathsAreShownWhole) {
  w().screen->Report_Error("Add_images_to_set", "File not found: c:\\data\\a.hdr", Long_Path());
  w().screen->Report_Error("Add_images_to_set", "File not found: " + Long_Path(), Long_Path());
  EXPECT_EQ(dialogs_.texts_cut, 0);
}

TEST_F(DialogTexts, PromptsOfInputBoxesAreShownWhole) {
  dialogs_.inputs = {"1", "2"};
  EXPECT_EQ(w().screen->Input_Box("Give <the> number & the path: " + Long_Path()), "1");
  EXPECT_EQ(w().screen->Input_Box("first line\nsecond line"), "2");
  EXPECT_EQ(dialogs_.texts_cut, 0);
}

TEST_F(DialogTexts, BoxesAreWiderThanTheirTitles) {
  const QString title = QStringLiteral("Header file for a correlation image of the second stand");
  QMessageBox box(QMessageBox::NoIcon, title, QStringLiteral("ok?"), QMessageBox::Ok);
  Lay_Out(box);
  box.show();
  EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(title) + 100);
  QInputDialog input;
  input.setWindowTitle(title);
  input.setLabelText(QStringLiteral("n"));
  Lay_Out(input);
  input.show();
  EXPECT_GT(input.width(), input.fontMetrics().horizontalAdvance(title) + 100);
}

TEST_F(DialogTexts, NoBoxIsWiderThanTheScreen) {
  QMessageBox box(QMessageBox::NoIcon, QString(500, 'm'), QString(5000, 'm'), QMessageBox::Ok);
  Lay_Out(box);
  box.show();
  EXPECT_LE(box.width(), box.screen()->availableSize().width());
}

TEST(DialogLayout, AFileDialogShowsSizesAndDatesInFull) {
  const TemporaryFolder folder;
  folder.Write("a_name_of_some_length.hdr", std::string(318, 'x'));
  QFileDialog dialog(nullptr, "Header file for an image",
                     QString::fromStdString(folder.Path().string()));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  Lay_Out(dialog);
  dialog.show();
  auto& files = *dialog.findChild<QTreeView*>("treeView");
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return files.model()->rowCount(files.rootIndex()) == 1; }, 60000));
  QApplication::processEvents();
  for (int column = 0; column < files.model()->columnCount(); ++column) {
    if (files.isColumnHidden(column)) continue;
    const QModelIndex index = files.model()->index(0, column, files.rootIndex());
    const QString text = index.data().toString();
    EXPECT_GE(files.columnWidth(column), files.fontMetrics().horizontalAdvance(text))
        << text.toStdString();
  }
}

TEST(FittingSize, GrowsWithTheLetters) {
  const QFont usual = QApplication::font();
  QFont twice = Control_Font();
  twice.setPixelSize(2 * twice.pixelSize());
  QApplication::setFont(twice);
  EXPECT_EQ(Fitting_Size(QWidget(), {100, 80}), QSize(200, 160));
  QApplication::setFont(usual);
  EXPECT_EQ(Fitting_Size(QWidget(), {100, 80}), QSize(100, 80));
}

TEST(FittingSize, IsTheWantedOneOrWhatTheScreenHasRoomFor) {
  const QWidget owner;
  const QSize room = owner.screen()->availableSize();
  EXPECT_EQ(Fitting_Size(owner, {300, 200}), QSize(300, 200));
  const QSize fitting = Fitting_Size(owner, room * 2);
  EXPECT_LT(fitting.width(), room.width()) << "the frame needs a part of it";
  EXPECT_LT(fitting.height(), room.height());
}

}  // namespace
}  // namespace sylvomex
