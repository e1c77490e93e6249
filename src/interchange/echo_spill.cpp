// SPDX-License-Identifier: MIT
#include "interchange/echo_spill.h"

#include <tbb/parallel_pipeline.h>

#include <algorithm>
#include <memory>

#include "interchange/echo_reading.h"
#include "interchange/las_points.h"
#include "interchange/recycled.h"
#include "interchange/share_files.h"
#include "interchange/share_limits.h"

namespace sylvomex {
namespace {

constexpr std::size_t kBlocksAtOnce = 4;
constexpr std::uint64_t kPulsesOfShare = 100'000;  // untimed ones
constexpr std::uint64_t kFewestOfShare = 1 << 16, kMostOfShare = 750'000, kShares = 2000;

/// The shares of keys: those of times, and behind them those of pulses without a time, which are
/// kept whole: their shares change at the first echoes of pulses.
class SharesOfKeys {
 public:
  SharesOfKeys(std::span<const EchoSource> sources, const std::vector<std::uint64_t>& limits)
      : timed_(limits) {
    std::uint64_t untimed = 0;  // echoes, and so at most as many pulses
    for (const EchoSource& source : sources) untimed += source.timed ? 0 : source.header.count;
    most_ = timed_.Count() + untimed / kPulsesOfShare + 1;
  }

  [[nodiscard]] std::size_t Most() const { return most_; }

  [[nodiscard]] std::size_t Share_Of(std::uint64_t key) const {
    if (Has_Time(key)) return timed_.Share_Of(key);
    return timed_.Count() + (key - kFirstUntimedKey) / kPulsesOfShare;
  }

 private:
  ShareLimits timed_;
  std::size_t most_ = 0;
};

/// A block on its way, used again and again.
struct SharedBlock {
  LasBlock block;
  std::vector<EchoRecord> read;
  std::vector<std::size_t> share_of;
  std::vector<EchoRecord> echoes;   // in the order of their shares
  std::vector<std::size_t> starts;  // of share i in the echoes; shares + 1
  FlightLines lines;
};

void Sort_By_Shares(const SharesOfKeys& keys, SharedBlock& block) {
  block.share_of.clear();
  std::size_t shares = 0;
  for (const EchoRecord& echo : block.read) {
    block.share_of.push_back(keys.Share_Of(echo.key));
    shares = std::max(shares, block.share_of.back() + 1);
  }
  block.starts.assign(shares + 1, 0);
  for (const std::size_t share : block.share_of) ++block.starts[share + 1];
  for (std::size_t i = 0; i < shares; ++i) block.starts[i + 1] += block.starts[i];
  std::vector<std::size_t> next(block.starts.begin(), block.starts.end() - 1);
  block.echoes.resize(block.read.size());
  for (std::size_t i = 0; i < block.read.size(); ++i) {
    block.echoes[next[block.share_of[i]]++] = block.read[i];
  }
}

void Append(const SharedBlock& shared, ShareFiles& files) {
  const std::span<const EchoRecord> echoes(shared.echoes);
  for (std::size_t share = 0; share + 1 < shared.starts.size(); ++share) {
    const std::size_t begin = shared.starts[share];
    const std::size_t end = shared.starts[share + 1];
    if (begin < end) files.Append(share, echoes.subspan(begin, end - begin));
  }
}

void Convert(const EchoSource& source, const std::string& site, const SharesOfKeys& keys,
             SharedBlock& block) {
  block.read.clear();
  Read_Echoes(block.block, source, site, block.read);
  block.lines = {};
  block.lines.Add(block.read, source.frame);
  Sort_By_Shares(keys, block);
}

}  // namespace

std::uint64_t Echoes_Of_Share(std::uint64_t echoes) {
  return std::clamp(echoes / kShares, kFewestOfShare, kMostOfShare);
}

EchoShares Spill_Echoes(std::span<const EchoSource> sources,
                        const std::vector<std::uint64_t>& limits, const std::string& site,
                        const std::function<std::filesystem::path(const std::string&)>& new_file,
                        const ToldShare& told) {
  EchoShares shares;
  const double total = Echo_Count(sources);
  double done = 0;
  const SharesOfKeys keys(sources, limits);
  const auto files = std::make_shared<ShareFiles>(keys.Most(), new_file);
  LasBlockReader reader(sources);
  Recycled<SharedBlock> blocks(kBlocksAtOnce);
  const auto read = [&](tbb::flow_control& flow) -> SharedBlock* {
    SharedBlock* const block = blocks.Take();
    if (!reader.Next(block->block)) flow.stop();
    return block;
  };
  const auto convert = [&](SharedBlock* block) {
    Convert(sources[block->block.source], site, keys, *block);
    return block;
  };
  const auto write = [&](SharedBlock* block) {
    Append(*block, *files);
    shares.lines.Add(block->lines);
    Tell_Share(told, done += static_cast<double>(block->echoes.size()), total);
    blocks.Give_Back(block);
  };
  tbb::parallel_pipeline(
      kBlocksAtOnce,
      tbb::make_filter<void, SharedBlock*>(tbb::filter_mode::serial_in_order, read) &
          tbb::make_filter<SharedBlock*, SharedBlock*>(tbb::filter_mode::parallel, convert) &
          tbb::make_filter<SharedBlock*, void>(tbb::filter_mode::serial_in_order, write));
  files->Finish();
  shares.count = files->Count();
  shares.read = [files](std::size_t share, std::vector<EchoRecord>& echoes) {
    files->Read(share, echoes);
  };
  return shares;
}

}  // namespace sylvomex
