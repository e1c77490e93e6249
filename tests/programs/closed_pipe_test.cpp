// SPDX-License-Identifier: MIT
// A transcript whose reader ends before the program.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "programs/running_program.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr int kAllStepsDoneButNotTold = 4;

TEST(ClosedPipe, TheStepsArePlayedToTheirEnd) {
  const SmallSite site;
  const TemporaryFolder folder;
  std::string script;
  for (int i = 0; i < 1000; ++i) script += "say \"" + std::string(100, 'x') + "\"\n";
  script += "file " + site.Write_Image("a", {}) + "\nmenu Add_images_to_set\nsave Picture1(0) " +
            (folder.Path() / "last.png").string() + "\n";
  const FilePath file = folder.Write("script.txt", script);
  const std::filesystem::path pipe = folder.Path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(reader, 0);
  RunningProgram program(
      {"--root", site.Folder().Path().string(), "--script", file.native.string()}, pipe,
      folder.Path() / "err");
  close(reader);
  EXPECT_EQ(program.Wait(), kAllStepsDoneButNotTold);
  EXPECT_NE(folder.Read("err").find("the transcript is not complete"), std::string::npos);
  EXPECT_TRUE(std::filesystem::exists(folder.Path() / "last.png"));
}

}  // namespace
}  // namespace sylvomex
