// SPDX-License-Identifier: MIT
// The small widgets of the windows. Each shows one control record; Show_Control copies changes from
// the record.
#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <string>

#include "state/control.h"

namespace sylvomex {

/// The default font of controls.
QFont Control_Font();

/// Smallest stretch, in percent of its natural width, to which a text is squeezed before it is
/// elided.
inline constexpr int kNarrowestText = 75;

/// A label that squeezes a text that is too long, then elides it and shows the whole text as a tool
/// tip. A label at least two lines high wraps.
class TextLabel : public QLabel {
 public:
  using QLabel::QLabel;

  void Show_Text(const QString& text);
  void Show_Font(double points, bool bold);
  void Show_Colour(Colour colour);
  void Keep_Numbers_Whole() { keeps_numbers_whole_ = true; }

  /// The painted text of a single line: the text, or its beginning and three dots.
  [[nodiscard]] QString Painted_Text() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit_Text();
  [[nodiscard]] bool Wraps() const;
  [[nodiscard]] QRect Wrapping_Rect() const;

  QFont natural_font_ = Control_Font();
  bool keeps_numbers_whole_ = false;
};

/// A text box with a one-pixel border and no margin above and below its text; a slightly too long
/// text is squeezed.
class TextBoxWidget : public QLineEdit {
 public:
  explicit TextBoxWidget(QWidget* parent);

  /// While it has no focus, a number that is too long is shown with fewer decimals.
  void Keep_Numbers_Whole() { keeps_numbers_whole_ = true; }

  /// What is painted: the text, or that number.
  [[nodiscard]] QString Painted_Text() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit_Text();
  void Paint_Shortened(const QString& shown);

  bool keeps_numbers_whole_ = false;
};

void Show_Control(TextLabel& widget, const Label& label);
void Show_Control(TextBoxWidget& widget, const TextBox& box);
bool Show_Control(QCheckBox& widget, const CheckBox& box);  // true when the caption changed
void Show_Control(QRadioButton& widget, const OptionButton& option);
void Show_Control(QPushButton& widget, const Button& button);
void Show_Control(QFrame& widget, const Divider& line);

/// The width that a check box needs for its caption, at most `room` pixels: in less room the
/// caption is squeezed, and shown as a tool tip when that does not suffice.
int Fit_Check_Box(QCheckBox& box, int room);

/// A control's rectangle in its window, whole pixels.
QRect Placing(const Control& control);

}  // namespace sylvomex
