// SPDX-License-Identifier: MIT
// Commands that last: their bar, their end by the operator, and what waits meanwhile.
#include "desktop_aids/long_commands.h"

#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <functional>

#include "aids_fixture.h"
#include "history/measuring_dump.h"
#include "support/flat_model.h"

namespace sylvomex {
namespace {

class LongCommandsTest : public DesktopTest {
 protected:
  LongCommandsTest() {
    desktop_ = std::make_unique<Desktop>(DesktopOptions{
        site_.Drives(), QSize(1000, 700), site_.Folder().Path() / "record.txt", [] {}, false});
    desktop_->Start();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Main(), 60000));
    Add_Two_Images();
    aids_.emplace(*desktop_);
    site_.Folder().Make_Folder("d");
    // Seconds of work: a hundred circles that all cover the same 900 x 900 pixels.
    std::string circles;
    for (int k = 0; k < 100; ++k) circles += k % 2 == 0 ? "-40,-40,0,1,90\n" : "40,40,0,2,90\n";
    site_.Folder().Write("c/data/circles.txt", circles);
    // Every look of the bar at its clock comes later than the one before, however fast the machine.
    Bar().Use_Clock([this] { return bar_seconds_ += 0.1; });
    look_.setInterval(20);
    QObject::connect(&look_, &QTimer::timeout, [this] { Look(); });
  }

  /// Runs the command; when_shown is called while the bar is there, until it returns true.
  void Run(std::function<bool()> when_shown) {
    when_shown_ = std::move(when_shown);
    look_.start();
    dialogs_.files.push_back((site_.Folder().Path() / "c/data/circles.txt").string());
    OperatorEvent event;
    event.kind = OperatorEvent::Kind::Command;
    event.control = "Create_Zonal";
    desktop_->Dispatch(event);
    steps_to_end_ = asked_at_ ? Work_Steps() - *asked_at_ : -1;
    look_.stop();
  }

  ProgressBar& Bar() { return aids_->Below().Progress(); }
  QPushButton& Cancel() { return *Bar().findChild<QPushButton*>("CancelCommand"); }
  QString Message() { return Main().findChild<QLabel*>("StripMessage")->toolTip(); }  // whole

  bool Press_Cancel() {
    asked_at_ = Work_Steps();
    QTest::mouseClick(&Cancel(), Qt::LeftButton);
    return true;
  }

  std::optional<Aids> aids_;
  std::optional<long> asked_at_;  // steps of the work
  long steps_to_end_ = -1;

 private:
  void Look() {
    if (!when_shown_ || !Bar().isVisible()) return;
    if (when_shown_()) when_shown_ = {};
  }

  double bar_seconds_ = 0;
  QTimer look_;
  std::function<bool()> when_shown_;
};

TEST_F(LongCommandsTest, TheBarTellsShareAndTimeLeftAndSoDoesTheTitle) {
  const QString title = Main().windowTitle();
  const auto& share = *Bar().findChild<QProgressBar*>("ProgressShare");
  QString shown, led;
  int value = -1;
  Run([&] {
    if (share.value() < 10) return false;
    shown = share.text();
    led = Main().windowTitle();
    value = share.value();
    return Press_Cancel();
  });
  EXPECT_GE(value, 10);
  EXPECT_TRUE(shown.startsWith(QString::number(value) + " %, ")) << shown.toStdString();
  EXPECT_TRUE(shown.endsWith(" s left")) << shown.toStdString();
  EXPECT_EQ(led, QString::number(value) + " % - " + title);
  EXPECT_EQ(Main().windowTitle(), title);
  EXPECT_FALSE(Bar().isVisible());
}

TEST_F(LongCommandsTest, CancelLeavesTheBlockAndTheFilesAndIsTold) {
  const std::string before = Block_Dump(w());
  Run([this] { return Press_Cancel(); });
  EXPECT_EQ(steps_to_end_, 0);
  EXPECT_EQ(Block_Dump(w()), before);
  EXPECT_FALSE(site_.Folder().Has("d/1_Zonal.raw"));
  EXPECT_TRUE(Message().startsWith("Cancelled: ")) << Message().toStdString();
  EXPECT_EQ(w().Form1.MousePointer, PointerShape::Normal);
}

TEST_F(LongCommandsTest, EscapeCancels) {
  Run([this] {
    asked_at_ = Work_Steps();
    QTest::keyClick(&Main(), Qt::Key_Escape);
    return true;
  });
  EXPECT_EQ(steps_to_end_, 0);
  EXPECT_TRUE(Message().startsWith("Cancelled: ")) << Message().toStdString();
}

