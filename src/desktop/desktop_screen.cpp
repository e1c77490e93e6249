// SPDX-License-Identifier: MIT
#include "desktop/desktop_screen.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>
#include <cstdio>
#include <utility>

#include "desktop/dialog_layout.h"
#include "desktop/file_filter.h"
#include "desktop/pane_image.h"
#include "desktop/qt_text.h"
#include "services/chosen_file.h"

namespace sylvomex {
namespace {

const QString kProgram = QStringLiteral("SYLVOMEX");

QString Window_Title(std::string_view title) { return title.empty() ? kProgram : Qt_Text(title); }

QMessageBox::StandardButtons Box_Buttons(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return QMessageBox::Ok;
    case Buttons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
  }
  return QMessageBox::Ok;
}

Answer Chosen(int button) {
  switch (button) {
    case QMessageBox::Cancel:
      return Answer::Cancel;
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    default:
      return Answer::Ok;
  }
}

/// The existing drives, for the side bar of the file dialog.
QList<QUrl> Drive_Urls(const DriveMap& drives) {
  QList<QUrl> urls;
  for (const char* letter : {"c", "d", "e", "f"}) {
    const QString folder =
        QString::fromStdString(drives.Locate(std::string(letter) + ":\\").native.string());
    if (QFileInfo(folder).isDir()) urls << QUrl::fromLocalFile(folder);
  }
  return urls << QUrl::fromLocalFile(QDir::homePath());
}

}  // namespace

DesktopScreen::DesktopScreen(const DriveMap& drives, Owner owner)
    : drives_(drives), owner_(std::move(owner)) {}

void DesktopScreen::Be_Calm(std::function<void(const std::string&)> tell) {
  tell_ = std::move(tell);
}

void DesktopScreen::Begin_Outer_Event() {
  in_event_ = true;
  times_shown_.clear();
  silenced_.clear();
  causes_.clear();
  dismissed_.reset();
  repeated_.Take();
}

/// What was counted is shown, each wording in one box.
void DesktopScreen::End_Outer_Event() {
  in_event_ = false;
  for (const RepeatedMessages::Counted& counted : repeated_.Take()) {
    const QString times =
        counted.times == 1
            ? QString()
            : QStringLiteral("\n\nThis message came %1 more times.").arg(counted.times);
    Show_Message(counted.last + times, Buttons::Ok, {}, counted.texts.join(QLatin1Char('\n')));
  }
  Tell_Quiet_End();
}

/// A dialog that was dismissed at last, and causes that no box has shown.
void DesktopScreen::Tell_Quiet_End() {
  QStringList words = std::exchange(causes_, {});
  const auto dismissed = std::exchange(dismissed_, std::nullopt);
  if (dismissed) words.prepend(QStringLiteral("Dismissed: ") + *dismissed);
  if (tell_ && !words.isEmpty()) tell_(Block_Text(words.join(QStringLiteral("; "))));
}

void DesktopScreen::Tell_Cause(std::string_view cause) {
  std::fprintf(stderr, "sylvomex: %.*s\n", static_cast<int>(cause.size()), cause.data());
  causes_ << Qt_Text(cause);
}

/// Whether what comes directly after a dismissed dialog was told in one word: a failure that is
/// nothing but the missing answer.
bool DesktopScreen::Tells_Dismissal(bool is_failure) {
  const auto dismissed = std::exchange(dismissed_, std::nullopt);
  if (!tell_ || !dismissed || !is_failure) return false;
  causes_.clear();
  tell_("Dismissed: " + Block_Text(*dismissed));
  return true;
}

Answer DesktopScreen::Message_Box(std::string_view text, Buttons buttons, std::string_view title) {
  const QString shown = Qt_Text(text);
  if (Tells_Dismissal(buttons == Buttons::Ok && !causes_.isEmpty())) return Answer::Ok;
  const QString causes = std::exchange(causes_, {}).join(QLatin1Char('\n'));
  if (silenced_.contains(shown)) return Answer::Ok;
  if (buttons != Buttons::Ok) {
    repeated_.Take();
  } else if (tell_ && in_event_ && !repeated_.Is_To_Be_Shown(shown, causes)) {
    return Answer::Ok;
  }
  return Show_Message(shown, buttons, Window_Title(title), causes);
}

