// SPDX-License-Identifier: MIT
#include "desktop_site/site_process.h"

#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <exception>
#include <utility>

#include "desktop/qt_text.h"
#include "interchange/killed_import.h"

namespace sylvomex {
namespace {

constexpr int kPatience = 5000;  // milliseconds
const QString kName = QStringLiteral("sylvomex-site");

SiteOutcome::End End_Of(int status) {
  switch (status) {
    case 0:
      return SiteOutcome::End::Done;
    case 1:
    case 2:
      return SiteOutcome::End::Refused;
    default:
      return SiteOutcome::End::Failed;
  }
}

}  // namespace

QString SiteProcess::Program() {
  const QString beside = QCoreApplication::applicationDirPath() + QLatin1Char('/') + kName;
  return QFileInfo(beside).isExecutable() ? beside : kName;
}

SiteProcess::SiteProcess(std::filesystem::path site, Listener listener)
    : site_(std::move(site)), listener_(std::move(listener)) {
  // A group of its own, so that what it starts ends with it.
  process_.setChildProcessModifier([] { setpgid(0, 0); });
  QObject::connect(&process_, &QProcess::readyReadStandardError, &process_,
                   [this] { Read_Messages(); });
  QObject::connect(&process_, &QProcess::errorOccurred, &process_,
                   [this](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) End({SiteOutcome::End::NotFound, {}});
                   });
  QObject::connect(&process_, &QProcess::finished, &process_,
                   [this](int status, QProcess::ExitStatus how) {
                     Has_Finished(status, how == QProcess::NormalExit);
                   });
}

SiteProcess::~SiteProcess() {
  listener_ = {};
  if (!Is_Running()) return;
  Cancel();
  process_.waitForFinished(kPatience);
}

void SiteProcess::Start(const QStringList& arguments) {
  cancelled_ = false;
  process_.start(Program(),
                 QStringList{QStringLiteral("--json"), QStringLiteral("--progress")} + arguments);
}

void SiteProcess::Cancel() {
  if (!Is_Running() || cancelled_) return;
  cancelled_ = true;
  ::kill(-static_cast<pid_t>(process_.processId()), SIGKILL);
}

void SiteProcess::Read_Messages() {
  process_.setReadChannel(QProcess::StandardError);
  while (process_.canReadLine()) {
    const QString line = QString::fromUtf8(process_.readLine()).trimmed();
    const QString mark = QStringLiteral("progress ");
    if (line.startsWith(mark)) {
      if (listener_.progress) listener_.progress(line.mid(mark.size()).toInt());
    } else if (listener_.message) {
      listener_.message(line);
    }
  }
}

void SiteProcess::Has_Finished(int status, bool is_normal) {
  Read_Messages();
  SiteOutcome outcome{is_normal ? End_Of(status) : SiteOutcome::End::Failed,
                      process_.readAllStandardOutput()};
  if (!is_normal) outcome.end = Tidy_Up();
  End(outcome);
}

/// After a kill: what the program has left goes, or is finished when that was decided.
SiteOutcome::End SiteProcess::Tidy_Up() const try {
  const bool was_decided = exists(site_ / kImportFolder / kImportDecision);
  Finish_Killed_Import(site_);
  if (was_decided) return SiteOutcome::End::FinishedAnyway;
  return cancelled_ ? SiteOutcome::End::Cancelled : SiteOutcome::End::Failed;
} catch (const std::exception& failure) {
  if (listener_.message) listener_.message(Qt_Text(failure.what()));
  return SiteOutcome::End::Failed;
}

void SiteProcess::End(const SiteOutcome& outcome) {
  if (listener_.ended) listener_.ended(outcome);
}

}  // namespace sylvomex
