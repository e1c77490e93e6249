// SPDX-License-Identifier: MIT
// The sort on disk: how keys find their shares, and many shares in few files.
#include "interchange/share_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "interchange/echo_spill.h"
#include "interchange/failures.h"
#include "interchange/share_limits.h"
#include "support/file_size_limit.h"
#include "support/las_files.h"
#include "support/open_files_limit.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

struct ManyShares : testing::Test {
  TemporaryFolder folder;

  std::function<std::filesystem::path(const std::string&)> New_File() {
    return [&](const std::string& name) { return folder.Path() / name; };
  }
  [[nodiscard]] std::size_t Files() const {
    const std::filesystem::directory_iterator all(folder.Path());
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
  }
};

EchoRecord Numbered(std::uint64_t key, std::int32_t number) {
  EchoRecord echo;
  echo.key = key;
  echo.position = {number, -number, 7};
  return echo;
}

std::vector<std::int32_t> Numbers(const std::vector<EchoRecord>& echoes) {
  std::vector<std::int32_t> numbers;
  for (const EchoRecord& echo : echoes) numbers.push_back(echo.position[0]);
  return numbers;
}

TEST_F(ManyShares, EveryShareGivesItsEchoesBackInTheirOrder) {
  for (const std::size_t shares : {1U, 5U, 33U, 3000U}) {
    ShareFiles files(shares, New_File());
    std::mt19937 random(4);
    std::vector<std::vector<std::int32_t>> expected(shares);
    for (std::int32_t number = 0; number < 60000;) {
      const std::size_t share = random() % shares;
      std::vector<EchoRecord> run;
      for (std::uint32_t left = random() % 40; left > 0; --left) {
        run.push_back(Numbered(share, number));
        expected[share].push_back(number++);
      }
      files.Append(share, run);
    }
    files.Finish();
    ASSERT_EQ(files.Count(), shares);
    EXPECT_LE(Files(), ShareFiles::kMostFiles);
    std::vector<EchoRecord> echoes(9);  // of some share before
    for (std::size_t share = shares; share-- > 0;) {
      files.Read(share, echoes);
      EXPECT_EQ(Numbers(echoes), expected[share]) << share << " of " << shares;
    }
    EXPECT_EQ(Files(), 0U);
  }
}

TEST_F(ManyShares, SharesWithoutEchoesAreEmptyAndTakeNoFile) {
  ShareFiles files(100, New_File());
  files.Append(40, std::vector<EchoRecord>{Numbered(1, 6)});
  files.Append(50, {});
  files.Finish();
  EXPECT_EQ(files.Count(), 41U);
  EXPECT_EQ(Files(), 1U);
  std::vector<EchoRecord> echoes(2);
  for (std::size_t share = 0; share < 40; ++share) {
    files.Read(share, echoes);
    EXPECT_TRUE(echoes.empty());
  }
  files.Read(40, echoes);
  EXPECT_EQ(Numbers(echoes), std::vector<std::int32_t>{6});
  EXPECT_EQ(Files(), 0U);
}

TEST_F(ManyShares, AFileGoesWithItsLastShare) {
  ShareFiles files(64, New_File());  // two in a file
  for (std::size_t share = 0; share < 64; ++share) {
    files.Append(share, std::vector<EchoRecord>{Numbered(share, 1)});
  }
  files.Finish();
  std::vector<EchoRecord> echoes;
  files.Read(0, echoes);
  EXPECT_EQ(Files(), 32U);
  files.Read(1, echoes);
  EXPECT_EQ(Files(), 31U);
}

