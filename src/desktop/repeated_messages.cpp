// SPDX-License-Identifier: MIT
#include "desktop/repeated_messages.h"

#include <QRegularExpression>
#include <algorithm>
#include <utility>

namespace sylvomex {
namespace {

QString Without_Numbers(QString text) {
  static const QRegularExpression number(QStringLiteral("[-+]?[0-9][0-9.,]*"));
  return text.replace(number, QStringLiteral("#"));
}

}  // namespace

bool RepeatedMessages::Is_To_Be_Shown(const QString& text, const QString& causes) {
  const QString pattern = Without_Numbers(text);
  const auto found = std::ranges::find(wordings_, pattern, &Wording::pattern);
  if (found == wordings_.end()) {
    wordings_.push_back({pattern, {}});
    return true;
  }
  Counted& counted = found->counted;
  ++counted.times;
  counted.last = text;
  if (counted.texts.size() < kMostTexts) {
    counted.texts << (causes.isEmpty() ? text : text + QStringLiteral(": ") + causes);
  }
  return false;
}

std::vector<RepeatedMessages::Counted> RepeatedMessages::Take() {
  std::vector<Counted> taken;
  for (Wording& wording : std::exchange(wordings_, {})) {
    if (wording.counted.times > 0) taken.push_back(std::move(wording.counted));
  }
  return taken;
}

}  // namespace sylvomex
