// SPDX-License-Identifier: MIT
#include "desktop_site/site_result.h"

#include <QJsonArray>

namespace sylvomex {
namespace {

QString Plain(const QString& name) {
  return QString(name).replace(QLatin1Char('_'), QLatin1Char(' '));
}

bool Holds_Objects(const QJsonArray& array) { return !array.isEmpty() && array[0].isObject(); }

QString Value_Text(const QJsonValue& value) {
  if (value.isArray()) {
    QStringList parts;
    for (const QJsonValue part : value.toArray()) parts << Value_Text(part);
    return parts.join(QStringLiteral(", "));
  }
  if (value.isDouble()) return QString::number(value.toDouble(), 'g', 10);
  if (value.isBool()) return value.toBool() ? QStringLiteral("yes") : QStringLiteral("no");
  return value.isNull() ? QStringLiteral("none") : value.toString();
}

QString Object_Line(const QJsonObject& object) {
  QStringList parts;
  for (auto at = object.begin(); at != object.end(); ++at) {
    parts << Plain(at.key()) + QLatin1Char(' ') + Value_Text(at.value());
  }
  return parts.join(QStringLiteral(",  "));
}

}  // namespace

QStringList Result_Lines(const QJsonObject& result) {
  QStringList lines;
  for (auto at = result.begin(); at != result.end(); ++at) {
    const QJsonArray array = at.value().toArray();
    if (at.key() == QStringLiteral("notes") || at.key() == QStringLiteral("error")) continue;
    if (Holds_Objects(array)) {
      for (const QJsonValue item : array) {
        lines << Plain(at.key()) + QStringLiteral(": ") + Object_Line(item.toObject());
      }
    } else if (!(at.value().isArray() && array.isEmpty())) {
      lines << Plain(at.key()) + QStringLiteral(": ") + Value_Text(at.value());
    }
  }
  return lines;
}

QStringList Imported_Headers(const QJsonObject& result) {
  QStringList headers;
  for (const QJsonValue image : result[QStringLiteral("images")].toArray()) {
    const QString header = image.toObject()[QStringLiteral("header")].toString();
    if (!header.isEmpty()) headers << header;
  }
  return headers;
}

}  // namespace sylvomex
