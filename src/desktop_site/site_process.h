// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <functional>

namespace sylvomex {

/// How a run of sylvomex-site ended.
struct SiteOutcome {
  enum class End { Done, Refused, Failed, Cancelled, FinishedAnyway, NotFound } end = End::Done;
  QByteArray output;  // one JSON object, when it came to that
};

/// Runs sylvomex-site beside the workstation, with its progress and its messages.
class SiteProcess {
 public:
  struct Listener {
    std::function<void(int)> progress;            // percent
    std::function<void(const QString&)> message;  // a line
    std::function<void(const SiteOutcome&)> ended;
  };

  SiteProcess(std::filesystem::path site, Listener listener);
  /// A run that goes on is cancelled.
  ~SiteProcess();
  SiteProcess(const SiteProcess&) = delete;
  SiteProcess& operator=(const SiteProcess&) = delete;

  void Start(const QStringList& arguments);

  /// Ends the program and what it has started; the site is then as it was, unless the import had
  /// come to the end, which is finished.
  void Cancel();

  [[nodiscard]] bool Is_Running() const { return process_.state() != QProcess::NotRunning; }

  /// Beside the workstation, else as the search path finds it.
  static QString Program();

 private:
  void Read_Messages();
  void End(const SiteOutcome& outcome);
  void Has_Finished(int status, bool is_normal);
  SiteOutcome::End Tidy_Up() const;

  std::filesystem::path site_;
  Listener listener_;
  QProcess process_;
  bool cancelled_ = false;
};

}  // namespace sylvomex
