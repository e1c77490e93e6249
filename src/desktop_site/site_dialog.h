// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QJsonObject>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <filesystem>
#include <functional>

#include "desktop_site/site_fields.h"
#include "desktop_site/site_process.h"

namespace sylvomex {

/// One subcommand of sylvomex-site: what it is asked for, its progress and its messages. The
/// workstation can be used meanwhile.
class SiteDialog : public QDialog {
 public:
  /// done: called with what the subcommand has answered when it is done.
  SiteDialog(const SiteCommand& command, const std::filesystem::path& site, QWidget* owner,
             std::function<void(const QJsonObject&)> done);

  [[nodiscard]] SiteFields& Fields() { return *fields_; }

  /// Closes the dialog, or cancels the run that goes on.
  void reject() override;

 private:
  void Lay_Out_Below();
  void Run();
  void Refresh_Buttons();
  void Show_Progress(int percent);
  void Show_End(const SiteOutcome& outcome);
  void Take_Answer(const QJsonObject& answer);

  std::filesystem::path site_;
  std::function<void(const QJsonObject&)> done_;
  QFormLayout* form_;
  std::optional<SiteFields> fields_;
  SiteProcess process_;
  QProgressBar* progress_;
  QLabel* state_;
  QPlainTextEdit* messages_;
  QPushButton* run_;
  QPushButton* show_;  // the report, when one was written
  QPushButton* close_;
  QString report_;
};

}  // namespace sylvomex
