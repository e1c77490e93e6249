// SPDX-License-Identifier: MIT
#include "desktop/qt_text.h"

#include <QStringDecoder>

namespace sylvomex {

QString Qt_Text(std::string_view text) {
  const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString decoded = decoder(bytes);
  return decoder.hasError() ? QString::fromLatin1(bytes) : decoded;
}

std::string Block_Text(const QString& text) { return text.toStdString(); }

QString Caption_Text(std::string_view caption) {
  return Qt_Text(caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace sylvomex
