// SPDX-License-Identifier: MIT
// Lines that are written while calls of the system are interrupted, transfer a part or fail.
#include "support/failing_calls.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/disk_room.h"
#include "platform/file_descriptor.h"
#include "platform/files.h"
#include "platform/line_file.h"
#include "platform/operator_notices.h"
#include "support/failure_of.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

struct FailingCalls : testing::Test {
  TemporaryFolder folder;
  FilePath file = folder.Write("points.txt", "1,2\n");
  ~FailingCalls() override { Take_Notices(); }

  std::string Append_While(SystemCall call, int error) const {
    const FailingCall failing(call, error);
    const std::string told = Failure_Of([&] { Append_To_File(file, "3,4,5\n"); });
    EXPECT_TRUE(FailingCall::Has_Happened());
    return told;
  }
};

TEST_F(FailingCalls, ALineThatIsTakenInPartsIsWhole) {
  EXPECT_EQ(Append_While(SystemCall::Write, FailingCall::kInPart), "no failure");
  EXPECT_EQ(folder.Read("points.txt"), "1,2\n3,4,5\n");
}

TEST_F(FailingCalls, AnInterruptedWriteOrFlushOfALineIsRepeated) {
  EXPECT_EQ(Append_While(SystemCall::Write, EINTR), "no failure");
  EXPECT_EQ(Append_While(SystemCall::Flush, EINTR), "no failure");
  EXPECT_EQ(folder.Read("points.txt"), "1,2\n3,4,5\n3,4,5\n");
}

TEST_F(FailingCalls, ALineThatDoesNotReachTheDiskIsTakenBack) {
  EXPECT_EQ(Append_While(SystemCall::Flush, EIO), "File error: points.txt, Input/output error");
  EXPECT_EQ(Append_While(SystemCall::Flush, EDQUOT), "Disk full: points.txt");
  EXPECT_EQ(folder.Read("points.txt"), "1,2\n");
}

TEST_F(FailingCalls, ADriveThatCannotFlushTakesLines) {
  EXPECT_EQ(Append_While(SystemCall::Flush, EINVAL), "no failure");
  EXPECT_EQ(Append_While(SystemCall::Flush, ENOTSUP), "no failure");
  EXPECT_EQ(folder.Read("points.txt"), "1,2\n3,4,5\n3,4,5\n");
}

TEST_F(FailingCalls, NothingFollowsAPartBehindWhichAnotherProgramHasWritten) {
  const FailingCall failing(SystemCall::Write, FailingCall::kInPart, 0,
                            [&] { std::ofstream(file.native, std::ios::app) << "other\n"; });
  EXPECT_EQ(Failure_Of([&] { Append_To_File(file, "3,4,5\n"); }),
            "File error: points.txt, a line was written in part");
  EXPECT_EQ(folder.Read("points.txt"), "1,2\n3,4other\n");
}

TEST_F(FailingCalls, ATornLineIsSeenAfterAnInterruption) {
  folder.Write("points.txt", "1,");
  EXPECT_EQ(Append_While(SystemCall::ReadAt, EINTR), "no failure");
  EXPECT_EQ(folder.Read("points.txt"), "1,\n3,4,5\n");
}

TEST_F(FailingCalls, NothingIsAppendedToAnEndThatCannotBeRead) {
  folder.Write("points.txt", "1,");
  EXPECT_EQ(Append_While(SystemCall::ReadAt, EIO), "File error: points.txt, Input/output error");
  EXPECT_EQ(folder.Read("points.txt"), "1,");
}

TEST_F(FailingCalls, LinesOfAListAreWholeWhenTheyAreTakenInParts) {
  LineFile list(file);
  {
    const FailingCall failing(SystemCall::Write, FailingCall::kInPart);
    list.Write("1,2,3\n");
  }
  {
    const FailingCall failing(SystemCall::Write, EIO);
    EXPECT_EQ(Failure_Of([&] { list.Write("lost\n"); }),
              "File error: points.txt, Input/output error");
  }
  {
    const FailingCall failing(SystemCall::Flush, EINTR);
    list.Close();
  }
  EXPECT_EQ(folder.Read("points.txt"), "1,2,3\n");
}

TEST_F(FailingCalls, AnInterruptedReservationIsRepeated) {
  const FileDescriptor open_file(file, O_RDWR);
  const FailingCall failing(SystemCall::Allocate, EINTR);
  EXPECT_EQ(Reserve_Disk_Room(open_file.Number(), 5000), 0);
  EXPECT_EQ(std::filesystem::file_size(file.native), 5000U);
}

}  // namespace
}  // namespace sylvomex
