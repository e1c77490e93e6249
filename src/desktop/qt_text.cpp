// SPDX-License-Identifier: MIT
#include "desktop/qt_text.h"

#include <QByteArrayView>

namespace sylvomex {

QString Qt_Text(std::string_view text) {
  const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
  return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

std::string Block_Text(const QString& text) { return text.toStdString(); }

QString Caption_Text(std::string_view caption) {
  return Qt_Text(caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace sylvomex
