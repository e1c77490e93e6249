// SPDX-License-Identifier: MIT
#include "interchange/ordered_shares.h"

#include <tbb/enumerable_thread_specific.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "interchange/echo_reading.h"
#include "interchange/las_points.h"

namespace sylvomex {
namespace {

bool Can_Be_Read_In_Order(std::span<const EchoSource> sources, const EchoSurvey& survey) {
  for (std::size_t i = 0; i < sources.size(); ++i) {
    if (!sources[i].timed || !sources[i].system.empty() || !survey.sources[i].in_order)
      return false;
  }
  return true;
}

/// Finds points of an ordered source by their keys.
class KeySearch {
 public:
  KeySearch(const EchoSource& source, const SourceSurvey& survey, std::uint64_t every)
      : source_(source), survey_(survey), every_(every) {}

  /// The first point whose key is not below a limit, the number of points when there is none.
  std::uint64_t First_From(std::uint64_t limit) {
    const std::vector<std::uint64_t>& keys = survey_.sampled_keys;
    const auto sample = static_cast<std::uint64_t>(
        std::lower_bound(keys.begin(), keys.end(), limit) - keys.begin());
    if (sample == 0) return 0;
    const std::uint64_t count = source_.header.count;
    if (Time_Key(survey_.last_time) < limit) return count;
    const std::uint64_t low = (sample - 1) * every_;
    return low + Below(limit, {0, low, std::min(every_, count - low)});
  }

 private:
  /// How many points of a run have keys below a limit.
  std::uint64_t Below(std::uint64_t limit, const LasRun& run) {
    Read_Run(source_, run, bytes_);
    std::uint64_t below = 0;
    while (below < run.count) {
      const auto* point =
          bytes_.data() + below * static_cast<std::uint64_t>(source_.header.record_bytes);
      if (Time_Key(LasPoint(point, source_.header.format).Time()) >= limit) break;
      ++below;
    }
    return below;
  }

  const EchoSource& source_;
  const SourceSurvey& survey_;
  std::uint64_t every_;
  std::vector<std::uint8_t> bytes_;
};

using SharesOfRuns = std::vector<std::vector<LasRun>>;

SharesOfRuns Runs_Of_Shares(std::span<const EchoSource> sources, const EchoSurvey& survey,
                            std::uint64_t share) {
  const std::vector<std::uint64_t> limits = Share_Limits(survey, share);
  SharesOfRuns shares(limits.size() + 1);
  for (std::uint32_t i = 0; i < sources.size(); ++i) {
    KeySearch search(sources[i], survey.sources[i], survey.every);
    std::uint64_t first = 0;
    for (std::size_t at = 0; at < shares.size(); ++at) {
      const std::uint64_t end =
          at < limits.size() ? search.First_From(limits[at]) : sources[i].header.count;
      if (end > first) shares[at].push_back({i, first, end - first});
      first = std::max(first, end);
    }
  }
  return shares;
}

}  // namespace

std::optional<EchoShares> Ordered_Shares(std::span<const EchoSource> sources,
                                         const EchoSurvey& survey, std::uint64_t share) {
  if (!Can_Be_Read_In_Order(sources, survey)) return std::nullopt;
  const auto runs = std::make_shared<const SharesOfRuns>(Runs_Of_Shares(sources, survey, share));
  const auto blocks = std::make_shared<tbb::enumerable_thread_specific<LasBlock>>();
  const auto read = [=](std::size_t at, std::vector<EchoRecord>& echoes) {
    LasBlock& block = blocks->local();
    echoes.clear();
    for (const LasRun& run : (*runs)[at]) {
      block.source = run.source;
      block.count = run.count;
      Read_Run(sources[run.source], run, block.bytes);
      Read_Echoes(block, sources[run.source], {}, echoes);
    }
  };
  return EchoShares{runs->size(), read, survey.lines};
}

}  // namespace sylvomex
