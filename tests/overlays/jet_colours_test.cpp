// SPDX-License-Identifier: MIT
#include "overlays/jet_colours.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace sylvomex {
namespace {

TEST(JetColours, HasSixtyFourRowsFromDarkBlueToDarkRed) {
  std::istringstream lines(Jet_Colour_Map());
  std::vector<std::string> rows;
  for (std::string line; std::getline(lines, line);) rows.push_back(line);
  ASSERT_EQ(rows.size(), 64U);
  EXPECT_EQ(rows[0], "0,0,143");
  EXPECT_EQ(rows[7], "0,0,255");
  EXPECT_EQ(rows[23], "0,255,255");
  EXPECT_EQ(rows[39], "255,255,0");
  EXPECT_EQ(rows[55], "255,0,0");
  EXPECT_EQ(rows[63], "128,0,0");
}

}  // namespace
}  // namespace sylvomex
