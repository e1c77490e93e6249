// SPDX-License-Identifier: MIT
#include "imageblock/raw_file_cache.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "expect_failure.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

class RawFiles : public testing::Test {
 protected:
  FilePath Make(const std::string& name, const std::string& content) const {
    return folder_.Write(name, content);
  }

  RawFileCache cache_;

 private:
  TemporaryFolder folder_;
};

std::string Text(const MappedFile& file) { return {file.Bytes().begin(), file.Bytes().end()}; }

TEST_F(RawFiles, SecondOpenGivesTheSameMapping) {
  const FilePath file = Make("a.raw", "pixels");
  const MappedFile& first = cache_.Open(file);
  EXPECT_EQ(Text(first), "pixels");
  EXPECT_EQ(&cache_.Open(file), &first);
}

TEST_F(RawFiles, ChangedFileIsMappedAgain) {
  const FilePath file = Make("a.raw", "pixels");
  cache_.Open(file);
  Make("a.raw", "other pixels");
  EXPECT_EQ(Text(cache_.Open(file)), "other pixels");
}

TEST_F(RawFiles, ReplacedFileOfTheSameLengthIsMappedAgain) {
  const FilePath file = Make("a.raw", "pixels");
  cache_.Open(file);
  std::filesystem::rename(Make("b.raw", "PIXELS").native, file.native);
  EXPECT_EQ(Text(cache_.Open(file)), "PIXELS");
}

TEST_F(RawFiles, NineFilesStayAndTheTenthEvictsTheLeastRecentlyUsed) {
  std::vector<FilePath> files;
  std::vector<const MappedFile*> mapped;
  for (int k = 0; k < 9; ++k) {
    files.push_back(Make(std::to_string(k) + ".raw", "file " + std::to_string(k)));
    mapped.push_back(&cache_.Open(files.back()));
  }
  for (std::size_t k = 0; k < 9; ++k) EXPECT_EQ(&cache_.Open(files[k]), mapped[k]);
  cache_.Open(files[0]);
  cache_.Open(Make("9.raw", "file 9"));
  for (const std::size_t k : {0U, 2U, 3U, 4U, 5U, 6U, 7U, 8U}) {
    EXPECT_EQ(&cache_.Open(files[k]), mapped[k]) << k;
  }
  EXPECT_EQ(Text(cache_.Open(files[1])), "file 1");
}

TEST_F(RawFiles, MissingFileIsFileNotFoundAndTheOthersStay) {
  const FilePath file = Make("a.raw", "pixels");
  const MappedFile& held = cache_.Open(file);
  FilePath missing = file;
  missing.native.replace_filename("missing.raw");
  Expect_Failure(Failure::FileNotFound, [&] { cache_.Open(missing); });
  EXPECT_EQ(&cache_.Open(file), &held);
}

TEST_F(RawFiles, DeletedFileIsFileNotFound) {
  const FilePath file = Make("a.raw", "pixels");
  cache_.Open(file);
  Delete_File(file);
  Expect_Failure(Failure::FileNotFound, [&] { cache_.Open(file); });
}

}  // namespace
}  // namespace sylvomex
