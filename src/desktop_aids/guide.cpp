// SPDX-License-Identifier: MIT
#include "desktop_aids/guide.h"

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>
#include <QVBoxLayout>
#include <utility>

#include "desktop/dialog_layout.h"
#include "desktop/qt_text.h"
#include "desktop_aids/event_command.h"
#include "platform/files.h"

namespace sylvomex {
namespace {

QByteArray Bytes_Of(const QString& file) {
  try {
    const std::string native = QFile::encodeName(file).toStdString();
    return QByteArray::fromStdString(Read_Whole_File({native, native}));
  } catch (const RunTimeError&) {
    return {};
  }
}

/// A heading as it stands in links: "the-dock-measured".
QString Link_Name(const QString& heading) {
  QString name;
  for (const QChar c : heading.toLower()) {
    if (c.isLetterOrNumber() || c == QLatin1Char('-')) name += c;
    if (c == QLatin1Char(' ')) name += QLatin1Char('-');
  }
  return name;
}

/// The first heading that is chosen; a null cursor for none.
template <class Chosen>
QTextCursor Heading(const QTextDocument& document, Chosen&& chosen) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() > 0 && chosen(block.text())) return QTextCursor(block);
  }
  return {};
}

/// Tables with one line between their cells, and room for the last heading to stand at the upper
/// edge.
void Make_Readable(QTextDocument& document, int height) {
  constexpr int kCellPadding = 3;
  for (QTextFrame* frame : document.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(QColor(150, 150, 150));
    format.setCellPadding(kCellPadding);
    table->setFormat(format);
  }
  QTextFrameFormat room = document.rootFrame()->frameFormat();
  room.setBottomMargin(height);
  document.rootFrame()->setFrameFormat(room);
}

/// The nearest widget with a name, from a widget up to its window.
QString Name_Around(const QWidget* widget, const FormWindow& window) {
  for (; widget != nullptr && widget != &window; widget = widget->parentWidget()) {
    QString name = widget->objectName();
    if (name == QLatin1String("MeasuredDock") || name == QLatin1String("OverlaysDock") ||
        name == QLatin1String("Strip") || window.Control_Widget(Block_Text(name)) == widget) {
      return name;
    }
  }
  return {};
}

}  // namespace

QString Guide_Folder() {
  const QString program = QCoreApplication::applicationDirPath();
  for (const char* folder : {"/../share/doc/sylvomex", "/../../../docs"}) {
    const QString path = program + QLatin1String(folder);
    if (QFileInfo::exists(path + QStringLiteral("/user-guide.md"))) return QDir::cleanPath(path);
  }
  return {};
}

QVariant GuideBrowser::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) return {};
  constexpr int kMargins = 80;  // pixels: those of the page and of a list
  const QImage picture =
      QImage::fromData(Bytes_Of(Guide_Folder() + QLatin1Char('/') + name.toString()));
  const int room = std::max(200, viewport()->width() - kMargins);
  if (picture.width() <= room) return picture;
  return picture.scaledToWidth(room, Qt::SmoothTransformation);
}

Guide::Guide(Desktop& desktop)
    : QWidget(&desktop.Shown().Main(), Qt::Window),
      desktop_(desktop),
      pages_(new QComboBox(this)),
      find_(new QLineEdit(this)),
      browser_(new GuideBrowser(this)) {
  setObjectName(QStringLiteral("Guide"));
  setWindowTitle(QStringLiteral("Guide"));
  resize(Fitting_Size(*this, {760, 640}));
  Lay_Out();
  connect(pages_, &QComboBox::activated, this,
          [this](int k) { Load(pages_->itemData(k).toString()); });
  connect(find_, &QLineEdit::textEdited, this, [this](const QString& text) { Find(text, false); });
  connect(find_, &QLineEdit::returnPressed, this, [this] { Find(find_->text(), true); });
  connect(browser_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { Follow(link); });
  qApp->installEventFilter(this);
}

