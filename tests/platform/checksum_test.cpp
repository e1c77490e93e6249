// SPDX-License-Identifier: MIT
#include "platform/checksum.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

std::string Sum_Of(const FilePath& file) {
  const int descriptor = open(file.native.c_str(), O_RDONLY);
  const std::string sum = Checksum_Of_File(descriptor, std::filesystem::file_size(file.native));
  close(descriptor);
  return sum;
}

// Values published with the algorithm.
TEST(Checksum, IsThePublishedOne) {
  EXPECT_EQ(Checksum(""), "cbf29ce484222325");
  EXPECT_EQ(Checksum("a"), "af63dc4c8601ec8c");
  EXPECT_EQ(Checksum("foobar"), "85944171f73967e8");
}

TEST(Checksum, OfASmallFileIsThatOfItsContent) {
  const TemporaryFolder folder;
  EXPECT_EQ(Sum_Of(folder.Write("a", "foobar")), "85944171f73967e8");
}

TEST(Checksum, OfALargeFileSeesBothItsEnds) {
  const TemporaryFolder folder;
  std::string content(300000, 'x');
  const std::string sum = Sum_Of(folder.Write("a", content));
  for (const std::size_t at : {0U, 65535U, 300000U - 65536U, 299999U}) {
    std::string other = content;
    other[at] = 'y';
    EXPECT_NE(Sum_Of(folder.Write("a", other)), sum) << at;
  }
}

}  // namespace
}  // namespace sylvomex
