// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace sylvomex {

/// While it is shown, what stands on its parent keeps the look that it has, and nothing beneath is
/// painted. Hidden it has everything painted anew.
class Curtain : public QWidget {
 public:
  explicit Curtain(QWidget& parent);

  void Close();
  void Open() { hide(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace sylvomex
