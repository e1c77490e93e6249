// SPDX-License-Identifier: MIT
// The echoes of ordered files in shares, and which files are told to be new by their sizes.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "interchange/lidar_sources.h"
#include "interchange/ordered_shares.h"
#include "interchange/source_checksums.h"
#include "support/las_files.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

/// An echo as it stands in its file: its time, and a number of its own as intensity.
struct Seen {
  double time;
  std::uint32_t source;
  int number;

  bool operator==(const Seen&) const = default;
};

struct LidarShares : testing::Test {
  TemporaryFolder folder;
  std::vector<std::filesystem::path> files;
  std::vector<Seen> all;  // in the order of the files

  void Add_File(const std::vector<double>& times, int format = 6) {
    TestLas las;
    las.format = format;
    las.minor = format >= 6 ? 4 : 2;
    for (std::size_t i = 0; i < times.size(); ++i) {
      las.points.push_back({384000.0 + static_cast<double>(i % 500), 6675000, 150, 1, 1, times[i],
                            static_cast<std::uint16_t>(i)});
      all.push_back({times[i], static_cast<std::uint32_t>(files.size()), static_cast<int>(i)});
    }
    files.push_back(folder.Write("f" + std::to_string(files.size()) + ".las", las.Bytes()).native);
  }

  LidarSources Opened() {
    return Open_Lidar(files, "EPSG:3067",
                      [&](const std::string& name) { return folder.Path() / name; });
  }
};

std::vector<Seen> Read_All(const EchoShares& shares) {
  std::vector<Seen> seen;
  std::vector<EchoRecord> echoes(3);  // of some share before
  for (std::size_t share = 0; share < shares.count; ++share) {
    shares.read(share, echoes);
    for (const EchoRecord& echo : echoes) {
      seen.push_back({Time_Of(echo.key), echo.source, echo.intensity});
    }
  }
  return seen;
}

std::vector<Seen> In_Order_Of_Times(std::vector<Seen> seen) {
  std::stable_sort(seen.begin(), seen.end(),
                   [](const Seen& a, const Seen& b) { return a.time < b.time; });
  return seen;
}

TEST_F(LidarShares, FilesThatOverlapInTimeAreDividedAtTheSameTimes) {
  std::vector<double> even, odd;
  for (int i = 0; i < 3000; ++i) even.push_back(100 + 2 * i);
  for (int i = 0; i < 900; ++i) odd.push_back(1501 + 2 * i);
  Add_File(even);
  Add_File(odd, 1);
  const LidarSources lidar = Opened();
  const auto shares = Ordered_Shares(lidar.sources, lidar.survey, 128);
  ASSERT_TRUE(shares);
  EXPECT_GT(shares->count, 20U);
  std::vector<EchoRecord> echoes;
  double before = 0;
  for (std::size_t share = 0; share < shares->count; ++share) {
    shares->read(share, echoes);
    const auto [least, greatest] =
        std::minmax_element(echoes.begin(), echoes.end(),
                            [](const EchoRecord& a, const EchoRecord& b) { return a.key < b.key; });
    EXPECT_GT(Time_Of(least->key), before);
    before = Time_Of(greatest->key);
  }
  EXPECT_EQ(In_Order_Of_Times(Read_All(*shares)), In_Order_Of_Times(all));
}

TEST_F(LidarShares, EchoesOfOneTimeStayTogetherInTheOrderOfTheFiles) {
  std::vector<double> times;
  for (int i = 0; i < 2000; ++i) times.push_back(i / 300);  // NOLINT(bugprone-integer-division)
  Add_File(times);
  Add_File(times);
  const LidarSources lidar = Opened();
  const auto shares = Ordered_Shares(lidar.sources, lidar.survey, 64);
  ASSERT_TRUE(shares);
  EXPECT_EQ(In_Order_Of_Times(Read_All(*shares)), In_Order_Of_Times(all));
  std::vector<EchoRecord> echoes;
  std::vector<std::size_t> sizes;
  for (std::size_t share = 0; share < shares->count; ++share) {
    shares->read(share, echoes);
    if (!echoes.empty()) sizes.push_back(echoes.size());
    for (const EchoRecord& echo : echoes) EXPECT_EQ(echo.key, echoes.front().key);
  }
  EXPECT_EQ(sizes, (std::vector<std::size_t>{600, 600, 600, 600, 600, 600, 400}));
}

