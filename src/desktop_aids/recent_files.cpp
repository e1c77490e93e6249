// SPDX-License-Identifier: MIT
#include "desktop_aids/recent_files.h"

#include <QFileInfo>

#include "desktop/qt_text.h"
#include "desktop_aids/event_command.h"

namespace sylvomex {
namespace {

constexpr QLatin1Char kBetween('\t');

QString Native(Desktop& desktop, const std::string& file) {
  const DriveMap& drives = desktop.Block().Drives;
  return QString::fromStdString(drives.Locate(file).native.string());
}

}  // namespace

RecentFiles::RecentFiles(Desktop& desktop, QMenu& menu) : desktop_(desktop), menu_(menu) {
  menu.setToolTipsVisible(true);
  connect(&menu, &QMenu::aboutToShow, this, [this] { Fill_Menu(); });
  desktop.Bring_In(*this);
}

RecentFiles::~RecentFiles() { desktop_.Send_Away(*this); }

void RecentFiles::Event_Has_Ended(const OperatorEvent& event) {
  const std::string command = Command_Of(event);
  QStringList line{Qt_Text(command)};
  for (const DialogAnswer& answer : desktop_.Answers()) {
    if (answer.kind != DialogKind::File) continue;
    if (!answer.text) return;  // dismissed
    line << Native(desktop_, *answer.text);
  }
  if (line.size() == 1 || !QFileInfo::exists(line.back())) return;
  if (command.empty()) {
    if (changed_) changed_();
    return;
  }
  lines_.removeAll(line.join(kBetween));
  lines_.prepend(line.join(kBetween));
  Show_Lines(lines_);
}

void RecentFiles::Show_Lines(const QStringList& lines) {
  lines_ = lines.mid(0, kMost);
  menu_.menuAction()->setEnabled(!lines_.isEmpty());
  if (changed_) changed_();
}

void RecentFiles::Fill_Menu() {
  menu_.clear();
  int number = 0;
  for (const QString& line : lines_) {
    const QStringList parts = line.split(kBetween);
    const QString caption = Caption_Text(Plain_Caption(Block_Text(parts.front())));
    if (caption.isEmpty() || parts.size() < 2) continue;
    ++number;
    QString name = QFileInfo(parts[1]).fileName();
    name.replace(QLatin1Char('&'), QLatin1String("&&"));
    const QString mnemonic = number < 10 ? QStringLiteral("&%1  ").arg(number) : QString();
    QAction* action = menu_.addAction(mnemonic + name + QStringLiteral("   ") + caption);
    action->setToolTip(parts.mid(1).join(QLatin1Char('\n')));
    action->setEnabled(QFileInfo::exists(parts[1]));
    connect(action, &QAction::triggered, this, [this, line] { Open(line); });
  }
}

void RecentFiles::Open(const QString& line) {
  if (desktop_.Is_Busy()) return;
  const QStringList parts = line.split(kBetween);
  std::vector<DialogAnswer> answers;
  for (const QString& file : parts.mid(1)) {
    answers.push_back({DialogKind::File, {}, Block_Text(file)});
  }
  desktop_.Dispatch_Answered(Choosing(Block_Text(parts.front())), std::move(answers));
}

}  // namespace sylvomex
