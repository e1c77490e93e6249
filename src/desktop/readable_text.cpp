// SPDX-License-Identifier: MIT
#include "desktop/readable_text.h"

#include <QRegularExpression>
#include <algorithm>

namespace sylvomex {
namespace {

const QRegularExpression kWithDecimals(QStringLiteral("(?<![\\w.])(\\d*)\\.(\\d+)(?![\\d.])"));
constexpr QChar kDots(0x2026);

qsizetype Most_Decimals(const QString& text) {
  qsizetype most = 0;
  for (auto found = kWithDecimals.globalMatch(text); found.hasNext();) {
    most = std::max(most, found.next().capturedLength(2));
  }
  return most;
}

/// Numbers with more decimals than that are rounded.
QString With_Decimals(const QString& text, int decimals) {
  QString rounded;
  qsizetype done = 0;
  for (auto found = kWithDecimals.globalMatch(text); found.hasNext();) {
    const auto number = found.next();
    rounded += text.mid(done, number.capturedStart() - done);
    done = number.capturedEnd();
    QString shown = number.captured();
    if (number.capturedLength(2) > decimals) {
      shown = QString::number(shown.toDouble(), 'f', decimals);
      const bool had_no_zero = number.capturedLength(1) == 0;
      if (had_no_zero && shown.startsWith(QLatin1String("0."))) shown.remove(0, 1);
    }
    rounded += shown;
  }
  return rounded + text.mid(done);
}

}  // namespace

QColor Readable_On(const QColor& ground, const QColor& text) {
  constexpr int kMiddle = 128, kBright = 150;
  if (ground.lightness() >= kMiddle || text.lightness() >= kBright) return text;
  const QColor hsl = text.toHsl();
  const int turned_over = 255 - text.lightness() * 2 / 3;
  return QColor::fromHsl(hsl.hslHue(), hsl.hslSaturation(), turned_over).toRgb();
}

QString Shortened(const QString& text, const QFontMetrics& letters, int room) {
  const auto fits = [&](const QString& tried) { return letters.horizontalAdvance(tried) <= room; };
  QString shown = text;
  for (auto decimals = static_cast<int>(Most_Decimals(text)); !fits(shown) && decimals > 0;) {
    shown = With_Decimals(text, --decimals);
  }
  if (fits(shown)) return shown;
  for (qsizetype end = shown.lastIndexOf(QLatin1Char(' ')); end > 0;
       end = shown.lastIndexOf(QLatin1Char(' '), end - 1)) {
    QString words = shown.left(end).trimmed() + kDots;
    if (fits(words)) return words;
  }
  return kDots;
}

QString First_That_Fits(const QStringList& fullest_first, const QFontMetrics& letters, int room) {
  for (const QString& tried : fullest_first) {
    if (letters.horizontalAdvance(tried) <= room) return tried;
  }
  return Shortened(fullest_first.last(), letters, room);
}

}  // namespace sylvomex
