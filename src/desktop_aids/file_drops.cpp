// SPDX-License-Identifier: MIT
#include "desktop_aids/file_drops.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

#include "desktop/qt_text.h"
#include "desktop_aids/event_command.h"

namespace sylvomex {
namespace {

std::vector<std::filesystem::path> Local_Files(const QMimeData& dragged) {
  std::vector<std::filesystem::path> files;
  for (const QUrl& url : dragged.urls()) {
    if (url.isLocalFile()) files.emplace_back(QFile::encodeName(url.toLocalFile()).toStdString());
  }
  return files;
}

/// The command that adds a model of the kind the operator chooses; empty when none was chosen.
std::string Ask_For_Command(const DroppedFile& model, const QPoint& where) {
  const bool is_tin = model.kind == DroppedKind::TinModel;
  QMenu menu;
  menu.setObjectName(QStringLiteral("DroppedModel"));
  menu.addSection(QFileInfo(Qt_Text(model.files.front())).fileName());
  for (const char* command :
       {is_tin ? "Add_Tin" : "Add_height_Model", is_tin ? "Add_Tin_CHM" : "Add_Raster_CHM"}) {
    menu.addAction(Caption_Text(Plain_Caption(command)))->setData(QString::fromLatin1(command));
  }
  menu.addSeparator();
  menu.addAction(QStringLiteral("Do not add it"));
  const QAction* chosen = menu.exec(where);
  return chosen == nullptr ? std::string() : Block_Text(chosen->data().toString());
}

constexpr const char* kMapWindow = "Form8";

}  // namespace

FileDrops::FileDrops(Desktop& desktop) : desktop_(desktop) {
  desktop.Shown().Main().setAcceptDrops(true);
  desktop.Shown().Find(kMapWindow)->setAcceptDrops(true);
  qApp->installEventFilter(this);  // a text box would take the files' names as its text
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  const QWidget* window = widget == nullptr ? nullptr : widget->window();
  if (window == nullptr ||
      (window != &desktop_.Shown().Main() && window != desktop_.Shown().Find(kMapWindow))) {
    return false;
  }
  auto& drop = *static_cast<QDropEvent*>(event);  // what enters and moves is one as well
  const auto files = Local_Files(*drop.mimeData());
  if (files.empty()) return false;
  if (desktop_.Is_Busy()) {
    drop.ignore();
    return true;
  }
  drop.setDropAction(Qt::CopyAction);
  drop.accept();
  if (type != QEvent::Drop) return true;
  const QPoint where = widget->mapToGlobal(drop.position().toPoint());
  // The program that the files come from waits until the event has been handled.
  QMetaObject::invokeMethod(
      this, [this, files, where] { Take(files, where); }, Qt::QueuedConnection);
  return true;
}

void FileDrops::Take(const std::vector<std::filesystem::path>& files, const QPoint& where) {
  const DroppedFiles sorted = Sorted_Drop(files);
  for (const DroppedFile& file : sorted.known) Add(file, where);
  for (const std::string& unknown : sorted.unknown) {
    desktop_.Dialogs().Report_Error(
        "Dropped file",
        "neither the header of an image, of a raster height model or of a map (.hdr), nor the "
        "nodes and triangles of a TIN (.nod and .tri beside each other)",
        unknown);
  }
}

void FileDrops::Add(const DroppedFile& file, const QPoint& where) {
  if (file.kind == DroppedKind::Map) return Open_In_Map_Window(file);
  const std::string command =
      file.kind == DroppedKind::Image ? "Add_images_to_set" : Ask_For_Command(file, where);
  if (!command.empty()) Run(Choosing(command), file);
}

void FileDrops::Open_In_Map_Window(const DroppedFile& map) {
  if (desktop_.Is_Busy()) return;
  desktop_.Dispatch(Choosing("Open_Map_Window"));
  OperatorEvent open = Choosing("Open_a_Map");
  open.form = kMapWindow;
  Run(open, map);
}

void FileDrops::Run(const OperatorEvent& chosen, const DroppedFile& file) {
  if (desktop_.Is_Busy()) return;
  std::vector<DialogAnswer> answers;
  for (const std::string& name : file.files) answers.push_back({DialogKind::File, {}, name});
  desktop_.Dispatch_Answered(chosen, std::move(answers));
}

}  // namespace sylvomex
