// SPDX-License-Identifier: MIT
#include "session/command_line.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/environment_variable.h"

namespace sylvomex {
namespace {

std::optional<CommandLine> Parse(std::vector<std::string> words, std::string* told = nullptr) {
  words.insert(words.begin(), "sylvomex");
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  std::ostringstream err;
  auto line = Parse_Command_Line(static_cast<int>(words.size()), arguments.data(), err);
  if (told != nullptr) *told = err.str();
  return line;
}

TEST(CommandLine, DefaultsAreTheDesktopAtItsSize) {
  const auto line = Parse({});
  ASSERT_TRUE(line);
  EXPECT_EQ(line->options.script, "");
  EXPECT_EQ(line->options.width, 1280);
  EXPECT_EQ(line->options.height, 1024);
  EXPECT_FALSE(line->options.show);
}

TEST(CommandLine, PaceIsANumberOfSeconds) {
  const auto line = Parse({"--script", "a", "--show", "--pace", "0.5"});
  ASSERT_TRUE(line);
  EXPECT_EQ(line->options.pace, 0.5);
  for (const char* wrong : {"-1", "fast", "", "3601", "nan"}) {
    std::string told;
    EXPECT_FALSE(Parse({"--pace", wrong}, &told)) << wrong;
    EXPECT_EQ(told, "--pace takes a number of seconds from 0 to 3600 such as 0.5, not \"" +
                        std::string(wrong) + "\"\n");
  }
}

TEST(CommandLine, AcceptsEveryOption) {
  const auto line =
      Parse({"--script", "-", "--root", "/x", "--size", "800x600", "--show", "--record", "r.txt"});
  ASSERT_TRUE(line);
  EXPECT_EQ(line->options.script, "-");
  EXPECT_EQ(line->options.root, "/x");
  EXPECT_EQ(line->options.width, 800);
  EXPECT_EQ(line->options.height, 600);
  EXPECT_TRUE(line->options.show);
  EXPECT_EQ(line->options.record, "r.txt");
}

TEST(CommandLine, TheDesktopIsPlainOnlyOnRequest) {
  EXPECT_FALSE(Parse({})->plain);
  EXPECT_TRUE(Parse({"--plain"})->plain);
}

TEST(CommandLine, DrivesLieUnderTheEnvironmentElseUnderHome) {
  const EnvironmentVariable home("HOME", "/home/someone");
  {
    const EnvironmentVariable root("SYLVOMEX_ROOT", "/drives");
    EXPECT_EQ(Parse({})->options.root, "/drives");
    EXPECT_EQ(Parse({"--root", "/x"})->options.root, "/x");
  }
  const EnvironmentVariable no_root("SYLVOMEX_ROOT", std::nullopt);
  EXPECT_EQ(Parse({})->options.root, "/home/someone/sylvomex");
}

TEST(CommandLine, InvalidArgumentsAreRejectedWithAReason) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"--size", "800"},
                                             {"--size", "0x600"},
                                             {"--size", "800x600x2"},
                                             {"--size", "16385x1"},
                                             {"--size", "20000x100"},
                                             {"--nothing"},
                                             {"--script"},
                                             {"picture.bmp"}}) {
    std::string told;
    EXPECT_FALSE(Parse(words, &told)) << words.front();
    EXPECT_FALSE(told.empty()) << words.front();
  }
}

TEST(CommandLine, ASizeBeyondTheLimitIsRefusedWithTheLimit) {
  std::string told;
  EXPECT_FALSE(Parse({"--size", "20000x100"}, &told));
  EXPECT_EQ(told,
            "--size takes a width and a height of 1 to 16384 pixels such as 1280x1024, not "
            "\"20000x100\"\n");
  EXPECT_TRUE(Parse({"--size", "16384x16384"}));
}

TEST(CommandLine, HelpIsRequested) { EXPECT_TRUE(Parse({"--help"})->help); }

}  // namespace
}  // namespace sylvomex
