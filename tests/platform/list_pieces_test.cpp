// SPDX-License-Identifier: MIT
// Lists longer than the pieces in which their files are read: the same items, lines and places as
// from the whole text, and little memory.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "support/failure_of.h"
#include "support/resident_memory.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

constexpr std::size_t kPiece = std::size_t{4} << 20;
constexpr const char* kName = "list.txt";

/// Everything that reading to the end tells, by reads chosen at random.
std::vector<std::string> Told(ListReader list, unsigned seed) {
  std::mt19937 random(seed);
  std::vector<std::string> told;
  const std::string failure = Failure_Of([&] {
    while (!list.At_End()) {
      switch (random() % 6) {
        case 0:
          told.push_back(list.Read_Text_To_Comma());
          break;
        case 1:
          told.push_back(list.Read_Line());
          break;
        case 2:
          list.Skip_Line();
          break;
        case 3:
          list.Skip_Empty_Lines();
          break;
        default:
          told.push_back(list.Read_Text());
      }
      told.push_back(list.Where() + std::to_string(list.Line()));
    }
  });
  told.push_back(failure);
  return told;
}

void Expect_Same_As_Whole(const std::string& content) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write(kName, content);
  for (const unsigned seed : {1U, 2U}) {
    EXPECT_TRUE(Told(ListReader(file), seed) == Told(ListReader(content, kName), seed));
  }
}

TEST(ListPieces, RandomItemsReadAsFromTheWholeText) {
  std::mt19937 random(7);
  const std::vector<std::string> parts{"1.5", "a b", "\"x, y\"", ",", " ",
                                       "\t",  "\n",  "\r\n",     "\r"};
  std::string content;
  while (content.size() < 2 * kPiece + 1000) content += parts[random() % parts.size()];
  Expect_Same_As_Whole(content);
}

TEST(ListPieces, ALineEndMayLieAcrossTwoPieces) {
  for (std::size_t first = kPiece - 3; first <= kPiece + 1; ++first) {
    const TemporaryFolder folder;
    for (const std::string end : {"\r\n", "\n", "\r"}) {
      ListReader list(folder.Write(kName, std::string(first, 'x') + end + "7" + end + "8"));
      EXPECT_EQ(list.Read_Text().size(), first);
      EXPECT_EQ(list.Read_Int32(), 7);
      EXPECT_EQ(list.Line(), 2) << first;
      EXPECT_EQ(list.Read_Int32(), 8);
      EXPECT_EQ(list.Line(), 3);
      EXPECT_TRUE(list.At_End());
    }
  }
}

TEST(ListPieces, ALineMayBeLongerThanPieces) {
  const TemporaryFolder folder;
  const std::string longest(3 * kPiece + 17, 'y');
  ListReader list(folder.Write(kName, "1\n" + longest + "\n2\n"));
  EXPECT_EQ(list.Read_Int32(), 1);
  EXPECT_TRUE(list.Read_Text() == longest);
  EXPECT_EQ(list.Read_Int32(), 2);
}

TEST(ListPieces, BlanksOverPiecesAreTheEnd) {
  const TemporaryFolder folder;
  std::string content = "1\n";
  for (std::size_t k = 0; k < 2 * kPiece / 4; ++k) content += " \t\r\n";
  ListReader ends(folder.Write(kName, content));
  ends.Read_Int32();
  EXPECT_TRUE(ends.At_End());
  ListReader goes_on(folder.Write(kName, content + "2"));
  goes_on.Read_Int32();
  EXPECT_FALSE(goes_on.At_End());
  EXPECT_EQ(goes_on.Read_Int32(), 2);
  EXPECT_EQ(goes_on.Line(), static_cast<int>(2 * kPiece / 4) + 2);
}

TEST(ListPieces, TheEndOfALongListIsNamed) {
  const TemporaryFolder folder;
  std::string content;
  while (content.size() < kPiece) content += "1,2\n";
  ListReader list(folder.Write(kName, content));
  for (std::size_t k = 0; k < content.size() / 2; ++k) list.Read_Double();
  EXPECT_EQ(Failure_Of([&] { list.Read_Double(); }),
            "Input past end of file: list.txt, line 1048577, item 2097153");
}

TEST(ListPieces, ATextThatIsCutShortMeanwhileEnds) {
  const TemporaryFolder folder;
  std::string content;
  while (content.size() < 3 * kPiece) content += "1\n";
  const FilePath file = folder.Write(kName, content);
  ListReader list(file);
  list.Read_Int32();
  std::filesystem::resize_file(file.native, 10);
  std::size_t items = 1;
  while (!list.At_End()) {
    list.Read_Int32();
    ++items;
  }
  EXPECT_EQ(items, kPiece / 2);
}

TEST(ListPieces, AFileOfTheSystemWithoutASizeIsRead) {
  ListReader list(FilePath{"/proc/self/status", "/proc/self/status"});
  EXPECT_EQ(list.Read_Text(), "Name:");
}

TEST(ListPieces, AListTakesAFewPiecesOfMemoryWhateverItsLength) {
  const TemporaryFolder folder;
  const FilePath file = folder.File(kName);
  {
    std::ofstream stream(file.native);
    for (int k = 0; k < 3'000'000; ++k) stream << k << ",2516450.25,6857050.5,110\n";
  }
  const std::uint64_t size = std::filesystem::file_size(file.native);
  ASSERT_GT(size, 80U << 20);
  double sum = 0;
  MemoryWatch memory;
  ListReader list(file);
  for (int item = 0; !list.At_End(); ++item) {
    sum += list.Read_Double();
    if (item % 100'000 == 0) memory.Look();
  }
  EXPECT_GT(sum, 0);
  EXPECT_LT(memory.Most(), 4 * kPiece);
}

}  // namespace
}  // namespace sylvomex
