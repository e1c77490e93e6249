// SPDX-License-Identifier: MIT
#include "desktop_aids/curtain.h"

namespace sylvomex {
namespace {

constexpr int kAnySize = 16384;  // pixels; the parent cuts it off

}  // namespace

Curtain::Curtain(QWidget& parent) : QWidget(&parent) {
  setObjectName(QStringLiteral("Curtain"));
  setAttribute(Qt::WA_OpaquePaintEvent);  // what it covers is neither erased nor painted
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(0, 0, kAnySize, kAnySize);
  hide();
}

void Curtain::Close() {
  raise();
  show();
}

void Curtain::paintEvent(QPaintEvent* /*event*/) {}

}  // namespace sylvomex