void Guide::Lay_Out() {
  for (const GuidePage& page : Guide_Pages()) {
    pages_->addItem(QLatin1String(page.title), QLatin1String(page.file));
  }
  pages_->setAccessibleName(QStringLiteral("Page of the guide"));
  find_->setPlaceholderText(QStringLiteral("Find on this page; Enter finds the next place"));
  find_->setAccessibleName(QStringLiteral("Find on this page"));
  find_->setClearButtonEnabled(true);
  QFont letters = QApplication::font();
  letters.setPixelSize(letters.pixelSize() + 2);  // for reading
  browser_->setFont(letters);
  browser_->setOpenLinks(false);
  browser_->setAccessibleName(QStringLiteral("Guide"));
  auto* upper = new QHBoxLayout;
  upper->addWidget(pages_);
  upper->addWidget(find_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(upper);
  layout->addWidget(browser_);
}

void Guide::Load(const QString& page) {
  pages_->setCurrentIndex(pages_->findData(page));
  if (page == page_) return;
  page_ = page;
  // A document of its own is laid out once; the browser's would be after every word that comes in.
  auto* document = new QTextDocument(browser_);
  document->setDefaultFont(browser_->font());
  const QByteArray text = Bytes_Of(Guide_Folder() + QLatin1Char('/') + page);
  if (text.isEmpty()) {
    document->setPlainText(page + QStringLiteral(" is not installed beside the program."));
  } else {
    document->setMarkdown(QString::fromUtf8(text));
  }
  Make_Readable(*document, browser_->viewport()->height());
  browser_->setDocument(document);
  delete std::exchange(document_, document);
}

void Guide::Scroll_To(const QTextCursor& place) {
  if (place.isNull()) return;
  browser_->setTextCursor(place);
  browser_->verticalScrollBar()->setValue(browser_->verticalScrollBar()->value() +
                                          browser_->cursorRect(place).top());
}

void Guide::Open(const GuidePlace& place) {
  show();
  raise();
  activateWindow();
  Load(Qt_Text(place.page));
  const QString heading = Qt_Text(place.heading);
  if (heading.isEmpty()) return;
  Scroll_To(Heading(*browser_->document(), [&](const QString& text) { return text == heading; }));
}

void Guide::Open(const GuidePlace& place, const QString& text) {
  Open(place);
  QTextCursor found = browser_->document()->find(text, browser_->textCursor());
  if (found.isNull()) found = browser_->document()->find(text);
  if (found.isNull()) return;
  Scroll_To(found);
}

QString Guide::First_Line() const { return browser_->cursorForPosition({8, 4}).block().text(); }

void Guide::Follow(const QUrl& link) {
  const QString file = link.path();
  if (!link.scheme().isEmpty()) return;
  if (!file.isEmpty() && pages_->findData(file) < 0) return;
  if (!file.isEmpty() && file != page_) Load(file);
  const QString name = link.fragment();
  if (name.isEmpty()) return;
  Scroll_To(
      Heading(*browser_->document(), [&](const QString& text) { return Link_Name(text) == name; }));
}

void Guide::Find(const QString& text, bool on) {
  QTextCursor from = browser_->textCursor();
  if (!on) from.setPosition(from.selectionStart());
  QTextCursor found = browser_->document()->find(text, from);
  if (found.isNull()) found = browser_->document()->find(text);
  if (!found.isNull()) Scroll_To(found);
}

void Guide::Open_At(const QWidget& widget) {
  if (const auto* menu = qobject_cast<const QMenu*>(&widget)) {
    const QAction* item = menu->activeAction();
    const std::string command = item == nullptr ? std::string() : Block_Text(item->objectName());
    const std::string caption = Plain_Caption(command);
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    return caption.empty() ? Open({"keys-and-mouse.md", "What stands over the panes"})
                           : Open(Place_Of_Command(command), Qt_Text(caption));
  }
  const auto* window = dynamic_cast<const FormWindow*>(widget.window());
  if (window == nullptr) return Open({"user-guide.md", ""});
  const QWidget* focus = window->focusWidget() == nullptr ? &widget : window->focusWidget();
  Open(Place_Of_Control(window->Name(), Block_Text(Name_Around(focus, *window))));
}

bool Guide::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto& pressed = *static_cast<QKeyEvent*>(event);
  const auto* widget = qobject_cast<const QWidget*>(watched);
  if (widget == nullptr) return false;
  if (widget->window() == this && pressed.key() == Qt::Key_Escape) {
    hide();
    return true;
  }
  if (pressed.key() != Qt::Key_F1 || QApplication::activeModalWidget() != nullptr) return false;
  const bool in_main = widget->window() == &desktop_.Shown().Main();
  const bool asks = pressed.modifiers() == Qt::ShiftModifier ||
                    (pressed.modifiers() == Qt::NoModifier && !in_main);
  if (!asks) return false;
  Open_At(*widget);
  return true;
}

}  // namespace sylvomex
