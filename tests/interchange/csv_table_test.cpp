// SPDX-License-Identifier: MIT
#include "interchange/csv_table.h"

#include <gtest/gtest.h>

#include "interchange/failures.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

using Cells = std::vector<std::string>;

std::string Refusal(const std::function<void()>& action) {
  try {
    action();
  } catch (const Refused& refusal) {
    return refusal.what();
  }
  return "";
}

TEST(SplitRows, TakesEverySeparatorAndLineEnd) {
  for (const char* const text : {"a,b\n1,2\n", "a;b\r\n1;2", "a\tb\r1\t2\r", "a b\n1   2  \n",
                                 "\xEF\xBB\xBF"
                                 "a , b\n\n1 ,\t2\n"}) {
    const auto rows = Split_Rows(text, "t");
    ASSERT_EQ(rows.size(), 2U) << text;
    EXPECT_EQ(rows[0].cells, (Cells{"a", "b"})) << text;
    EXPECT_EQ(rows[1].cells, (Cells{"1", "2"})) << text;
  }
}

TEST(SplitRows, QuotesHoldSeparatorsAndQuotes) {
  EXPECT_EQ(Split_Rows("\"a, \"\"b\"\"\",c", "t")[0].cells, (Cells{"a, \"b\"", "c"}));
  EXPECT_EQ(Split_Rows("\"open,c", "t")[0].cells, (Cells{"open,c"}));
}

TEST(SplitRows, KeepsEmptyCells) {
  EXPECT_EQ(Split_Rows("a,,b,", "t")[0].cells, (Cells{"a", "", "b", ""}));
}

TEST(SplitRows, CommentsAndRowsHaveTheirOwnSeparators) {
  const auto rows = Split_Rows("# Cameras (2)\n# PhotoID, X\nIMG 1\t5,5\nIMG 2\t6\n", "t");
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[1].cells, (Cells{"# PhotoID", "X"}));
  EXPECT_EQ(rows[2].cells, (Cells{"IMG 1", "5,5"}));
  EXPECT_EQ(rows[3].cells, (Cells{"IMG 2", "6"}));
  const auto named = Split_Rows("PhotoID, X\nIMG 1\t5\nb 6\n", "t");
  EXPECT_EQ(named[1].cells, (Cells{"IMG 1", "5"}));
  EXPECT_EQ(named[2].cells, (Cells{"b", "6"}));
}

TEST(CsvTable, FindsColumnsWithoutRegardToCase) {
  const CsvTable table("Name,OMEGA\np1, 1.5e2\n", "t.csv");
  EXPECT_EQ(table.Text(table.Rows()[0], "name"), "p1");
  EXPECT_EQ(table.Number(table.Rows()[0], "omega"), 150);
}

TEST(CsvTable, RefusalsNameFileLineAndColumn) {
  const CsvTable table("name,omega\np1,abc\np2\np3,nan\n", "t.csv");
  EXPECT_EQ(Refusal([&] { return table.Number(table.Rows()[0], "omega"); }),
            "t.csv, line 2: omega is \"abc\", no number");
  EXPECT_EQ(Refusal([&] { return table.Number(table.Rows()[1], "omega"); }),
            "t.csv, line 3: the line ends before omega");
  EXPECT_NE(Refusal([&] { return table.Number(table.Rows()[2], "omega"); }), "");
  EXPECT_EQ(Refusal([&] { return table.Number(table.Rows()[0], "phi"); }),
            "t.csv: the column \"phi\" is missing");
}

TEST(CsvTable, RefusesEmptyBinaryAndDoubleColumns) {
  EXPECT_NE(Refusal([] { CsvTable("", "t"); }), "");
  EXPECT_NE(Refusal([] { CsvTable(std::string_view("II*\0\1", 5), "t"); }), "");
  const CsvTable table("a,A\n1,2\n", "t");
  EXPECT_NE(Refusal([&] { return table.Number(table.Rows()[0], "a"); }), "");
}

TEST(ReadTextFile, RefusesMissingFilesAndFolders) {
  const TemporaryFolder folder;
  EXPECT_NE(Refusal([&] { Read_Text_File((folder.Path() / "none").string()); }), "");
  EXPECT_NE(Refusal([&] { Read_Text_File(folder.Path().string()); }), "");
}

}  // namespace
}  // namespace sylvomex
