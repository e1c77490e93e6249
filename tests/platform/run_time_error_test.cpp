// SPDX-License-Identifier: MIT
#include "platform/run_time_error.h"

#include <gtest/gtest.h>

#include "platform/table.h"

namespace sylvomex {
namespace {

TEST(RunTimeError, MessageIsTheKindAndItsSubject) {
  const RunTimeError error(Failure::FileNotFound, "c:\\data\\a.hdr", "/drives/c/data/a.hdr");
  EXPECT_STREQ(error.what(), "File not found: c:\\data\\a.hdr");
  EXPECT_EQ(error.Kind(), Failure::FileNotFound);
  EXPECT_EQ(error.Native_Path(), "/drives/c/data/a.hdr");
}

TEST(RunTimeError, MessageWithoutASubjectIsTheBareKind) {
  const RunTimeError error(Failure::DivisionByZero);
  EXPECT_STREQ(error.what(), "Division by zero");
  EXPECT_TRUE(error.Native_Path().empty());
}

TEST(RunTimeError, APlaceIsPutBeforeTheSubject) {
  const RunTimeError error(Failure::Overflow, "70000 is too large");
  EXPECT_EQ(error.About(), "70000 is too large");
  const RunTimeError placed = error.At("a.txt, line 3", "/drives/a.txt");
  EXPECT_STREQ(placed.what(), "Overflow: a.txt, line 3: 70000 is too large");
  EXPECT_EQ(placed.Kind(), Failure::Overflow);
  EXPECT_EQ(placed.Native_Path(), "/drives/a.txt");
}

TEST(RunTimeError, WithoutASubjectOnlyThePlaceIsShown) {
  const RunTimeError error(Failure::DivisionByZero);
  EXPECT_EQ(error.About(), "");
  EXPECT_STREQ(error.At("line 3").what(), "Division by zero: line 3");
}

TEST(RunTimeError, EveryKindHasItsText) {
  EXPECT_EQ(Failure_Text(Failure::Overflow), "Overflow");
  EXPECT_EQ(Failure_Text(Failure::DivisionByZero), "Division by zero");
  EXPECT_EQ(Failure_Text(Failure::SubscriptOutOfRange), "Subscript out of range");
  EXPECT_EQ(Failure_Text(Failure::TypeMismatch), "Type mismatch");
  EXPECT_EQ(Failure_Text(Failure::FileNotFound), "File not found");
  EXPECT_EQ(Failure_Text(Failure::PathNotFound), "Path not found");
  EXPECT_EQ(Failure_Text(Failure::FileAlreadyOpen), "File already open");
  EXPECT_EQ(Failure_Text(Failure::InputPastEnd), "Input past end of file");
  EXPECT_EQ(Failure_Text(Failure::PermissionDenied), "Permission denied");
  EXPECT_EQ(Failure_Text(Failure::DiskFull), "Disk full");
  EXPECT_EQ(Failure_Text(Failure::FileFailure), "File error");
  EXPECT_EQ(Failure_Text(Failure::BadContent), "Bad content");
  EXPECT_EQ(Failure_Text(Failure::OutOfMemory), "Out of memory");
}

TEST(Table, BothBoundsAreEntries) {
  Table<int, 1, 3> table;
  table(1) = 10;
  table(3) = 30;
  EXPECT_EQ(table(1), 10);
  EXPECT_EQ(table(2), 0);
  EXPECT_EQ(table(3), 30);
  EXPECT_EQ(table.kSize, 3);
}

TEST(Table, IndexOutsideIsASubscriptErrorThatNamesTheBounds) {
  const Table<int, 0, 8> panes;
  for (const long long index : {-1LL, 9LL, 1LL << 40, -(1LL << 40)}) {
    try {
      panes(index);
      FAIL() << index;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Kind(), Failure::SubscriptOutOfRange);
      EXPECT_EQ(error.what(),
                "Subscript out of range: " + std::to_string(index) + " is not in 0 to 8");
    }
  }
}

TEST(Table, IteratesOverItsEntriesInOrder) {
  Table<int, -1, 1> table;
  table(-1) = 1;
  table(0) = 2;
  table(1) = 3;
  int digits = 0;
  for (const int entry : table) digits = digits * 10 + entry;
  EXPECT_EQ(digits, 123);
}

}  // namespace
}  // namespace sylvomex
