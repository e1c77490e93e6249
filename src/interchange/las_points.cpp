// SPDX-License-Identifier: MIT
#include "interchange/las_points.h"

#include <algorithm>

#include "interchange/failures.h"

namespace sylvomex {

std::vector<LasRun> Las_Runs(std::span<const EchoSource> sources) {
  std::vector<LasRun> runs;
  for (std::uint32_t source = 0; source < sources.size(); ++source) {
    const std::uint64_t count = sources[source].header.count;
    for (std::uint64_t first = 0; first < count; first += kLasBlock) {
      runs.push_back({source, first, std::min(kLasBlock, count - first)});
    }
  }
  return runs;
}

void Read_Run(const EchoSource& source, const LasRun& run, std::vector<std::uint8_t>& bytes) {
  const auto record = static_cast<std::uint64_t>(source.header.record_bytes);
  const std::uint64_t at = source.header.points_at + run.first * record;
  bytes.resize(run.count * record);
  const PositionalFile file(FilePath{source.name, source.path});
  if (file.Read_At(static_cast<std::int64_t>(at), bytes) != bytes.size()) {
    throw Refused(source.name + ": the file became shorter while it was read");
  }
}

LasBlockReader::LasBlockReader(std::span<const EchoSource> sources)
    : sources_(sources), runs_(Las_Runs(sources)) {}

bool LasBlockReader::Next(LasBlock& block) {
  if (next_ == runs_.size()) return false;
  const LasRun& run = runs_[next_++];
  const EchoSource& source = sources_[run.source];
  block.source = run.source;
  block.count = run.count;
  Read_Run(source, run, block.bytes);
  if (run.first == 0) last_returns_ = 255;
  if (!source.timed) Count_Untimed(block);
  return true;
}

void LasBlockReader::Count_Untimed(LasBlock& block) {
  const LasHeader& header = sources_[block.source].header;
  block.pulses_before = pulses_;
  block.returns_before = last_returns_;
  for (std::uint64_t i = 0; i < block.count; ++i) {
    const auto* bytes = block.bytes.data() + i * static_cast<std::uint64_t>(header.record_bytes);
    const int returns = LasPoint(bytes, header.format).Returns();
    if (Begins_Pulse(last_returns_, returns)) ++pulses_;
    last_returns_ = returns;
  }
}

}  // namespace sylvomex
