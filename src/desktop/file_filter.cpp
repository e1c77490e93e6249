// SPDX-License-Identifier: MIT
#include "desktop/file_filter.h"

#include "desktop/qt_text.h"

namespace sylvomex {
namespace {

QString Name_Filter(const QString& description, const QString& patterns) {
  const QString words = description.section(QLatin1Char('('), 0, 0).trimmed();
  QStringList wanted = patterns.split(QLatin1Char(';'), Qt::SkipEmptyParts);
  for (QString& pattern : wanted) {
    pattern = pattern.trimmed();
    if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
  }
  return words + QLatin1String(" (") + wanted.join(QLatin1Char(' ')) + QLatin1Char(')');
}

}  // namespace

QStringList Name_Filters(std::string_view filter) {
  const QStringList parts = Qt_Text(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype k = 0; k + 1 < parts.size(); k += 2) {
    filters << Name_Filter(parts[k], parts[k + 1]);
  }
  return filters.isEmpty() ? QStringList{QStringLiteral("All files (*)")} : filters;
}

}  // namespace sylvomex
