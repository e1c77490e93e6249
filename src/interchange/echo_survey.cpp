// SPDX-License-Identifier: MIT
#include "interchange/echo_survey.h"

#include <tbb/parallel_pipeline.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "interchange/las_points.h"

namespace sylvomex {
namespace {

constexpr std::uint64_t kEvery = 64;
constexpr std::size_t kBlocksAtOnce = 8;
constexpr std::uint64_t kMostReturns = 15;  // of one pulse

struct BlockSurvey {
  std::uint32_t source = 0;
  std::uint64_t count = 0;
  SourceSurvey found;
  std::vector<std::uint64_t> keys;
};

SourceSurvey Nothing_Found() {
  SourceSurvey survey;
  survey.least.fill(std::numeric_limits<std::int32_t>::max());
  survey.greatest.fill(std::numeric_limits<std::int32_t>::min());
  survey.first_time = std::numeric_limits<double>::infinity();
  survey.last_time = -survey.first_time;
  return survey;
}

void Take_Point(const LasPoint& point, SourceSurvey& found) {
  for (std::size_t axis = 0; axis < 3; ++axis) {
    found.least[axis] = std::min(found.least[axis], point.Position(axis));
    found.greatest[axis] = std::max(found.greatest[axis], point.Position(axis));
  }
  if (point.Classification() == 2) ++found.ground;
}

BlockSurvey Survey_Block(const LasBlock& block, const LasHeader& header) {
  BlockSurvey survey{block.source, block.count, Nothing_Found(), {}};
  const bool has_time = Las_Has_Time(header.format);
  for (std::uint64_t i = 0; i < block.count; ++i) {
    const LasPoint point(block.bytes.data() + i * static_cast<std::uint64_t>(header.record_bytes),
                         header.format);
    Take_Point(point, survey.found);
    if (!has_time) continue;
    const double time = point.Time();
    if (!std::isfinite(time)) survey.found.all_times_finite = false;
    survey.found.first_time = std::min(survey.found.first_time, time);
    survey.found.last_time = std::max(survey.found.last_time, time);
    if (i % kEvery == 0 && std::isfinite(time)) survey.keys.push_back(Time_Key(time));
  }
  return survey;
}

void Merge(const BlockSurvey& block, EchoSurvey& survey) {
  SourceSurvey& source = survey.sources[block.source];
  for (std::size_t axis = 0; axis < 3; ++axis) {
    source.least[axis] = std::min(source.least[axis], block.found.least[axis]);
    source.greatest[axis] = std::max(source.greatest[axis], block.found.greatest[axis]);
  }
  source.first_time = std::min(source.first_time, block.found.first_time);
  source.last_time = std::max(source.last_time, block.found.last_time);
  source.ground += block.found.ground;
  source.all_times_finite = source.all_times_finite && block.found.all_times_finite;
  survey.echoes += block.count;
  survey.sampled_keys.insert(survey.sampled_keys.end(), block.keys.begin(), block.keys.end());
}

}  // namespace

EchoSurvey Survey_Echoes(std::span<const EchoSource> sources, const ToldShare& told) {
  EchoSurvey survey;
  const double total = Echo_Count(sources);
  survey.sources.assign(sources.size(), Nothing_Found());
  LasBlockReader reader(sources);
  using Block = std::shared_ptr<LasBlock>;
  const auto read = [&](tbb::flow_control& flow) {
    auto block = std::make_shared<LasBlock>();
    if (!reader.Next(*block)) flow.stop();
    return block;
  };
  const auto look = [&](const Block& block) {
    return Survey_Block(*block, sources[block->source].header);
  };
  tbb::parallel_pipeline(
      kBlocksAtOnce, tbb::make_filter<void, Block>(tbb::filter_mode::serial_in_order, read) &
                         tbb::make_filter<Block, BlockSurvey>(tbb::filter_mode::parallel, look) &
                         tbb::make_filter<BlockSurvey, void>(
                             tbb::filter_mode::serial_in_order, [&](const BlockSurvey& block) {
                               Merge(block, survey);
                               Tell_Share(told, static_cast<double>(survey.echoes), total);
                             }));
  return survey;
}

bool Times_Tell_Pulses(const EchoSource& source, const SourceSurvey& survey) {
  if (!Las_Has_Time(source.header.format)) return false;
  return source.header.count <= kMostReturns || survey.first_time < survey.last_time;
}

std::vector<std::uint64_t> Share_Limits(std::vector<std::uint64_t> sampled_keys,
                                        std::uint64_t share) {
  std::sort(sampled_keys.begin(), sampled_keys.end());
  const std::uint64_t step = std::max<std::uint64_t>(share / kEvery, 1);
  std::vector<std::uint64_t> limits;
  for (std::uint64_t at = step; at < sampled_keys.size(); at += step) {
    if (limits.empty() || sampled_keys[at] > limits.back()) limits.push_back(sampled_keys[at]);
  }
  return limits;
}

}  // namespace sylvomex
