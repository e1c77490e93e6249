// SPDX-License-Identifier: MIT
#include "desktop/start_questions.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/dialog_layout.h"
#include "desktop/qt_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

const QString kProgramName = QStringLiteral("SYLVOMEX");

void Tell(QMessageBox::Icon icon, const char* what, const RunTimeError& failure) {
  QMessageBox box(icon, kProgramName, Qt_Text(what) + Qt_Text(failure.what()), QMessageBox::Close);
  Lay_Out(box);
  box.exec();
}

}  // namespace

UsedRootAnswer Ask_About_Used_Root(const std::filesystem::path& root, const std::string& holder) {
  QMessageBox box(QMessageBox::Question, kProgramName,
                  Qt_Text(root.string() + " is in use by " + holder + "."), QMessageBox::NoButton);
  box.setInformativeText(QStringLiteral(
      "Two programs would write the same files. The drives can be shown without writing anything, "
      "or another root can be chosen."));
  QPushButton* const another =
      box.addButton(QStringLiteral("&Another root ..."), QMessageBox::ActionRole);
  QPushButton* const show = box.addButton(QStringLiteral("&Only show"), QMessageBox::AcceptRole);
  QPushButton* const quit = box.addButton(QStringLiteral("&Quit"), QMessageBox::RejectRole);
  box.setDefaultButton(quit);
  box.setEscapeButton(quit);
  Lay_Out(box);
  box.exec();
  if (box.clickedButton() == another) return UsedRootAnswer::AnotherRoot;
  return box.clickedButton() == show ? UsedRootAnswer::OnlyShow : UsedRootAnswer::Quit;
}

std::optional<std::filesystem::path> Ask_For_Root() {
  const QString folder = QFileDialog::getExistingDirectory(
      nullptr, QStringLiteral("The folder that holds the drives c, d, e and f"), QString(),
      QFileDialog::DontUseNativeDialog);
  if (folder.isEmpty()) return std::nullopt;
  return std::filesystem::path(folder.toStdString());
}

void Tell_Of_Failed_Start(const RunTimeError& failure) {
  Tell(QMessageBox::Critical, "The start-up failed: ", failure);
}

void Tell_Of_Missing_Journal(const RunTimeError& failure) {
  Tell(QMessageBox::Warning, "What is done in this session cannot be recovered: ", failure);
}

bool Ask_Whether_To_Go_On(const UnfinishedJournal& unfinished) {
  QMessageBox box(QMessageBox::Question, kProgramName,
                  QStringLiteral("The last session was not ended by Exit. Go on where it stopped?"),
                  QMessageBox::Yes | QMessageBox::No);
  box.setInformativeText(
      QStringLiteral("What was done is done again, which takes as long as its commands took; lines "
                     "that were saved are not saved twice. With No its journal stays beside under "
                     "today's date."));
  box.setDetailedText(Qt_Text(unfinished.file.name));
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  Lay_Out(box);
  return box.exec() == QMessageBox::Yes;
}

}  // namespace sylvomex