TEST_F(LongCommandsTest, ClicksAndKeysOnTheWindowWaitForTheEnd) {
  const std::string radius = w().Form1.Text4.Text;
  std::string text_meanwhile, check_meanwhile;
  int looks = 0;
  Run([&] {
    if (looks == 0) {
      Click_Pane(0, 50, 60);
      QTest::keyClick(&Get<QLineEdit>("Text4"), Qt::Key_7);
    }
    if (++looks < 5) return false;
    text_meanwhile = w().Form1.Text4.Text;
    check_meanwhile = std::to_string(w().Form1.Check1(0).Value);
    return Press_Cancel();
  });
  EXPECT_EQ(text_meanwhile, radius);
  EXPECT_EQ(check_meanwhile, "0");
  EXPECT_TRUE(Soon([this] { return w().Form1.Check1(0).Value == 1; }));
  EXPECT_TRUE(Soon([&] { return w().Form1.Text4.Text != radius; }));
}

TEST_F(LongCommandsTest, WhatStandsAboveTheBarKeepsItsLook) {
  QApplication::processEvents();
  const QRect boxes(0, Main().menuBar()->height(), 600, 90);
  const auto seen = [&] {
    return Main().screen()->grabWindow(Main().winId()).toImage().copy(boxes);
  };
  const QImage before = seen();
  QImage meanwhile;
  int looks = 0;
  Run([&] {
    if (++looks < 5) return false;
    meanwhile = seen();
    return Press_Cancel();
  });
  ASSERT_FALSE(before.isNull());
  EXPECT_EQ(meanwhile, before);
}

TEST_F(LongCommandsTest, WhileAQuestionWaitsThereIsNoBar) {
  const QString title = Main().windowTitle();
  bool had_bar = true;
  QString title_meanwhile;
  int looks = 0;
  Run([&] {
    if (++looks == 2) return Press_Cancel();
    QDialog question;
    question.setModal(true);
    question.show();
    had_bar = Bar().isVisible();
    title_meanwhile = Main().windowTitle();
    return false;
  });
  EXPECT_FALSE(had_bar);
  EXPECT_EQ(title_meanwhile, title);
  EXPECT_EQ(looks, 2) << "the bar comes back after the answer";
}

TEST_F(LongCommandsTest, ACancelledCommandIsRecorded) {
  Run([this] { return Press_Cancel(); });
  aids_.reset();
  desktop_.reset();
  const std::string record = site_.Folder().Read("record.txt");
  const std::size_t at = record.find("cancelled ");
  ASSERT_NE(at, std::string::npos) << record;
  EXPECT_NE(record.find(" command Create_Zonal\n", at), std::string::npos) << record;
}

TEST_F(LongCommandsTest, AShortCommandShowsNoBar) {
  Click_Pane(0, 50, 60);
  Choose("Clear_all");
  EXPECT_FALSE(Bar().isVisible());
  EXPECT_FALSE(Bar().Is_Running());
}

TEST_F(LongCommandsTest, ADismissedDialogIsNoErrorButAWord) {
  const std::size_t messages = dialogs_.messages.size();
  Choose("Add_height_Model");
  EXPECT_EQ(dialogs_.messages.size(), messages);
  EXPECT_EQ(Message(), "Dismissed: Header file for a height model");
}

TEST_F(LongCommandsTest, AnOrthoimageWithoutANameIsNotDiscardedWithoutAWord) {
  Write_Flat_Model(site_.Folder(), 160);
  dialogs_.files.push_back((site_.Folder().Path() / "c/data/dem.hdr").string());
  dialogs_.inputs = {"0"};
  Choose("Add_height_Model");
  dialogs_.inputs = {"0", "-10", "-10", "20", "20", "1", "160"};  // and no name
  Choose("Orto");
  EXPECT_EQ(Message(),
            "Dismissed: Give filename for the raw-file; without a name nothing is written");
}

