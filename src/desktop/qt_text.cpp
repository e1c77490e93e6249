// SPDX-License-Identifier: MIT
#include "desktop/qt_text.h"

#include "platform/characters.h"

namespace sylvomex {

QString Qt_Text(std::string_view text) { return QString::fromStdString(As_Utf8(text)); }

std::string Block_Text(const QString& text) { return text.toStdString(); }

QString Caption_Text(std::string_view caption) {
  return Qt_Text(caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace sylvomex
