// SPDX-License-Identifier: MIT
#include "desktop/control_widgets.h"

#include <QPainter>
#include <QStyleOptionFrame>
#include <algorithm>
#include <cmath>

#include "desktop/qt_text.h"
#include "desktop/readable_text.h"

namespace sylvomex {
namespace {

constexpr int kSmallestText = 9;  // pixels; a number is better small than cut off
constexpr int kBoxMargins = 8;    // border, padding and text cursor

int Pixels_Of_Points(double points) {
  return std::clamp(static_cast<int>(std::lround(points * 96.0 / 72.0)), 1, 200);
}

bool Fits(const QFont& font, const QString& text, int room) {
  return QFontMetricsF(font).horizontalAdvance(text) <= room;
}

// Hinted glyphs keep whole-pixel widths, so one step may change nothing: narrower steps are tried
// in turn until the text fits.
QFont Squeezed_Font(const QFont& natural, const QString& text, int room) {
  QFont font = natural;
  for (const int percent : {100, 95, 90, 85, 80, kNarrowestText}) {
    font.setStretch(percent);
    if (Fits(font, text, room)) break;
  }
  return font;
}

}  // namespace

QFont Control_Font() {
  QFont font(QStringLiteral("Liberation Sans"));
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(11);
  return font;
}

void TextLabel::Show_Text(const QString& text) {
  if (text == this->text()) return;
  setText(text);
  Fit_Text();
}

void TextLabel::Show_Font(double points, bool bold) {
  const int pixels = Pixels_Of_Points(points);
  if (natural_font_.pixelSize() == pixels && natural_font_.bold() == bold) return;
  natural_font_.setPixelSize(pixels);
  natural_font_.setBold(bold);
  Fit_Text();
}

void TextLabel::Show_Colour(Colour colour) {
  const QColor wanted(colour.r, colour.g, colour.b);
  QPalette colours = palette();
  if (colours.color(QPalette::WindowText) == wanted) return;
  colours.setColor(QPalette::WindowText, wanted);
  setPalette(colours);
}

bool TextLabel::Wraps() const { return height() >= 2 * QFontMetrics(natural_font_).height(); }

// Aligns the first line with the text of a single-line label beside it.
QRect TextLabel::Wrapping_Rect() const { return rect().adjusted(0, 2, 0, 0); }

QString TextLabel::Painted_Text() const {
  if (keeps_numbers_whole_) return Shortened(text(), fontMetrics(), width());
  return fontMetrics().elidedText(text(), Qt::ElideRight, width());
}

void TextLabel::Fit_Text() {
  QFont fitting = natural_font_;
  bool whole = true;
  if (Wraps()) {
    const QRect room = Wrapping_Rect();
    const QRect needed = QFontMetrics(fitting).boundingRect(room, Qt::TextWordWrap, text());
    whole = needed.height() <= room.height() && needed.width() <= room.width();
  } else {
    fitting = Squeezed_Font(natural_font_, text(), width());
    whole = Fits(fitting, text(), width());
  }
  if (font() != fitting) setFont(fitting);
  const QString tip = whole ? QString() : text();
  if (toolTip() != tip) setToolTip(tip);
  update();
}

void TextLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QPalette& colours = palette();
  painter.setPen(isEnabled() ? Readable_On(colours.color(QPalette::Window),
                                           colours.color(QPalette::WindowText))
                             : colours.color(QPalette::Disabled, QPalette::WindowText));
  if (Wraps()) {
    painter.drawText(Wrapping_Rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, text());
  } else {
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, Painted_Text());
  }
}

void TextLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Fit_Text();
}

TextBoxWidget::TextBoxWidget(QWidget* parent) : QLineEdit(parent) {
  setFrame(false);
  setFont(Control_Font());
  setTextMargins(1, 0, 1, 0);
  setContextMenuPolicy(Qt::NoContextMenu);
  connect(this, &QLineEdit::textChanged, this, [this] { Fit_Text(); });
}

void TextBoxWidget::Fit_Text() {
  const QFont fitting = Squeezed_Font(Control_Font(), text(), width() - kBoxMargins);
  if (font() != fitting) setFont(fitting);
  const QString tip = Fits(fitting, text(), width() - kBoxMargins) ? QString() : text();
  if (toolTip() != tip) setToolTip(tip);
}

void TextBoxWidget::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  Fit_Text();
}

QString TextBoxWidget::Painted_Text() const {
  if (!keeps_numbers_whole_ || hasFocus()) return text();
  return Shortened(text(), fontMetrics(), width() - kBoxMargins);
}

void TextBoxWidget::Paint_Shortened(const QString& shown) {
  QPainter painter(this);
  QStyleOptionFrame panel;
  initStyleOption(&panel);
  style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Text));
  painter.drawText(rect().adjusted(kBoxMargins / 2 - 1, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   shown);
}

void TextBoxWidget::paintEvent(QPaintEvent* event) {
  const QString shown = Painted_Text();
  if (shown == text()) {
    QLineEdit::paintEvent(event);
  } else {
    Paint_Shortened(shown);
  }
  QPainter painter(this);
  painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void Show_Control(TextLabel& widget, const Label& label) {
  widget.Show_Font(label.FontSize, label.FontBold);
  widget.Show_Text(Qt_Text(label.Caption));
  widget.Show_Colour(label.ForeColor);
}

void Show_Control(TextBoxWidget& widget, const TextBox& box) {
  const QString text = Qt_Text(box.Text);
  if (widget.text() == text) return;
  widget.setText(text);
  if (!widget.hasFocus()) widget.setCursorPosition(0);
}

bool Show_Control(QCheckBox& widget, const CheckBox& box) {
  const bool checked = box.Value != 0;
  if (widget.isChecked() != checked) widget.setChecked(checked);
  const QString caption = Caption_Text(box.Caption);
  if (widget.text() == caption) return false;
  widget.setText(caption);
  return true;
}

void Show_Control(QRadioButton& widget, const OptionButton& option) {
  const bool chosen = option.Value != 0;
  if (widget.isChecked() != chosen) widget.setChecked(chosen);
  const QString caption = Caption_Text(option.Caption);
  if (widget.text() != caption) widget.setText(caption);
}

void Show_Control(QPushButton& widget, const Button& button) {
  const QString caption = Caption_Text(button.Caption);
  if (widget.text() != caption) widget.setText(caption);
}

void Show_Control(QFrame& widget, const Divider& line) {
  const auto shape = line.Width >= line.Height ? QFrame::HLine : QFrame::VLine;
  if (widget.frameShape() != shape) widget.setFrameShape(shape);
}

int Fit_Check_Box(QCheckBox& box, int room) {
  box.setFont(Control_Font());
  const int natural = box.sizeHint().width();
  const int beside_caption = natural - QFontMetrics(box.font()).horizontalAdvance(box.text());
  const int caption_room = room - beside_caption;
  QFont letters = Control_Font();
  for (int size = letters.pixelSize(); size >= kSmallestText; --size) {
    letters.setPixelSize(size);
    box.setFont(Squeezed_Font(letters, box.text(), caption_room));
    if (Fits(box.font(), box.text(), caption_room)) break;
  }
  box.setToolTip(box.sizeHint().width() > room ? box.text() : QString());
  return std::min(natural, room);
}

QRect Placing(const Control& control) {
  const auto pixel = [](double position) {
    return static_cast<int>(std::lround(std::clamp(position, -32768.0, 32767.0)));
  };
  return {pixel(control.Left), pixel(control.Top), std::max(0, pixel(control.Width)),
          std::max(0, pixel(control.Height))};
}

}  // namespace sylvomex
