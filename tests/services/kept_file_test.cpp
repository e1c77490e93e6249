// SPDX-License-Identifier: MIT
#include "services/kept_file.h"

#include <gtest/gtest.h>

#include "platform/run_time_error.h"
#include "support/failure_of.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

TEST(KeptFile, HoldsTheWholeTextAfterwardsAndNothingBefore) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write("log.txt", "of an earlier run");
  With_Text_File(file, [&](std::string& text) {
    EXPECT_EQ(folder.Read("log.txt"), "");
    text += "1\n";
    text += "2\n";
  });
  EXPECT_EQ(folder.Read("log.txt"), "1\n2\n");
}

TEST(KeptFile, HoldsThePartialTextWhenAFailureEndedTheSteps) {
  const TemporaryFolder folder;
  const FilePath file = folder.File("log.txt");
  const std::string failure = Failure_Of([&] {
    With_Text_File(file, [](std::string& text) {
      text += "1\n";
      throw RunTimeError(Failure::Overflow, "in the second");
    });
  });
  EXPECT_EQ(failure, "Overflow: in the second");
  EXPECT_EQ(folder.Read("log.txt"), "1\n");
}

}  // namespace
}  // namespace sylvomex
