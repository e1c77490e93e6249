// SPDX-License-Identifier: MIT
#include "desktop/wrapped_text.h"

#include <QStringList>
#include <algorithm>

namespace sylvomex {
namespace {

bool Is_Blank(QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); }

bool Is_Slash(QChar c) { return c == QLatin1Char('/') || c == QLatin1Char('\\'); }

/// Number of leading characters of a line that fit, at least one.
qsizetype Fitting(const QString& line, const QFontMetrics& letters, int width) {
  qsizetype fits = 1, too_many = line.size() + 1;
  while (too_many - fits > 1) {
    const qsizetype tried = fits + (too_many - fits) / 2;
    (letters.horizontalAdvance(line, static_cast<int>(tried)) <= width ? fits : too_many) = tried;
  }
  return fits;
}

/// Where to break the line when `fitting` characters fit; a blank at that place may exceed the
/// width.
qsizetype Break_At(const QString& line, qsizetype fitting) {
  for (qsizetype at = fitting; at > 0; --at) {
    if (Is_Blank(line[at]) || Is_Slash(line[at - 1])) return at;
  }
  if (!line[fitting].isLowSurrogate()) return fitting;
  return fitting > 1 ? fitting - 1 : fitting + 1;
}

void Append_Wrapped(QStringList& lines, QString line, const QFontMetrics& letters, int width) {
  for (;;) {
    const qsizetype fitting = Fitting(line, letters, width);
    if (fitting >= line.size()) break;
    const qsizetype end = Break_At(line, fitting);
    lines << line.left(end);
    qsizetype next = end;
    while (next < line.size() && Is_Blank(line[next])) ++next;
    line.remove(0, next);
  }
  lines << line;
}

}  // namespace

QString Wrapped_Text(const QString& text, const QFontMetrics& letters, int width) {
  QStringList lines;
  for (const QString& line : text.split(QLatin1Char('\n'))) {
    Append_Wrapped(lines, line, letters, width);
  }
  return lines.join(QLatin1Char('\n'));
}

int Widest_Line(const QString& text, const QFontMetrics& letters) {
  int widest = 0;
  for (const QString& line : text.split(QLatin1Char('\n'))) {
    widest = std::max(widest, letters.horizontalAdvance(line));
  }
  return widest;
}

}  // namespace sylvomex
