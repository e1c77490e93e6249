// SPDX-License-Identifier: MIT
#include "desktop_site/site_dialog.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QJsonDocument>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "desktop/dialog_layout.h"
#include "desktop/qt_text.h"
#include "desktop_site/site_result.h"
#include "desktop_site/site_words.h"

namespace sylvomex {
namespace {

constexpr int kLeastMessageLines = 3;

constexpr QSize kRoomy(480, 220);  // pixels

QString Start_Folder(const SiteCommand& command, const std::filesystem::path& site) {
  const bool takes_from_site = std::string_view(command.words) == "export";
  return Qt_Text((takes_from_site ? site / "c" / "data" : site).string());
}

/// As it is typed: words with blanks or quotes in quotes.
QString Command_Line(const QStringList& arguments) {
  QString line = QStringLiteral("sylvomex-site");
  for (QString word : arguments) {
    const bool is_plain = !word.contains(QRegularExpression(QStringLiteral("[^\\w./:,=+-]")));
    line += QLatin1Char(' ');
    line += is_plain ? word : "'" + word.replace(QLatin1Char('\''), QStringLiteral("'\\''")) + "'";
  }
  return line;
}

QString End_Text(SiteOutcome::End end) {
  using End = SiteOutcome::End;
  switch (end) {
    case End::Done:
      return QStringLiteral("Done.");
    case End::Refused:
      return QStringLiteral("Refused. The site is as it was.");
    case End::Failed:
      return QStringLiteral("Failed on the way. The site is as it was.");
    case End::Cancelled:
      return QStringLiteral("Cancelled. The site is as it was.");
    case End::FinishedAnyway:
      return QStringLiteral("It was complete already and has been put in place.");
    case End::NotFound:
      return QStringLiteral("The program sylvomex-site was not found.");
  }
  return {};
}

}  // namespace

SiteDialog::SiteDialog(const SiteCommand& command, const std::filesystem::path& site,
                       QWidget* owner, std::function<void(const QJsonObject&)> done)
    : QDialog(owner),
      site_(site),
      done_(std::move(done)),
      form_(new QFormLayout),
      process_(site, {[this](int percent) { Show_Progress(percent); },
                      [this](const QString& line) { messages_->appendPlainText(line); },
                      [this](const SiteOutcome& outcome) { Show_End(outcome); }}),
      progress_(new QProgressBar),
      state_(new QLabel),
      messages_(new QPlainTextEdit),
      run_(new QPushButton(QStringLiteral("Run"))),
      show_(new QPushButton(QStringLiteral("Show the report"))),
      close_(new QPushButton(QStringLiteral("Close"))) {
  setObjectName(QStringLiteral("SiteDialog"));
  setWindowTitle(Site_Caption(command));
  auto* layout = new QVBoxLayout(this);  // what it takes up is reached by Tab in that order
  auto* site_line = new QLabel(QStringLiteral("Site: ") + Qt_Text(site.string()), this);
  site_line->setTextFormat(Qt::PlainText);
  layout->addWidget(site_line);
  layout->addLayout(form_);
  fields_.emplace(command, *form_, Start_Folder(command, site), [this] { Refresh_Buttons(); });
  Lay_Out_Below();
  Refresh_Buttons();
  form_->setRowWrapPolicy(QFormLayout::WrapLongRows);  // on a narrow screen
  resize(Within_Screen(*this, sizeHint().expandedTo(Fitting_Size(*this, kRoomy))));
}

void SiteDialog::Lay_Out_Below() {
  progress_->setAccessibleName(QStringLiteral("Progress"));
  progress_->setRange(0, 100);
  QSizePolicy keeps_place = progress_->sizePolicy();
  keeps_place.setRetainSizeWhenHidden(true);
  progress_->setSizePolicy(keeps_place);
  progress_->hide();  // an empty bar looks like a box to type in
  state_->setAccessibleName(QStringLiteral("State"));
  messages_->setAccessibleName(QStringLiteral("Messages"));
  messages_->setReadOnly(true);
  messages_->setPlaceholderText(QStringLiteral("What is done and what comes of it"));
  const int line = messages_->fontMetrics().lineSpacing();
  messages_->setMinimumHeight(kLeastMessageLines * line + 2 * messages_->frameWidth());
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(state_, 1);
  for (QPushButton* button : {show_, run_, close_}) buttons->addWidget(button);
  run_->setDefault(true);
  for (QWidget* widget : {static_cast<QWidget*>(progress_), static_cast<QWidget*>(messages_)}) {
    layout()->addWidget(widget);
  }
  static_cast<QVBoxLayout*>(layout())->addLayout(buttons);
  connect(run_, &QPushButton::clicked, this, [this] { Run(); });
  connect(close_, &QPushButton::clicked, this, [this] { reject(); });
  connect(show_, &QPushButton::clicked, this,
          [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(report_)); });
}

void SiteDialog::Refresh_Buttons() {
  const bool runs = process_.Is_Running();
  run_->setEnabled(!runs && fields_->Are_Complete());
  close_->setText(runs ? QStringLiteral("Cancel") : QStringLiteral("Close"));
  show_->setVisible(!report_.isEmpty() && !runs);
  fields_->Set_Enabled(!runs);
}

void SiteDialog::Run() {
  const QStringList arguments = fields_->Arguments(Qt_Text(site_.string()));
  messages_->setPlainText(Command_Line(arguments));
  state_->setText(QStringLiteral("Running ..."));
  progress_->show();
  progress_->setRange(0, 0);  // busy, until it says how far it has come
  process_.Start(arguments);
  Refresh_Buttons();
}

void SiteDialog::Show_Progress(int percent) {
  progress_->setRange(0, 100);
  progress_->setValue(percent);
}

void SiteDialog::Show_End(const SiteOutcome& outcome) {
  const bool is_done = outcome.end == SiteOutcome::End::Done;
  progress_->setRange(0, 100);
  progress_->setValue(is_done ? 100 : 0);
  state_->setText(End_Text(outcome.end));
  if (is_done) Take_Answer(QJsonDocument::fromJson(outcome.output).object());
  Refresh_Buttons();
}

void SiteDialog::Take_Answer(const QJsonObject& answer) {
  for (const QString& line : Result_Lines(answer)) messages_->appendPlainText(line);
  report_ = answer[QStringLiteral("html")].toString();
  done_(answer);
}

void SiteDialog::reject() {
  if (process_.Is_Running()) {
    process_.Cancel();
  } else {
    QDialog::reject();
  }
}

}  // namespace sylvomex
