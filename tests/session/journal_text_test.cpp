// SPDX-License-Identifier: MIT
#include "session/journal_text.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

using Kind = JournalLine::Kind;

const std::string kHead = "journal 1\nroot \"/a site\"\nsize 640 480.5\nseed 7\n";

TEST(JournalFacts, HeadIsReadAsItIsWritten) {
  const JournalFacts facts = Facts_Of_Journal(Head_Text({"/a site", 640, 480.5, 7}));
  ASSERT_TRUE(facts.head);
  EXPECT_EQ(Head_Text(*facts.head), kHead);
  EXPECT_EQ(facts.head->root, "/a site");
  EXPECT_EQ(facts.head->height, 480.5);
}

TEST(JournalFacts, OfAnyOtherFileHaveNoHead) {
  for (const char* text : {"", "\n", "journal", "journal 1\n", "menu Exit\n", "\0\0\n"}) {
    EXPECT_FALSE(Facts_Of_Journal(text).head) << text;
  }
}

TEST(JournalFacts, AppendsHaveTheirLastState) {
  const JournalFacts facts = Facts_Of_Journal(
      kHead +
      "# append 1 /a 0 10 00ff\n# append 2 \"/b c\" 5 6 11\n# appended 2\n"
      "# append 3 /a 10 4 22\n# not-appended 3\n# append 1 /a 20 10 00ff\n# append x\n");
  ASSERT_EQ(facts.appends.size(), 3U);
  EXPECT_EQ(facts.appends.at(1).offset, 20U);
  EXPECT_EQ(facts.appends.at(1).state, JournaledAppend::State::Begun);
  EXPECT_EQ(facts.appends.at(2).file, "/b c");
  EXPECT_EQ(facts.appends.at(2).state, JournaledAppend::State::Done);
  EXPECT_EQ(facts.appends.at(3).state, JournaledAppend::State::Failed);
}

TEST(JournalFacts, ReadsAreThoseOfTheFirstTime) {
  const JournalFacts facts =
      Facts_Of_Journal(kHead + "# reads /a 5 100 aa\n# reads /a 6 200 bb\n# writes /b\n");
  ASSERT_EQ(facts.reads.size(), 1U);
  EXPECT_EQ(facts.reads.at("/a").bytes, 5U);
  EXPECT_EQ(facts.reads.at("/a").checksum, "aa");
  EXPECT_TRUE(facts.writes.contains("/b"));
}

TEST(JournalFacts, FileThatTheSessionKnewBeforeItMadeItWasThere) {
  const JournalFacts facts = Facts_Of_Journal(
      kHead +
      "# creates /new\n# append 1 /new 0 1 aa\n# reads /read 5 100 aa\n# creates /read\n"
      "# writes /written\n# creates /written\n# append 2 /added 9 1 aa\n# creates /added\n"
      "# creates \"/a b\"\n# creates\n");
  EXPECT_EQ(facts.created, (std::set<std::string>{"/new", "/a b"}));
}

TEST(JournalFacts, TornLastLineDoesNotCount) {
  const JournalFacts facts = Facts_Of_Journal(kHead + "end done\nexit");
  EXPECT_EQ(facts.whole_bytes, kHead.size() + 9);
  EXPECT_FALSE(facts.has_exit);
  EXPECT_TRUE(Facts_Of_Journal(kHead + "exit\n").has_exit);
}

TEST(JournalCursor, GivesTheLinesThatArePlayed) {
  const std::string text =
      kHead +
      "# time 1000\nmenu Exit\nwithin set Text4 5\nduring 12 key U\ninput 3\n"
      "# creates \"/a b\"\n# append 1 /a 0 1 aa\n# reads /x 1 1 aa\nend done\n";
  JournalCursor cursor(text, true);
  const auto take = [&cursor] {
    const JournalLine line = *cursor.Peek();
    cursor.Take();
    return line;
  };
  const JournalLine event = take();
  EXPECT_EQ(event.kind, Kind::Event);
  EXPECT_EQ(event.step.line, 6);
  EXPECT_EQ(cursor.Time(), 1000);
  const JournalLine within = take();
  EXPECT_EQ(within.kind, Kind::Within);
  EXPECT_EQ(within.step.words.size(), 3U);
  const JournalLine during = take();
  EXPECT_EQ(during.kind, Kind::During);
  EXPECT_EQ(during.number, 12);
  EXPECT_EQ(during.step.words.front().text, "key");
  EXPECT_EQ(take().kind, Kind::Answer);
  const JournalLine create = take();
  EXPECT_EQ(create.kind, Kind::Create);
  EXPECT_EQ(create.step.words.front().text, "/a b");
  EXPECT_EQ(take().kind, Kind::Append);
  EXPECT_EQ(take().kind, Kind::End);
  EXPECT_EQ(cursor.Peek(), nullptr);
  EXPECT_TRUE(cursor.Damaged_Lines().empty());
}

TEST(JournalCursor, AppendThatIsAnnouncedAgainIsPassedOver) {
  const std::string text = "# append 1 /a 0 1 aa\n# append 1 /a 5 1 aa\n# append 2 /a 6 1 aa\n";
  JournalCursor cursor(text, true);
  EXPECT_EQ(cursor.Peek()->number, 1);
  cursor.Take();
  EXPECT_EQ(cursor.Peek()->number, 2);
  cursor.Take();
  EXPECT_EQ(cursor.Peek(), nullptr);
}

TEST(JournalCursor, CountsDamagedLines) {
  const std::string text = "bogus\ninput\nwithin\nduring x menu Exit\nduring 1\nmenu Exit\n";
  JournalCursor cursor(text, true);
  ASSERT_NE(cursor.Peek(), nullptr);
  EXPECT_EQ(cursor.Damaged_Lines(), (std::vector<int>{1, 2, 3, 4, 5}));
}

}  // namespace
}  // namespace sylvomex
