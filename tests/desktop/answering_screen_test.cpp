// SPDX-License-Identifier: MIT
#include "desktop/answering_screen.h"

#include <gtest/gtest.h>

#include "support/recording_screen.h"

namespace sylvomex {
namespace {

class AnsweringScreenTest : public testing::Test {
 protected:
  RecordingScreen behind_;
  AnsweringScreen screen_{behind_};
};

TEST_F(AnsweringScreenTest, AKnownAnswerIsGivenWithoutAskingAndIsToldLater) {
  screen_.Answer_With({{DialogKind::File, {}, "c:\\data\\a.hdr"}});
  EXPECT_EQ(screen_.File_Dialog({"Header", "", 1, ""}), "c:\\data\\a.hdr");
  const std::vector<DialogAnswer> given{{DialogKind::File, "Header", "c:\\data\\a.hdr"}};
  EXPECT_EQ(screen_.Given(), given);
}

TEST_F(AnsweringScreenTest, ADialogOfAnotherKindIsAskedAndForgetsTheAnswers) {
  screen_.Answer_With({{DialogKind::File, {}, "a"}, {DialogKind::Input, {}, "1"}});
  behind_.inputs.push_back("asked");
  EXPECT_EQ(screen_.Input_Box("How many?", "", ""), "asked");
  behind_.inputs.push_back("asked again");
  EXPECT_EQ(screen_.Input_Box("How many?", "", ""), "asked again");
}

TEST_F(AnsweringScreenTest, AMessageOfAnotherTextIsShown) {
  screen_.Answer_With({{DialogKind::Message, "2 trees", std::nullopt, Answer::Ok},
                       {DialogKind::Message, "2 trees", std::nullopt, Answer::Ok}});
  screen_.Message_Box("2 trees", Buttons::Ok, "");
  EXPECT_TRUE(behind_.messages.empty());
  screen_.Message_Box("the file is missing", Buttons::Ok, "");
  ASSERT_EQ(behind_.messages.size(), 1u);
}

TEST_F(AnsweringScreenTest, ANewEventKnowsNothingOfTheOneBefore) {
  screen_.Answer_With({{DialogKind::Input, {}, "1"}});
  screen_.Begin_Outer_Event();
  behind_.inputs.push_back("asked");
  EXPECT_EQ(screen_.Input_Box("How many?", "", ""), "asked");
  screen_.Begin_Outer_Event();
  EXPECT_TRUE(screen_.Given().empty());
}

}  // namespace
}  // namespace sylvomex
