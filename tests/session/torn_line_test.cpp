// SPDX-License-Identifier: MIT
// What a session says of an observation file whose last line is torn.
#include <gtest/gtest.h>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr const char* kSave =
    "menu Save_measured_point\n"
    "set Form3.Text5 c:\\data\\points.txt\n"
    "press Form3.Accept_And_Save_Button\n";

TEST(TornLine, TheSavedLineStandsAloneAndOneMessageNamesTheFile) {
  const SmallSite site;
  site.Folder().Write("c/data/points.txt", "1,100.00,torn");
  const PlayedSession played = Play_Script(site.Folder(), std::string(kSave) + kSave);
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(
      played.transcript,
      "message \"The last line of c:\\data\\points.txt had no line end and may be incomplete. "
      "The new line stands on a line of its own.\" title=\"\" buttons=ok -> ok\n");
  const std::string text = site.Folder().Read("c/data/points.txt");
  EXPECT_TRUE(text.starts_with("1,100.00,torn\n1,")) << text;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3);
}

TEST(TornLine, AWholeFileIsNothingToTell) {
  const SmallSite site;
  site.Folder().Write("c/data/points.txt", "1,100.00,whole\n");
  const PlayedSession played = Play_Script(site.Folder(), kSave);
  EXPECT_EQ(played.status, 0) << played.reason;
  EXPECT_EQ(played.transcript, "");
}

}  // namespace
}  // namespace sylvomex