Answer DesktopScreen::Show_Message(const QString& text, Buttons buttons, const QString& title,
                                   const QString& causes) {
  owner_.show_block();
  QMessageBox box(QMessageBox::NoIcon, title.isEmpty() ? kProgram : title, text,
                  Box_Buttons(buttons), owner_.front_window());
  box.setDetailedText(causes);
  QCheckBox* silence = nullptr;
  if (++times_shown_[text] > 1 && buttons == Buttons::Ok) {
    silence = new QCheckBox(QStringLiteral("Do not show this message again until the command ends"),
                            &box);
    box.setCheckBox(silence);
  }
  Lay_Out(box);
  const int button = box.exec();
  if (silence != nullptr && silence->isChecked()) silenced_.insert(text);
  return Chosen(button);
}

std::optional<std::string> DesktopScreen::Input_Box(std::string_view prompt, std::string_view title,
                                                    std::string_view preset) {
  owner_.show_block();
  QInputDialog box(owner_.front_window());
  box.setInputMode(QInputDialog::TextInput);
  box.setWindowTitle(Window_Title(title));
  box.setLabelText(Qt_Text(prompt));
  box.setTextValue(Qt_Text(preset));
  Lay_Out(box);
  repeated_.Take();
  const bool is_answered = box.exec() == QDialog::Accepted;
  dismissed_ = is_answered ? std::nullopt : std::optional(box.labelText());
  if (!is_answered) return std::nullopt;
  return Block_Text(box.textValue());
}

QString DesktopScreen::Start_Folder(const FileQuestion& question) const {
  const auto last = folders_.find(Qt_Text(question.title));
  if (last != folders_.end() && QFileInfo(last->second).isDir()) return last->second;
  for (const std::string& name : {question.folder, std::string("c:\\data")}) {
    if (name.empty() && !last_folder_.isEmpty()) return last_folder_;
    if (name.empty()) continue;
    QString folder = QString::fromStdString(drives_.Locate(name).native.string());
    if (QFileInfo(folder).isDir()) return folder;
  }
  return QString::fromStdString(drives_.Root().string());
}

std::optional<std::string> DesktopScreen::File_Dialog(const FileQuestion& question) {
  owner_.show_block();
  QFileDialog dialog(owner_.front_window(), Window_Title(question.title), Start_Folder(question));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  Lay_Out(dialog);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setSidebarUrls(Drive_Urls(drives_));
  const QStringList filters = Name_Filters(question.filter);
  dialog.setNameFilters(filters);
  if (question.filter_index >= 1 && question.filter_index <= filters.size()) {
    dialog.selectNameFilter(filters[question.filter_index - 1]);
  }
  repeated_.Take();
  dismissed_.reset();
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
    dismissed_ = dialog.windowTitle();
    return std::nullopt;
  }
  std::string chosen =
      Chosen_File_Name(drives_, question, Block_Text(dialog.selectedFiles().constFirst()));
  last_folder_ =
      QFileInfo(QString::fromStdString(drives_.Locate(chosen).native.string())).absolutePath();
  folders_[Qt_Text(question.title)] = last_folder_;
  return chosen;
}

void DesktopScreen::Beep(int frequency, int duration) { tones_.Play(frequency, duration); }

void DesktopScreen::Clear_Clipboard() { QApplication::clipboard()->clear(); }

void DesktopScreen::Copy_To_Clipboard(const PaneBitmap& picture) {
  QApplication::clipboard()->setImage(To_Image(picture));
}

bool DesktopScreen::Has_Serviced_Enough() {
  const auto now = now_();
  if (now - span_start_ > kServicingSpan) {
    span_start_ = now;
    serviced_in_span_ = 0;
  }
  return ++serviced_in_span_ > kServicings;
}

void DesktopScreen::Service_Events() {
  if (in_event_ && Has_Serviced_Enough()) return;
  owner_.show_block();
  QApplication::processEvents();
}

double DesktopScreen::Clock() {
  return std::chrono::duration<double>(SteadyClock::now() - start_).count();
}

double DesktopScreen::Random() {
  constexpr double kOne53rdPowerOfTwo = 0x1.0p-53;
  return static_cast<double>(generator_() >> 11) * kOne53rdPowerOfTwo;
}

void DesktopScreen::Report_Error(std::string_view command, std::string_view text,
                                 std::string_view native_path) {
  if (Tells_Dismissal(true)) return;
  owner_.show_block();
  QMessageBox box(QMessageBox::Warning, kProgram,
                  Qt_Text(command) + QLatin1String(": ") + Qt_Text(text), QMessageBox::Ok,
                  owner_.front_window());
  box.setInformativeText(Qt_Text(native_path));
  box.setDetailedText(std::exchange(causes_, {}).join(QLatin1Char('\n')));
  Lay_Out(box);
  box.exec();
}

void DesktopScreen::End_Session() { owner_.end(); }

}  // namespace sylvomex