TEST_F(LidarShares, AnyShareHoldsEveryEchoOnce) {
  std::mt19937 random(3);
  std::vector<double> times;
  for (int i = 0; i < 5000; ++i) times.push_back(static_cast<double>(random() % 4000) - 700);
  std::sort(times.begin(), times.end());
  Add_File(times);
  const LidarSources lidar = Opened();
  for (const std::uint64_t share : {1U, 64U, 700U, 5000U, 1U << 20U}) {
    const auto shares = Ordered_Shares(lidar.sources, lidar.survey, share);
    ASSERT_TRUE(shares);
    EXPECT_EQ(Read_All(*shares), all) << share;
  }
}

TEST_F(LidarShares, OneEchoOutOfOrderAsksForTheSortOnDisk) {
  std::vector<double> ordered;
  for (int i = 0; i < 70000; ++i) ordered.push_back(i);
  Add_File(ordered);
  EXPECT_TRUE(Ordered_Shares(Opened().sources, Opened().survey));
  // 65536 is the first of a block that is read by itself.
  for (const std::size_t at : {1U, 300U, 65535U, 65536U, 69999U}) {
    files.resize(1);
    std::vector<double> times = ordered;
    times[at] -= 1.5;
    Add_File(times);
    const LidarSources lidar = Opened();
    EXPECT_TRUE(lidar.survey.sources[0].in_order) << at;
    EXPECT_FALSE(lidar.survey.sources[1].in_order) << at;
    EXPECT_FALSE(Ordered_Shares(lidar.sources, lidar.survey)) << at;
  }
}

TEST_F(LidarShares, FilesWithoutTimesAskForTheSortOnDisk) {
  Add_File({1, 2, 3, 4}, 0);
  const LidarSources lidar = Opened();
  EXPECT_FALSE(Ordered_Shares(lidar.sources, lidar.survey));
}

/// All echoes but a few have the time 0, as of an instrument without a clock.
TEST_F(LidarShares, ATimeThatAMillionEchoesShareIsNone) {
  constexpr std::size_t kEchoes = 1'050'000;
  for (const std::size_t alike : {kEchoes - 300, kEchoes / 2}) {
    files.clear();
    std::vector<double> times(kEchoes, 0);
    for (std::size_t i = alike; i < kEchoes; ++i) times[i] = 1e-3 * static_cast<double>(i);
    Add_File(times, 1);
    Add_File({1, 2, 3}, 1);
    const LidarSources lidar = Opened();
    EXPECT_EQ(lidar.sources[0].timed, alike < kEchoes / 2 + 1);
    EXPECT_TRUE(lidar.sources[1].timed);
  }
}

TEST_F(LidarShares, EchoesOfOneTimeAreCountedOverAllFiles) {
  EchoSurvey survey;
  survey.every = 64;
  survey.sources.resize(3);
  for (std::size_t i = 0; i < 3; ++i) survey.sources[i].sampled_keys.assign(10, 7 + i / 2);
  EXPECT_EQ(Crowded_Times(survey, 20 * 64), (std::vector<std::uint64_t>{7}));
  EXPECT_EQ(Crowded_Times(survey, 10 * 64), (std::vector<std::uint64_t>{7, 8}));
  EXPECT_TRUE(Crowded_Times(survey, 21 * 64).empty());
  EchoSource source;
  source.header.format = 1;
  source.header.count = 100;
  survey.sources[0].first_time = 1;
  survey.sources[0].last_time = 2;
  const std::vector<std::uint64_t> crowded{7};
  EXPECT_FALSE(Times_Tell_Pulses(source, survey.sources[0], crowded));
  EXPECT_TRUE(Times_Tell_Pulses(source, survey.sources[0], {}));
}

TEST_F(LidarShares, NewSizesTellNewFiles) {
  const std::string a = folder.Write("a", "12345").native.string();
  const std::string b = folder.Write("b", "123456").native.string();
  EXPECT_TRUE(Sizes_Are_New({a, b}, {}));
  EXPECT_TRUE(Sizes_Are_New({a, b}, {{"old", "", 7}}));
  EXPECT_FALSE(Sizes_Are_New({a, b}, {{"old", "", 6}}));
  EXPECT_FALSE(Sizes_Are_New({a, b}, {{"of a site that tells no sizes", "", 0}}));
  EXPECT_FALSE(Sizes_Are_New({a, b, a}, {}));
  EXPECT_FALSE(Sizes_Are_New({a, folder.Path() / "none"}, {}));
  EXPECT_FALSE(Sizes_Are_New({folder.Path()}, {}));
}

TEST_F(LidarShares, ChecksumsAreTakenBesideOtherWork) {
  SourceChecksums sums({folder.Write("abc", "abc").native});
  const std::vector<SourceFile> taken = sums.Take();
  ASSERT_EQ(taken.size(), 1U);
  // FIPS 180-2, appendix B.1.
  EXPECT_EQ(taken[0].checksum, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(taken[0].bytes, 3U);
}

}  // namespace
}  // namespace sylvomex
