// SPDX-License-Identifier: MIT
#include "interchange/echo_survey.h"

#include <tbb/parallel_pipeline.h>

#include <algorithm>
#include <cmath>

#include "interchange/las_points.h"
#include "interchange/recycled.h"

namespace sylvomex {
namespace {

constexpr std::size_t kBlocksAtOnce = 4;
constexpr std::uint64_t kMostReturns = 15;  // of one pulse
constexpr std::uint64_t kMostSamples = 1 << 22;

/// A block on its way, used again and again.
struct BlockSurvey {
  LasRun run;
  std::vector<std::uint8_t> bytes;
  SourceSurvey found;
  std::uint64_t first_key = 0, last_key = 0;
  FlightLines lines;
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

void Take_Time(double time, bool is_sample, BlockSurvey& block) {
  SourceSurvey& found = block.found;
  if (!std::isfinite(time)) {
    found.all_times_finite = false;
    return;
  }
  found.first_time = std::min(found.first_time, time);
  found.last_time = std::max(found.last_time, time);
  const std::uint64_t key = Time_Key(time);
  if (key < block.last_key) found.in_order = false;
  block.last_key = key;
  if (is_sample) found.sampled_keys.push_back(key);
}

void Survey_Block(const EchoSource& source, std::uint64_t every, BlockSurvey& block) {
  const LasHeader& header = source.header;
  Read_Run(source, block.run, block.bytes);
  block.found = Nothing_Found();
  block.lines = {};
  block.last_key = 0;
  const bool has_time = Las_Has_Time(header.format);
  const EchoFrame frame{header.scale, header.offset};
  FlightLines::Taker lines(block.lines);
  for (std::uint64_t i = 0; i < block.run.count; ++i) {
    const LasPoint point(block.bytes.data() + i * static_cast<std::uint64_t>(header.record_bytes),
                         header.format);
    Take_Point(point, block.found);
    if (!has_time) continue;
    const double time = point.Time() + 0.0;
    Take_Time(time, i % every == 0, block);
    if (i == 0) block.first_key = block.last_key;
    lines.Take(point.Line(), time, frame.Coordinate(0, point.Position(0)),
               frame.Coordinate(1, point.Position(1)));
  }
}

/// last_key: of the source's block before, 0 for none.
void Merge(const BlockSurvey& block, std::uint64_t last_key, EchoSurvey& survey) {
  SourceSurvey& source = survey.sources[block.run.source];
  const SourceSurvey& found = block.found;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    source.least[axis] = std::min(source.least[axis], found.least[axis]);
    source.greatest[axis] = std::max(source.greatest[axis], found.greatest[axis]);
  }
  source.first_time = std::min(source.first_time, found.first_time);
  source.last_time = std::max(source.last_time, found.last_time);
  source.ground += found.ground;
  source.all_times_finite = source.all_times_finite && found.all_times_finite;
  source.in_order = source.in_order && found.in_order && block.first_key >= last_key;
  source.sampled_keys.insert(source.sampled_keys.end(), found.sampled_keys.begin(),
                             found.sampled_keys.end());
  survey.echoes += block.run.count;
  survey.lines.Add(block.lines);
}

std::vector<std::uint64_t> Sorted_Samples(const EchoSurvey& survey) {
  std::vector<std::uint64_t> keys;
  for (const SourceSurvey& source : survey.sources) {
    keys.insert(keys.end(), source.sampled_keys.begin(), source.sampled_keys.end());
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

std::uint64_t Sampling_For(double echoes) {
  std::uint64_t every = 64;
  while (every < kLasBlock && echoes > static_cast<double>(every * kMostSamples)) every *= 2;
  return every;
}

}  // namespace

EchoSurvey Survey_Echoes(std::span<const EchoSource> sources, const ToldShare& told) {
  EchoSurvey survey;
  const double total = Echo_Count(sources);
  survey.every = Sampling_For(total);
  survey.sources.assign(sources.size(), Nothing_Found());
  const std::vector<LasRun> runs = Las_Runs(sources);
  Recycled<BlockSurvey> blocks(kBlocksAtOnce);
  std::size_t next = 0;
  std::uint64_t last_key = 0;
  const auto begin = [&](tbb::flow_control& flow) -> BlockSurvey* {
    if (next == runs.size()) {
      flow.stop();
      return nullptr;
    }
    BlockSurvey* const block = blocks.Take();
    block->run = runs[next++];
    return block;
  };
  const auto look = [&](BlockSurvey* block) {
    Survey_Block(sources[block->run.source], survey.every, *block);
    return block;
  };
  const auto merge = [&](BlockSurvey* block) {
    Merge(*block, block->run.first == 0 ? 0 : last_key, survey);
    last_key = block->last_key;
    blocks.Give_Back(block);
    Tell_Share(told, static_cast<double>(survey.echoes), total);
  };
  tbb::parallel_pipeline(
      kBlocksAtOnce,
      tbb::make_filter<void, BlockSurvey*>(tbb::filter_mode::serial_in_order, begin) &
          tbb::make_filter<BlockSurvey*, BlockSurvey*>(tbb::filter_mode::parallel, look) &
          tbb::make_filter<BlockSurvey*, void>(tbb::filter_mode::serial_in_order, merge));
  return survey;
}

std::vector<std::uint64_t> Crowded_Times(const EchoSurvey& survey, std::uint64_t echoes) {
  const std::vector<std::uint64_t> keys = Sorted_Samples(survey);
  const std::uint64_t fewest = std::max<std::uint64_t>(echoes / survey.every, 2);
  std::vector<std::uint64_t> crowded;
  for (auto at = keys.begin(); at != keys.end();) {
    const auto end = std::find_if(at, keys.end(), [&](std::uint64_t key) { return key != *at; });
    if (static_cast<std::uint64_t>(end - at) >= fewest) crowded.push_back(*at);
    at = end;
  }
  return crowded;
}

bool Times_Tell_Pulses(const EchoSource& source, const SourceSurvey& survey,
                       std::span<const std::uint64_t> crowded) {
  if (!Las_Has_Time(source.header.format)) return false;
  const bool is_crowded = std::any_of(crowded.begin(), crowded.end(), [&](std::uint64_t key) {
    return std::find(survey.sampled_keys.begin(), survey.sampled_keys.end(), key) !=
           survey.sampled_keys.end();
  });
  if (is_crowded) return false;
  return source.header.count <= kMostReturns || survey.first_time < survey.last_time;
}

std::vector<std::uint64_t> Share_Limits(const EchoSurvey& survey, std::uint64_t share) {
  const std::vector<std::uint64_t> keys = Sorted_Samples(survey);
  const std::uint64_t step = std::max<std::uint64_t>(share / survey.every, 1);
  std::vector<std::uint64_t> limits;
  for (std::uint64_t at = step; at < keys.size(); at += step) {
    if (limits.empty() || keys[at] > limits.back()) limits.push_back(keys[at]);
  }
  return limits;
}

}  // namespace sylvomex
