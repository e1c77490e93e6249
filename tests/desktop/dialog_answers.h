// SPDX-License-Identifier: MIT
// Answers the dialogs that open while a test drives the windows.
#pragma once

#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace sylvomex {

class DialogAnswers {
 public:
  DialogAnswers() {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Answer_Front_Dialog(); });
    timer_.start(5);
  }

  /// From here on dialogs wait for the hands of the test itself.
  void Leave_Dialogs_Open() { timer_.stop(); }

  // Answers, used in order. An input box or file dialog without one is dismissed.
  std::deque<std::string> inputs;
  std::deque<std::string> files;                         // native paths
  QMessageBox::StandardButton choice = QMessageBox::Ok;  // of message boxes
  bool silence = false;  // ticks "Do not show this message again ..." where it is offered

  // What was shown.
  std::function<void(QDialog&)> when_asked;  // called with a dialog before it is answered
  std::vector<std::string> messages;
  std::vector<std::string> details;  // of the message boxes, empty for those without
  std::vector<std::string> titles;   // of all dialogs
  int silencers_offered = 0;
  int texts_cut = 0;  // texts of message and input boxes that were not fully visible

 private:
  /// Each line, as broken by line ends, fits in the label, and all lines fit below each other.
  static bool Is_Whole(const QLabel& label) {
    const QStringList lines = label.text().split(QLatin1Char('\n'));
    const QFontMetrics letters = label.fontMetrics();
    for (const QString& line : lines) {
      if (letters.horizontalAdvance(line) > label.contentsRect().width()) return false;
    }
    return lines.size() * letters.lineSpacing() <=
               label.contentsRect().height() + letters.leading() &&
           label.window()->rect().contains(
               QRect(label.mapTo(label.window(), QPoint(0, 0)), label.size()));
  }

  void Look_At_Texts(const QDialog& dialog) {
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
      if (!label->text().isEmpty() && label->isVisible() && !Is_Whole(*label)) ++texts_cut;
    }
  }

  void Answer_Front_Dialog() {
    QWidget* front = QApplication::activeModalWidget();
    auto* const dialog = qobject_cast<QDialog*>(front);
    if (dialog != nullptr && when_asked) when_asked(*dialog);
    if (auto* file = qobject_cast<QFileDialog*>(front)) return Answer_File(*file);
    if (auto* input = qobject_cast<QInputDialog*>(front)) return Answer_Input(*input);
    if (auto* message = qobject_cast<QMessageBox*>(front)) Answer_Message(*message);
  }

  void Answer_File(QFileDialog& dialog) {
    titles.push_back(dialog.windowTitle().toStdString());
    if (files.empty()) return static_cast<QDialog&>(dialog).reject();
    dialog.selectFile(QString::fromStdString(files.front()));
    files.pop_front();
    static_cast<QDialog&>(dialog).accept();
  }

  void Answer_Input(QInputDialog& dialog) {
    titles.push_back(dialog.windowTitle().toStdString());
    Look_At_Texts(dialog);
    if (inputs.empty()) return dialog.reject();
    dialog.setTextValue(QString::fromStdString(inputs.front()));
    inputs.pop_front();
    dialog.accept();
  }

  void Answer_Message(QMessageBox& box) {
    titles.push_back(box.windowTitle().toStdString());
    messages.push_back(box.text().toStdString());
    details.push_back(box.detailedText().toStdString());
    Look_At_Texts(box);
    if (box.checkBox() != nullptr) {
      ++silencers_offered;
      if (silence) box.checkBox()->click();
    }
    QAbstractButton* button = box.button(choice);
    if (button == nullptr) button = box.buttons().constFirst();
    button->click();
  }

  QTimer timer_;
};

}  // namespace sylvomex
