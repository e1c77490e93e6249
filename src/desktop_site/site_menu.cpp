// SPDX-License-Identifier: MIT
#include "desktop_site/site_menu.h"

#include <QMenuBar>
#include <QMessageBox>

#include "desktop/dialog_layout.h"
#include "desktop/qt_text.h"
#include "desktop_aids/event_command.h"

#include "desktop_aids/menu_keys.h"
#include "desktop_site/picture_export.h"
#include "desktop_site/site_frame.h"
#include "desktop_site/site_result.h"
#include "desktop_site/site_words.h"
#include "platform/guest_files.h"

namespace sylvomex {
namespace {

constexpr int kWaitForCommand = 200;  // milliseconds
constexpr const char* kNew = "init";
constexpr const char* kImages = "import images";
constexpr const char* kExport = "export";

bool Is(const SiteCommand& command, std::string_view words) { return words == command.words; }

std::string_view First_Word(const SiteCommand& command) {
  const std::string_view words(command.words);
  return words.substr(0, words.find(' '));
}

}  // namespace

SiteMenu::SiteMenu(Desktop& desktop, Aids& aids)
    : QObject(&desktop.Shown().Main()),
      desktop_(desktop),
      aids_(aids),
      menu_(new QMenu(QStringLiteral("Site"), &desktop.Shown().Main())) {
  QMenuBar& bar = *desktop.Shown().Main().menuBar();
  QString taken = Taken_Letters(bar);
  menu_->setObjectName(QStringLiteral("Site"));
  menu_->setFont(bar.font());
  menu_->setTitle(With_Mnemonic(menu_->title(), taken));
  bar.addMenu(menu_);
  connect(menu_, &QMenu::aboutToShow, this, [this] { Refresh(); });
  wait_.setSingleShot(true);
  connect(&wait_, &QTimer::timeout, this, [this] { Open_Photographs(waiting_); });
  Fill();
  Refresh();
}

void SiteMenu::Fill() {
  QString taken;
  const SiteCommand* before = nullptr;
  for (const SiteCommand& command : Site_Commands()) {
    if (before != nullptr && First_Word(*before) != First_Word(command)) menu_->addSeparator();
    before = &command;
    QAction* item =
        menu_->addAction(With_Mnemonic(Site_Caption(command) + QStringLiteral(" ..."), taken));
    item->setObjectName(QStringLiteral("Site ") + QString::fromLatin1(command.words));
    items_[&command] = item;
    connect(item, &QAction::triggered, this, [this, &command] { Open(command); });
  }
  Add_Picture_Export(desktop_, *menu_, taken);
}

const std::filesystem::path& SiteMenu::Root() const { return desktop_.Block().Drives.Root(); }

/// A root is made a site first, and nothing but exports leaves one that is only read as it is. What
/// stands at the pointer is told in the site's coordinates.
void SiteMenu::Refresh() {
  const std::optional<WorldFrame> frame = Frame_Of_Site(Root());
  const bool is_site = Has_Site(Root());
  for (const auto& [command, item] : items_) {
    item->setEnabled(Is(*command, kNew) != is_site && (!Only_Reads() || Is(*command, kExport)));
  }
  aids_.Below().Show_World(frame);
}

SiteDialog& SiteMenu::Open(const SiteCommand& command) {
  QPointer<SiteDialog>& dialog = dialogs_[&command];
  if (!dialog) {
    dialog =
        new SiteDialog(command, Root(), &desktop_.Shown().Main(),
                       [this, &command](const QJsonObject& answer) { Is_Done(command, answer); });
  }
  dialog->show();
  dialog->raise();
  dialog->activateWindow();
  return *dialog;
}

void SiteMenu::Is_Done(const SiteCommand& command, const QJsonObject& answer) {
  Refresh();
  if (Is(command, kImages)) Offer(Imported_Headers(answer));
}

/// Asks whether the imported photographs shall be opened, as many as there are panes left.
void SiteMenu::Offer(const QStringList& headers) {
  const QStringList first = headers.mid(0, kAidedPanes - desktop_.Block().ImageCount);
  if (first.isEmpty()) return;
  QMessageBox box(
      QMessageBox::Question, QStringLiteral("Import images"),
      first.size() == 1
          ? QStringLiteral("Open the imported photograph in a pane?")
          : QStringLiteral("Open %1 of the imported photographs in panes?").arg(first.size()),
      QMessageBox::Yes | QMessageBox::No, &desktop_.Shown().Main());
  box.setInformativeText(first.join(QLatin1Char('\n')));
  Lay_Out(box);
  if (box.exec() == QMessageBox::Yes) Open_Photographs(first);
}

/// Each by the command, as if chosen in the menu and in its dialog. A running one is waited for.
void SiteMenu::Open_Photographs(const QStringList& headers) {
  if (desktop_.Is_Busy()) {
    waiting_ = headers;
    wait_.start(kWaitForCommand);
    return;
  }
  for (const QString& header : headers) {
    desktop_.Dispatch_Answered(Choosing("Add_images_to_set"),
                               {{DialogKind::File, {}, Block_Text(header)}});
  }
}

}  // namespace sylvomex
