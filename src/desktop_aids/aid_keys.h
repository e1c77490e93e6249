// SPDX-License-Identifier: MIT
// Keys of the aids. No command has them; they are taken before the window sees them.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "desktop_aids/aided_panes.h"

namespace sylvomex {

struct AidKey {
  Qt::Key key;
  Qt::KeyboardModifiers modifiers;
  std::function<void()> run;
};

class AidKeys : public QObject {
 public:
  AidKeys(const AidedPanes& panes, std::vector<AidKey> keys);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  const AidedPanes& panes_;
  std::vector<AidKey> keys_;
};

}  // namespace sylvomex
