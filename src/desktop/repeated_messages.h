// SPDX-License-Identifier: MIT
// Messages that a command shows again and again, as for every line, triangle or pixel: the first
// one of each wording is shown, the others are counted.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace sylvomex {

class RepeatedMessages {
 public:
  /// False when it has the wording of a message that was shown; it is then counted. Wordings differ
  /// in more than their numbers.
  bool Is_To_Be_Shown(const QString& text, const QString& causes);

  /// What was counted, one for each wording.
  struct Counted {
    QString last;       // as it stood the last time
    long times = 0;     // without the first one
    QStringList texts;  // the first ones with their causes, kMostTexts at most
  };

  /// Gives them and forgets everything.
  std::vector<Counted> Take();

  static constexpr int kMostTexts = 200;

 private:
  struct Wording {
    QString pattern;
    Counted counted;
  };
  std::vector<Wording> wordings_;
};

}  // namespace sylvomex
