// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

#include "desktop/windows.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");  // in which the tests print their input
  sylvomex::Set_Application_Look();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
