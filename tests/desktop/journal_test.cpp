// SPDX-License-Identifier: MIT
// The journal of a desktop's session, and a desktop that goes on in one.
#include <QAbstractButton>
#include <QMessageBox>

#include "desktop/start_questions.h"
#include "desktop_fixture.h"

namespace sylvomex {
namespace {

class DesktopJournal : public DesktopTest {
 protected:
  DesktopJournal() { Begin(); }

  [[nodiscard]] FilePath Journal() const { return site_.Folder().File("session.journal"); }
  [[nodiscard]] std::string Text() const { return site_.Folder().Read("session.journal"); }

  /// A desktop with a new journal.
  void Begin() {
    DesktopOptions options = Options();
    options.journal = Journal();
    Start_With(std::move(options));
  }

  /// As after a crash: the desktop goes without a word, another one goes on.
  void Crash_And_Go_On() {
    desktop_.reset();
    DesktopOptions options = Options();
    options.unfinished = Read_Unfinished_Journal(Journal(), site_.Folder().Path());
    Start_With(std::move(options));
  }

  DesktopOptions Options() {
    return {site_.Drives(), QSize(1000, 700), {}, [this] { ++ends_; }, false};
  }

  void Start_With(DesktopOptions options) {
    desktop_.reset();
    desktop_ = std::make_unique<Desktop>(std::move(options));
    desktop_->Start();
    EXPECT_TRUE(Soon([this] { return Main().isVisible(); }));
    Main().activateWindow();
  }
};

TEST_F(DesktopJournal, WritesEveryEventWithItsAnswers) {
  Add_Two_Images();
  Click_Pane(0, 100, 50);
  EXPECT_TRUE(Text().starts_with("journal 1\nroot " + site_.Folder().Path().string() +
                                 "\nsize 1000 700\nseed "));
  EXPECT_NE(Text().find("\nhistory on\n"), std::string::npos);
  const std::size_t added = Text().find("\nmenu Add_images_to_set\n");
  const std::size_t answered = Text().find("a.hdr", added);
  const std::size_t ended = Text().find("\nend done\n", answered);
  EXPECT_LT(added, answered);
  EXPECT_LT(answered, ended);
  EXPECT_NE(Text().find("\nclick Picture1(0) 100 50\n"), std::string::npos);
}

TEST_F(DesktopJournal, GoesOnWhereItStopped) {
  Add_Two_Images();
  Click_Pane(0, 100, 50);
  Click_Pane(1, 60, 50);
  Press_Key(Qt::Key_U);
  const Point3D solution = w().Solution3D;
  const std::string observation = w().Form1.Text1(0).Text;
  ASSERT_FALSE(observation.empty());
  dialogs_.messages.clear();
  Crash_And_Go_On();
  EXPECT_EQ(w().ImageCount, 2);
  EXPECT_EQ(w().Solution3D.Z, solution.Z);
  EXPECT_EQ(w().Form1.Text1(0).Text, observation);
  EXPECT_TRUE(Get<QLineEdit>("Text1(0)").text().toStdString() == observation);
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  EXPECT_NE(dialogs_.messages.front().find("done again"), std::string::npos);
}

TEST_F(DesktopJournal, OneThatCannotBeBegunIsToldOnceWhenSomethingIsDone) {
  DesktopOptions options = Options();
  options.journal = site_.Folder().File("nowhere/session.journal");
  Start_With(std::move(options));
  dialogs_.messages.clear();
  Press_Key(Qt::Key_U);
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  EXPECT_NE(dialogs_.messages.front().find(
                "what is done from here cannot be recovered: nowhere/session.journal"),
            std::string::npos)
      << dialogs_.messages.front();
  Press_Key(Qt::Key_D);
  EXPECT_EQ(dialogs_.messages.size(), 1U);
}

TEST_F(DesktopJournal, GoesOnWithUndo) {
  Press_Key(Qt::Key_U);
  Press_Key(Qt::Key_U);
  Crash_And_Go_On();
  ASSERT_NE(desktop_->Kept(), nullptr);
  OperatorEvent undo;
  undo.kind = OperatorEvent::Kind::Undo;
  desktop_->Dispatch(undo);
  EXPECT_EQ(w().Solution3D.Z, 1);
  Crash_And_Go_On();
  EXPECT_EQ(w().Solution3D.Z, 1);
}

TEST_F(DesktopJournal, IsClosedByExit) {
  dialogs_.choice = QMessageBox::Ok;
  Choose("Exit");
  EXPECT_EQ(ends_, 1);
  EXPECT_TRUE(Text().ends_with("\nbutton ok\nexit\n")) << Text();
}

TEST_F(DesktopJournal, WithoutAPlaceTheDesktopStartsAllTheSame) {
  DesktopOptions options = Options();
  options.journal = site_.Folder().File("no/such/folder.journal");
  Start_With(std::move(options));
  Press_Key(Qt::Key_U);
  EXPECT_EQ(w().Solution3D.Z, 1);
}

TEST_F(DesktopJournal, QuestionIsAnsweredByYesAndNo) {
  UnfinishedJournal unfinished;
  dialogs_.choice = QMessageBox::Yes;
  EXPECT_TRUE(Ask_Whether_To_Go_On(unfinished));
  dialogs_.choice = QMessageBox::No;
  EXPECT_FALSE(Ask_Whether_To_Go_On(unfinished));
}

/// Presses the letter of a button in the box that opens.
UsedRootAnswer Answer_With(Qt::Key letter) {
  QTimer press;
  QObject::connect(&press, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box != nullptr && box->isActiveWindow()) QTest::keyClick(box, letter, Qt::AltModifier);
  });
  press.start(5);
  return Ask_About_Used_Root("/site", "process 5");
}

TEST(UsedRoot, LeavesThreeWays) {
  EXPECT_EQ(Answer_With(Qt::Key_A), UsedRootAnswer::AnotherRoot);
  EXPECT_EQ(Answer_With(Qt::Key_O), UsedRootAnswer::OnlyShow);
  EXPECT_EQ(Answer_With(Qt::Key_Q), UsedRootAnswer::Quit);
}

}  // namespace
}  // namespace sylvomex
