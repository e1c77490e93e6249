// SPDX-License-Identifier: MIT
#include "desktop_aids/progress_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "desktop/control_widgets.h"

namespace sylvomex {
namespace {

constexpr int kSpace = 6;             // pixels
constexpr double kLeastShare = 0.02;  // of a stretch, before its time left is worth telling

double Machine_Seconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(now).count();
}

}  // namespace

QString Duration_Text(double seconds) {
  const auto whole = static_cast<long>(std::ceil(seconds));
  if (whole < 60) return QStringLiteral("%1 s").arg(whole);
  if (whole < 3600) return QStringLiteral("%1 min %2 s").arg(whole / 60).arg(whole % 60);
  return QStringLiteral("%1 h %2 min").arg(whole / 3600).arg(whole % 3600 / 60);
}

ProgressBar::ProgressBar()
    : what_(new QLabel),
      bar_(new QProgressBar),
      button_(new QPushButton(QStringLiteral("Cancel"))),
      seconds_(Machine_Seconds) {
  setObjectName(QStringLiteral("Progress"));
  what_->setObjectName(QStringLiteral("ProgressWhat"));
  what_->setTextFormat(Qt::PlainText);
  what_->setMinimumWidth(1);
  bar_->setObjectName(QStringLiteral("ProgressShare"));
  button_->setObjectName(QStringLiteral("CancelCommand"));
  button_->setAccessibleName(QStringLiteral("Cancel what is running"));
  button_->setToolTip(QStringLiteral("Ends what is running  (Esc)"));
  button_->setFocusPolicy(Qt::NoFocus);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kSpace);
  for (QWidget* part : std::initializer_list<QWidget*>{what_, bar_, button_}) {
    part->setFont(Control_Font());
    part->setFixedHeight(part->fontMetrics().height() + kSpace);
  }
  row->addWidget(what_, 1);
  row->addWidget(bar_, 2);
  row->addWidget(button_);
  connect(button_, &QPushButton::clicked, this, [this] { Ask_For_Cancel(); });
  hide();
}

void ProgressBar::Begin(const QString& what, std::function<void()> cancel,
                        std::function<void(const QString&)> lead_title) {
  cancel_ = std::move(cancel);
  lead_title_ = std::move(lead_title);
  what_->setText(what);
  what_->setToolTip(what);
  bar_->setAccessibleName(what);
  button_->setEnabled(static_cast<bool>(cancel_));
  is_running_ = true;
  is_resting_ = false;
  done_ = stretch_start_ = 0;
  begun_ = stretch_begun_ = seconds_();
}

void ProgressBar::Update(double done) {
  if (!is_running_) return;
  if (done < done_ || done < 0 || is_resting_) {  // the next stretch of the work
    is_resting_ = false;
    stretch_begun_ = seconds_();
    stretch_start_ = std::max(done, 0.0);
  }
  done_ = done;
  if (seconds_() - begun_ < kPatience) return;
  Show_Done(done);
  setVisible(true);
}

void ProgressBar::Show_Done(double done) {
  if (done < 0) {
    bar_->setRange(0, 0);
    bar_->setFormat({});
    if (lead_title_) lead_title_(QStringLiteral("... - "));
    return;
  }
  const int percent = static_cast<int>(100 * std::min(done, 1.0));
  QString text = QStringLiteral("%1 %").arg(percent);
  if (lead_title_) lead_title_(text + QStringLiteral(" - "));
  const double share = done - stretch_start_;
  if (share > kLeastShare) {
    const double seconds = seconds_() - stretch_begun_;
    text += QStringLiteral(", %1 left").arg(Duration_Text(seconds / share * (1 - done)));
  }
  bar_->setRange(0, 100);
  bar_->setValue(percent);
  bar_->setFormat(text);
}

void ProgressBar::Rest() {
  if (!is_running_) return;
  is_resting_ = true;
  hide();
  if (lead_title_) lead_title_({});
}

void ProgressBar::End() {
  if (!is_running_) return;
  is_running_ = false;
  cancel_ = {};
  hide();
  if (lead_title_) std::exchange(lead_title_, {})({});
}

void ProgressBar::Ask_For_Cancel() {
  if (!is_running_ || !cancel_ || !button_->isEnabled()) return;
  button_->setEnabled(false);
  what_->setText(QStringLiteral("Cancelling ..."));
  cancel_();
}

}  // namespace sylvomex
