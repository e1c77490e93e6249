// SPDX-License-Identifier: MIT
#include "desktop/control_widgets.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/qt_text.h"

namespace sylvomex {
namespace {

int Pixels_Of_Points(double points) {
  return std::clamp(static_cast<int>(std::lround(points * 96.0 / 72.0)), 1, 200);
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

QString TextLabel::Painted_Text() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, width());
}

void TextLabel::Fit_Text() {
  QFont fitting = natural_font_;
  const QFontMetrics natural(natural_font_);
  bool whole = true;
  if (Wraps()) {
    const QRect needed = natural.boundingRect(rect(), Qt::TextWordWrap, text());
    whole = needed.height() <= height() && needed.width() <= width();
  } else if (const int needed = natural.horizontalAdvance(text()); needed > width()) {
    const double share = std::max(kNarrowestText, double{width() - 1.0} / needed);
    fitting.setStretch(static_cast<int>(100 * share));
    whole = QFontMetrics(fitting).horizontalAdvance(text()) <= width();
  }
  if (font() != fitting) setFont(fitting);
  const QString tip = whole ? QString() : text();
  if (toolTip() != tip) setToolTip(tip);
  update();
}

void TextLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(isEnabled() ? palette().color(QPalette::WindowText)
                             : palette().color(QPalette::Disabled, QPalette::WindowText));
  if (Wraps()) {
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, text());
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
}

void TextBoxWidget::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
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
  if (widget.text() != text) widget.setText(text);
}

bool Show_Control(QCheckBox& widget, const CheckBox& box) {
  const bool checked = box.Value != 0;
  if (widget.isChecked() != checked) widget.setChecked(checked);
  const QString caption = Caption_Text(box.Caption);
  if (widget.text() == caption) return false;
  widget.setText(caption);
  return true;
}

void Show_Control(QPushButton& widget, const Button& button) {
  const QString caption = Caption_Text(button.Caption);
  if (widget.text() != caption) widget.setText(caption);
}

void Show_Control(QFrame& widget, const Divider& line) {
  const auto shape = line.Width >= line.Height ? QFrame::HLine : QFrame::VLine;
  if (widget.frameShape() != shape) widget.setFrameShape(shape);
}

void Fit_Check_Box(QCheckBox& box, int room) {
  box.setFont(Control_Font());
  const int needed = box.sizeHint().width();
  if (needed > room) {
    QFont narrow = Control_Font();
    narrow.setStretch(static_cast<int>(100 * kNarrowestText));
    box.setFont(narrow);
  }
  box.resize(std::min(needed, room), box.height());
  box.setToolTip(needed > room ? box.text() : QString());
}

QRect Placing(const Control& control) {
  const auto pixel = [](double position) {
    return static_cast<int>(std::lround(std::clamp(position, -32768.0, 32767.0)));
  };
  return {pixel(control.Left), pixel(control.Top), std::max(0, pixel(control.Width)),
          std::max(0, pixel(control.Height))};
}

}  // namespace sylvomex