TEST_F(LongCommandsTest, AMessageForEveryTriangleComesOnceAndAtTheEndWithItsNumber) {
  // Every triangle begins west of X = 20, each of which gives a message.
  std::string nodes, triangles;
  for (int k = 0; k < 12; ++k) {
    nodes += std::to_string(k % 2 * 10) + "," + std::to_string(k * 5) + ",30\n";
  }
  for (int k = 0; k < 10; ++k) {
    triangles +=
        std::to_string(k) + "," + std::to_string(k + 1) + "," + std::to_string(k + 2) + "\n";
  }
  site_.Folder().Write("c/data/t.nod", nodes);
  site_.Folder().Write("c/data/t.tri", triangles);
  for (const char* name : {"c/data/t.nod", "c/data/t.tri"}) {
    dialogs_.files.push_back((site_.Folder().Path() / name).string());
  }
  dialogs_.messages.clear();
  Choose("Add_Tin");
  ASSERT_EQ(dialogs_.messages.size(), 2u);
  EXPECT_EQ(dialogs_.messages[0], "!");
  EXPECT_EQ(dialogs_.messages[1], "!\n\nThis message came 9 more times.");
  EXPECT_NE(dialogs_.details[1].find("t.tri, triangle 10"), std::string::npos)
      << dialogs_.details[1];
}

TEST_F(LongCommandsTest, ThePaletteListsTheAidsAndTurnsThem) {
  CommandPalette& palette = aids_->Palette();
  palette.Bring_Up();
  auto& typed = *palette.findChild<QLineEdit*>();
  const auto& list = *palette.findChild<QListWidget*>();
  QTest::keyClicks(&typed, "frames panes");
  ASSERT_NE(list.currentItem(), nullptr);
  EXPECT_TRUE(list.currentItem()->text().contains("Frames of the panes  (on)"))
      << list.currentItem()->text().toStdString();
  QTest::keyClick(&typed, Qt::Key_Return);
  EXPECT_FALSE(Main().findChild<QAction*>("AidFrames")->isChecked());
}

TEST(RepeatedMessages, WordingsDifferInMoreThanTheirNumbers) {
  RepeatedMessages messages;
  EXPECT_TRUE(messages.Is_To_Be_Shown("triangle 7 is flat", {}));
  EXPECT_FALSE(messages.Is_To_Be_Shown("triangle 12 is flat", "a.tri"));
  EXPECT_TRUE(messages.Is_To_Be_Shown("triangle 12 is steep", {}));
  const auto counted = messages.Take();
  ASSERT_EQ(counted.size(), 1u);
  EXPECT_EQ(counted[0].last, "triangle 12 is flat");
  EXPECT_EQ(counted[0].times, 1);
  EXPECT_EQ(counted[0].texts, QStringList{"triangle 12 is flat: a.tri"});
  EXPECT_TRUE(messages.Is_To_Be_Shown("triangle 7 is flat", {}));
}

TEST(DurationText, HasTheTwoUnitsThatMatter) {
  EXPECT_EQ(Duration_Text(0.2), "1 s");
  EXPECT_EQ(Duration_Text(59), "59 s");
  EXPECT_EQ(Duration_Text(200), "3 min 20 s");
  EXPECT_EQ(Duration_Text(7500), "2 h 5 min");
}

TEST(ProgressBar, TellsOfWhatLastsHalfASecond) {
  ProgressBar bar;
  double seconds = 100;
  bar.Use_Clock([&] { return seconds; });
  QString lead = "none";
  int cancels = 0;
  bar.Begin(
      "import", [&] { ++cancels; }, [&](const QString& text) { lead = text; });
  seconds = 100.49;
  bar.Update(0.5);
  EXPECT_FALSE(bar.isVisible());
  seconds = 100.5;
  bar.Update(0.25);
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(lead, "25 % - ");
  QTest::mouseClick(bar.findChild<QPushButton*>("CancelCommand"), Qt::LeftButton);
  bar.Ask_For_Cancel();
  EXPECT_EQ(cancels, 1);
  bar.End();
  EXPECT_FALSE(bar.isVisible());
  EXPECT_EQ(lead, "");
}

TEST(ProgressBar, TheTimeOfAQuestionIsNoPartOfTheTimeLeft) {
  ProgressBar bar;
  double seconds = 100;
  bar.Use_Clock([&] { return seconds; });
  const auto& share = *bar.findChild<QProgressBar*>("ProgressShare");
  bar.Begin("ortho", [] {});
  seconds = 110;
  bar.Update(0.5);
  EXPECT_EQ(share.text(), "50 %, 10 s left");
  bar.Rest();
  EXPECT_FALSE(bar.isVisible());
  seconds = 1700;
  bar.Update(0.5);
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(share.text(), "50 %") << "nothing is known of the time yet";
  seconds = 1704;
  bar.Update(0.75);
  EXPECT_EQ(share.text(), "75 %, 4 s left");
  bar.End();
}

}  // namespace
}  // namespace sylvomex
