// SPDX-License-Identifier: MIT
// Mapped files that shrink while they are read.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <numeric>
#include <thread>
#include <vector>

#include "platform/fault_guard.h"
#include "platform/files.h"
#include "platform/line_file.h"
#include "platform/replacing_file.h"
#include "platform/sound_reads.h"
#include "support/failure_of.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

constexpr std::size_t kPage = 4096;
constexpr const char* kLost =
    "File error: a.raw, it became shorter or unreadable while it was read";

std::uint64_t Sum(std::span<const std::uint8_t> bytes) {
  return std::accumulate(bytes.begin(), bytes.end(), std::uint64_t{0});
}

struct ShrinkingFile : testing::Test {
  TemporaryFolder folder;
  FilePath file = folder.Write("a.raw", std::string(8 * kPage, '\1'));

  void Shrink(std::size_t size) const { std::filesystem::resize_file(file.native, size); }
};

TEST_F(ShrinkingFile, BytesThatAreGoneReadAsZerosAndTheFileIsNamed) {
  const MappedFile mapped(file);
  mapped.Require_Sound();
  Shrink(kPage);
  EXPECT_EQ(Sum(mapped.Bytes().subspan(2 * kPage, kPage)), 0u);
  EXPECT_EQ(Failure_Of([&] { mapped.Require_Sound(); }), kLost);
  EXPECT_FALSE(mapped.Is_Current());
}

TEST_F(ShrinkingFile, AnEndInsideThePageIsNoticedToo) {
  const MappedFile mapped(file);
  Shrink(8 * kPage - 100);
  EXPECT_EQ(mapped.Bytes().back(), 0);  // without a fault
  EXPECT_EQ(Failure_Of([&] { mapped.Require_Sound(); }), kLost);
}

TEST_F(ShrinkingFile, AFileThatComesBackInFullIsStillLostToItsReader) {
  const MappedFile mapped(file);
  Shrink(0);
  EXPECT_EQ(Sum(mapped.Bytes()), 0u);
  folder.Write("a.raw", std::string(8 * kPage, '\1'));
  EXPECT_EQ(Failure_Of([&] { mapped.Require_Sound(); }), kLost);
  const MappedFile again(file);
  EXPECT_EQ(Sum(again.Bytes()), 8 * kPage);
  again.Require_Sound();
}

TEST_F(ShrinkingFile, AnotherFileInItsPlaceLeavesTheMappedOneWhole) {
  const MappedFile mapped(file);
  folder.Write("b.raw", "b");
  std::filesystem::rename(folder.Path() / "b.raw", file.native);
  EXPECT_EQ(Sum(mapped.Bytes()), 8 * kPage);
  mapped.Require_Sound();
}

TEST_F(ShrinkingFile, OtherMappingsStayAsTheyAre) {
  const MappedFile mapped(file);
  const MappedFile other(folder.Write("b.raw", std::string(8 * kPage, '\2')));
  Shrink(0);
  EXPECT_EQ(Sum(mapped.Bytes()), 0u);
  EXPECT_EQ(Sum(other.Bytes()), 2 * 8 * kPage);
  other.Require_Sound();
}

TEST_F(ShrinkingFile, ManyThreadsReadOnWhileItShrinks) {
  for (int round = 0; round < 300; ++round) {
    folder.Write("a.raw", std::string(64 * kPage, '\1'));
    const MappedFile mapped(file);
    std::atomic<bool> stop = false;
    std::vector<std::thread> readers;
    for (int reader = 0; reader < 4; ++reader) {
      readers.emplace_back([&] {
        while (!stop) EXPECT_LE(Sum(mapped.Bytes()), 64 * kPage);
      });
    }
    std::this_thread::sleep_for(std::chrono::microseconds(50 * (round % 7)));
    Shrink(static_cast<std::size_t>(round % 64) * kPage);
    EXPECT_LT(Sum(mapped.Bytes()), 64 * kPage);
    stop = true;
    for (std::thread& reader : readers) reader.join();
    EXPECT_EQ(Failure_Of([&] { mapped.Require_Sound(); }), kLost);
  }
}

