// SPDX-License-Identifier: MIT
#include <QProcess>

#include "desktop_fixture.h"
#include "session/step_end.h"

namespace sylvomex {
namespace {

using Beginning = DesktopTest;

TEST_F(Beginning, AScriptThatFailsIsReportedInABox) {
  const FilePath script = site_.Folder().Write("c/begin.txt", "say fine\nmenu No_Such_Item\n");
  desktop_->Begin_With(script.native);
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  EXPECT_EQ(dialogs_.messages[0].substr(0, 8), "--begin:");
  std::string message = dialogs_.messages[0];
  std::erase(message, '\n');
  EXPECT_NE(message.find("begin.txt:2:"), std::string::npos) << message;
}

TEST_F(Beginning, AScriptThatIsMissingIsReportedInABox) {
  desktop_->Begin_With("/nowhere/begin.txt");
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  EXPECT_NE(dialogs_.messages[0].find("cannot read the script"), std::string::npos);
}

TEST_F(Beginning, AScriptThatPlaysToItsEndReportsNothing) {
  const FilePath script = site_.Folder().Write("c/begin.txt", "set Text4 31\n");
  desktop_->Begin_With(script.native);
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_EQ(w().Form1.Text4.Text, "31");
}

// G and the space bar are keys of the panes, not letters of the box that was set last.
TEST_F(Beginning, AfterAScriptTheKeysGoToThePanes) {
  Add_Two_Images();
  const FilePath script =
      site_.Folder().Write("c/begin.txt", "menu Open_Options_Window\nclose Form2\nset Text4 31\n");
  desktop_->Begin_With(script.native);
  QTest::keyClick(Main().focusWidget(), Qt::Key_G);
  EXPECT_EQ(w().Form1.Text4.Text, "31");
  EXPECT_EQ(Main().focusWidget()->objectName(), "client");
}

/// The built program, with or without a display in its environment.
struct Ended {
  int status = -1;
  bool crashed = false;
  QString told;
};

Ended Run_Program(const QStringList& words, const QString& display) {
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    environment.remove(QLatin1String(name));
  }
  if (!display.isEmpty()) environment.insert(QStringLiteral("DISPLAY"), display);
  program.setProcessEnvironment(environment);
  program.start(QStringLiteral(SYLVOMEX_PROGRAM), words);
  if (!program.waitForFinished(60000)) program.kill();
  return {program.exitCode(), program.exitStatus() == QProcess::CrashExit,
          QString::fromUtf8(program.readAllStandardError())};
}

TEST(Program, WithoutADisplayEndsWithAMessage) {
  const Ended ended = Run_Program({}, {});
  EXPECT_FALSE(ended.crashed);
  EXPECT_EQ(ended.status, kStartFailed);
  EXPECT_TRUE(ended.told.contains("needs a display")) << ended.told.toStdString();
}

TEST(Program, WithADisplayThatDoesNotRespondEndsWithAMessage) {
  const SmallSite site;
  const QString root = QString::fromStdString(site.Folder().Path().string());
  const FilePath script = site.Folder().Write("c/script.txt", "say shown\n");
  const QString file = QString::fromStdString(script.native.string());
  for (const QStringList& words : {QStringList{}, QStringList{"--script", file, "--show"}}) {
    const Ended ended = Run_Program(QStringList{"--root", root} + words, QStringLiteral(":4711"));
    EXPECT_FALSE(ended.crashed);
    EXPECT_EQ(ended.status, kStartFailed);
    EXPECT_TRUE(ended.told.contains("needs a display")) << ended.told.toStdString();
  }
}

}  // namespace
}  // namespace sylvomex
