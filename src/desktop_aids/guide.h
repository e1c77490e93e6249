// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QTextBrowser>

#include "desktop/desktop.h"
#include "desktop_aids/guide_places.h"

namespace sylvomex {

/// A page with pictures that are no wider than its window.
class GuideBrowser : public QTextBrowser {
 public:
  using QTextBrowser::QTextBrowser;

  QVariant loadResource(int type, const QUrl& name) override;
};

/// The guide in a window of its own. Shift+F1 opens it at the place of the control that has the
/// focus or of the menu item that is marked, F1 too where no command has that key: in every window
/// but the main one.
class Guide : public QWidget {
 public:
  explicit Guide(Desktop& desktop);

  /// Opens it there, above the other windows.
  void Open(const GuidePlace& place);

  /// The same, scrolled on to the first line that tells of a text.
  void Open(const GuidePlace& place, const QString& text);

  [[nodiscard]] GuideBrowser& Browser() { return *browser_; }

  /// The line at the upper edge.
  [[nodiscard]] QString First_Line() const;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Lay_Out();
  void Load(const QString& page);
  void Scroll_To(const QTextCursor& place);
  void Follow(const QUrl& link);
  void Find(const QString& text, bool on);
  void Open_At(const QWidget& widget);

  Desktop& desktop_;
  QComboBox* pages_;
  QLineEdit* find_;
  GuideBrowser* browser_;
  QTextDocument* document_ = nullptr;  // of the page, the browser's child
  QString page_;
};

/// The folder with the pages: beside the installed program, else in the source tree that the
/// program was built from; empty when there is none.
QString Guide_Folder();

}  // namespace sylvomex