TEST_F(ManyShares, AFullDiskIsTold) {
  ShareFiles files(3, New_File());
  const std::vector<EchoRecord> many(5000);
  const FileSizeLimit full(100'000);
  EXPECT_THROW(
      {
        files.Append(0, many);
        files.Finish();
      },
      FailedOnTheWay);
}

/// 2000 shares of times and 3 of pulses without one, with room for 40 more open files.
TEST_F(ManyShares, NeedFewOpenFiles) {
  TestLas timed, untimed;
  std::vector<std::uint64_t> limits;
  for (std::uint32_t i = 0; i < 4002; ++i) {
    const std::uint32_t time = i * 1201 % 4002;  // each once, as 1201 and 4002 share no factor
    timed.points.push_back({384000, 6675000, 150, 1, 1, 1.0 * time, 1});
    if (i % 2 == 1 && i > 2) limits.push_back(Time_Key(i - 1));
  }
  ASSERT_EQ(limits.size(), 2000U);
  untimed.format = 0;
  for (int i = 0; i < 250'000; ++i) untimed.points.push_back({384000, 6675000, 150, 1, 1});
  std::vector<EchoSource> sources(2);
  for (std::size_t i = 0; i < 2; ++i) {
    sources[i].path = folder.Write("f", (i == 0 ? timed : untimed).Bytes()).native;
    sources[i].path += std::to_string(i);
    std::filesystem::rename(folder.Path() / "f", sources[i].path);
    sources[i].name = sources[i].path.string();
    sources[i].header = Read_Las_Header(sources[i].path, sources[i].name);
    sources[i].timed = i == 0;
  }
  const OpenFilesLimit few(40);
  const EchoShares shares = Spill_Echoes(sources, limits, {}, New_File());
  ASSERT_EQ(shares.count, 2004U);
  std::vector<EchoRecord> echoes;
  std::uint32_t time = 0;
  for (std::size_t share = 0; share <= 2000; ++share) {
    shares.read(share, echoes);
    ASSERT_EQ(echoes.size(), 2U) << share;
    std::sort(echoes.begin(), echoes.end(),
              [](const EchoRecord& a, const EchoRecord& b) { return a.key < b.key; });
    for (const EchoRecord& echo : echoes) EXPECT_EQ(Time_Of(echo.key), time++);
  }
  std::uint64_t pulse = 0;
  for (std::size_t share = 2001; share < 2004; ++share) {
    shares.read(share, echoes);
    EXPECT_LE(echoes.size(), 100'000U);
    for (const EchoRecord& echo : echoes) ASSERT_EQ(echo.key, Untimed_Key(++pulse));
  }
  EXPECT_EQ(pulse, 250'000U);
}

void Expect_As_Searched(const std::vector<std::uint64_t>& limits,
                        const std::vector<std::uint64_t>& keys) {
  const ShareLimits shares(limits);
  EXPECT_EQ(shares.Count(), limits.size() + 1);
  for (const std::uint64_t key : keys) {
    const auto plain = std::upper_bound(limits.begin(), limits.end(), key) - limits.begin();
    EXPECT_EQ(shares.Share_Of(key), static_cast<std::size_t>(plain)) << key;
  }
}

TEST(ShareLimits, EveryKeyFallsBetweenItsLimits) {
  constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
  std::mt19937_64 random(9);
  for (const unsigned bits : {4U, 13U, 14U, 30U, 52U, 63U, 64U}) {
    std::vector<std::uint64_t> limits, keys{0, 1, kMost - 1, kMost};
    for (int i = 0; i < 500; ++i) limits.push_back(random() >> (64 - bits));
    std::sort(limits.begin(), limits.end());
    limits.erase(std::unique(limits.begin(), limits.end()), limits.end());
    for (const std::uint64_t limit : limits) keys.insert(keys.end(), {limit - 1, limit, limit + 1});
    for (int i = 0; i < 5000; ++i) keys.push_back(random() >> (64 - bits));
    Expect_As_Searched(limits, keys);
  }
}

TEST(ShareLimits, CrowdedFewAndNoLimits) {
  constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
  const std::vector<std::uint64_t> keys{0, 1, 2, 3, 4, 5, 99, 1ULL << 40, kMost - 1, kMost};
  Expect_As_Searched({}, keys);
  Expect_As_Searched({3}, keys);
  Expect_As_Searched({1, 2, 3, 4, kMost}, keys);
  Expect_As_Searched({0, kMost - 2, kMost - 1, kMost}, keys);
}

}  // namespace
}  // namespace sylvomex