TEST_F(ShrinkingFile, MappingsComeAndGoWhileOthersFail) {
  const FilePath whole = folder.Write("b.raw", std::string(kPage, '\2'));
  std::atomic<bool> stop = false;
  std::thread other([&] {
    while (!stop) {
      const MappedFile mapped(whole);
      EXPECT_EQ(Sum(mapped.Bytes()), 2 * kPage);
      mapped.Require_Sound();
    }
  });
  for (int round = 0; round < 300; ++round) {
    folder.Write("a.raw", std::string(8 * kPage, '\1'));
    const MappedFile mapped(file);
    Shrink(kPage);
    EXPECT_LE(Sum(mapped.Bytes()), kPage);
    EXPECT_EQ(Failure_Of([&] { mapped.Require_Sound(); }), kLost);
  }
  stop = true;
  other.join();
}

TEST_F(ShrinkingFile, WithinAScopeNothingIsWrittenAfterIt) {
  const FilePath kept = folder.Write("kept.txt", "kept\n");
  const ReadScope scope;
  LineFile lines(folder.File("lines.txt"));
  ReplacingFile replacing(kept, 0);
  const MappedFile mapped(file);
  EXPECT_EQ(Sum(mapped.Bytes()), 8 * kPage);
  Require_Sound_Reads();
  Shrink(0);
  EXPECT_EQ(Sum(mapped.Bytes()), 0u);
  EXPECT_EQ(Failure_Of([&] { Require_Sound_Reads(); }), kLost);
  EXPECT_EQ(Failure_Of([&] { Write_Whole_File(kept, "new"); }), kLost);
  EXPECT_EQ(Failure_Of([&] { Overwrite_Start(kept, std::vector<std::uint8_t>{1}); }), kLost);
  EXPECT_EQ(Failure_Of([&] { Append_To_File(kept, "new\n"); }), kLost);
  EXPECT_EQ(Failure_Of([&] { lines.Write("new\n"); }), kLost);
  EXPECT_EQ(Failure_Of([&] { replacing.Commit(); }), kLost);
  EXPECT_EQ(folder.Read("kept.txt"), "kept\n");
  EXPECT_EQ(folder.Read("lines.txt"), "");
}

TEST_F(ShrinkingFile, AScopeInsideAnotherAnswersForItsOwnReadsOnly) {
  const ReadScope outer;
  const MappedFile mapped(folder.Write("b.raw", "bytes"));
  EXPECT_EQ(mapped.Bytes().size(), 5u);
  {
    const ReadScope inner;
    const MappedFile lost(file);
    EXPECT_EQ(lost.Bytes().size(), 8 * kPage);
    Shrink(0);
    EXPECT_EQ(Failure_Of([&] { Require_Sound_Reads(); }), kLost);
  }
  Require_Sound_Reads();
  Write_Whole_File(folder.File("c.txt"), "written");
}

TEST_F(ShrinkingFile, BytesReadInAScopeStayUntilItsEnd) {
  const ReadScope scope;
  std::span<const std::uint8_t> bytes;
  {
    const MappedFile mapped(file);
    bytes = mapped.Bytes();
  }
  EXPECT_EQ(Sum(bytes), 8 * kPage);
  Require_Sound_Reads();
}

TEST_F(ShrinkingFile, AFaultInOtherMemoryGoesToTheFormerHandler) {
  const auto fault = [&] {
    const MappedFile guarded(file);
    const FilePath other = folder.Write("b.raw", std::string(kPage, '\2'));
    const int open_file = open(other.native.c_str(), O_RDONLY);
    auto* const bytes =
        static_cast<volatile char*>(mmap(nullptr, kPage, PROT_READ, MAP_PRIVATE, open_file, 0));
    std::filesystem::resize_file(other.native, 0);
    return bytes[0];
  };
#ifdef SYLVOMEX_SANITIZED
  EXPECT_DEATH(fault(), "BUS");
#else
  EXPECT_EXIT(fault(), testing::KilledBySignal(SIGBUS), "");
#endif
}

}  // namespace
}  // namespace sylvomex
