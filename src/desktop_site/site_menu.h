// SPDX-License-Identifier: MIT
// The menu Site, to the right of the last menu: the subcommands of sylvomex-site for the root that
// the workstation works on.
#pragma once

#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <map>

#include "desktop_aids/aids.h"
#include "desktop_site/site_dialog.h"

namespace sylvomex {

class SiteMenu : public QObject {
 public:
  /// The desktop and its aids must outlive the menu.
  SiteMenu(Desktop& desktop, Aids& aids);

  /// The dialog of a subcommand, shown.
  SiteDialog& Open(const SiteCommand& command);

 private:
  void Fill();
  void Refresh();
  [[nodiscard]] const std::filesystem::path& Root() const;
  void Is_Done(const SiteCommand& command, const QJsonObject& answer);
  void Offer(const QStringList& headers);
  void Open_Photographs(const QStringList& headers);

  Desktop& desktop_;
  Aids& aids_;
  QMenu* menu_;
  QTimer wait_;
  QStringList waiting_;  // headers, while a command is running
  std::map<const SiteCommand*, QAction*> items_;
  std::map<const SiteCommand*, QPointer<SiteDialog>> dialogs_;
};

}  // namespace sylvomex
