// SPDX-License-Identifier: MIT
// Two programs on one root.
#include <gtest/gtest.h>

#include <string>

#include "programs/running_program.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

constexpr int kPictures = 300;  // of each program

struct TwoPrograms : testing::Test {
  SmallSite site;
  TemporaryFolder folder;

  TwoPrograms() {
    SmallImage image;
    image.width = image.height = 300;
    image.full_width = 300;
    image.full_height = 301;
    image.start_col = image.start_row = 150;
    site.Write_Image("a", image);
  }

  /// Shows many places of the image and saves each picture.
  std::string Script(const std::string& name, int first_row) const {
    std::string script = "file c:\\data\\a.hdr\nmenu Add_images_to_set\n";
    for (int i = 0; i < kPictures; ++i) {
      const std::string number = std::to_string(i);
      script += "input " + std::to_string(100 + i % 100) + "\ninput " +
                std::to_string(first_row + i % 7) + "\nmenu Center_To_Q\nsave Picture1(0) " +
                (folder.Path() / (name + number + ".png")).string() + "\n";
    }
    return script;
  }

  RunningProgram Start(const std::string& name, const std::string& script) const {
    const FilePath file = folder.Write(name + ".txt", script);
    return {{"--root", site.Folder().Path().string(), "--size", "200x300", "--script",
             file.native.string()},
            folder.Path() / (name + ".out"),
            folder.Path() / (name + ".err")};
  }
};

TEST_F(TwoPrograms, MixNoPicture) {
  ASSERT_EQ(Start("one_alone", Script("one_alone", 100)).Wait(), 0) << folder.Read("one_alone.err");
  ASSERT_EQ(Start("two_alone", Script("two_alone", 180)).Wait(), 0);
  RunningProgram one = Start("one", Script("one", 100));
  RunningProgram two = Start("two", Script("two", 180));
  ASSERT_EQ(one.Wait(), 0) << folder.Read("one.err");
  ASSERT_EQ(two.Wait(), 0) << folder.Read("two.err");
  const std::string told = folder.Read("one.err") + folder.Read("two.err");
  EXPECT_NE(told.find(" is in use by process "), std::string::npos)
      << "the programs did not run at the same time";
  for (const std::string name : {"one", "two"}) {
    for (int i = 0; i < kPictures; ++i) {
      const std::string number = std::to_string(i) + ".png";
      ASSERT_EQ(folder.Read(name + number), folder.Read(name + "_alone" + number)) << name << i;
    }
  }
}

}  // namespace
}  // namespace sylvomex
