// SPDX-License-Identifier: MIT
#include "interchange/las_points.h"

#include <algorithm>

#include "interchange/failures.h"

namespace sylvomex {

LasBlockReader::LasBlockReader(std::span<const EchoSource> sources) : sources_(sources) {}

bool LasBlockReader::Next(LasBlock& block) {
  while (source_ < sources_.size() && point_ == sources_[source_].header.count) {
    ++source_;
    point_ = 0;
    file_.clear();
    last_returns_ = 255;
  }
  if (source_ == sources_.size()) return false;
  const EchoSource& source = sources_[source_];
  if (file_.empty()) file_.emplace_back(FilePath{source.name, source.path});
  block.source = source_;
  block.count = std::min(kLasBlock, source.header.count - point_);
  const auto record = static_cast<std::uint64_t>(source.header.record_bytes);
  block.bytes.resize(block.count * record);
  const std::uint64_t at = source.header.points_at + point_ * record;
  if (file_.front().Read_At(static_cast<std::int64_t>(at), block.bytes) != block.bytes.size()) {
    throw Refused(source.name + ": the file became shorter while it was read");
  }
  point_ += block.count;
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
