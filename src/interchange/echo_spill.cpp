// SPDX-License-Identifier: MIT
#include "interchange/echo_spill.h"

#include <tbb/parallel_pipeline.h>

#include <algorithm>
#include <map>
#include <memory>

#include "interchange/echo_reading.h"
#include "interchange/failures.h"
#include "interchange/las_points.h"
#include "interchange/output_file.h"
#include "interchange/recycled.h"

namespace sylvomex {
namespace {

constexpr std::size_t kBlocksAtOnce = 4;
constexpr std::uint64_t kPulsesOfShare = 250'000;  // untimed ones
constexpr std::uint64_t kFewestOfShare = 500'000, kMostOfShare = 1'500'000, kShares = 600;

/// A block on its way, used again and again.
struct SharedBlock {
  LasBlock block;
  std::vector<EchoRecord> read;
  std::vector<std::size_t> share_of;
  std::vector<EchoRecord> echoes;   // in the order of their shares
  std::vector<std::size_t> starts;  // of share i in the echoes; shares + 1
  FlightLines lines;
};

/// The share of an untimed pulse is kept whole: shares change at the first echoes of pulses.
std::size_t Share_Of(std::uint64_t key, const std::vector<std::uint64_t>& limits) {
  if (!Has_Time(key)) return limits.size() + 1 + (key - kFirstUntimedKey) / kPulsesOfShare;
  return static_cast<std::size_t>(std::upper_bound(limits.begin(), limits.end(), key) -
                                  limits.begin());
}

void Sort_By_Shares(const std::vector<std::uint64_t>& limits, SharedBlock& block) {
  block.share_of.clear();
  std::size_t shares = 0;
  for (const EchoRecord& echo : block.read) {
    block.share_of.push_back(Share_Of(echo.key, limits));
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

class ShareWriter {
 public:
  explicit ShareWriter(const std::function<std::filesystem::path(const std::string&)>& new_file)
      : new_file_(new_file) {}

  void Append(const SharedBlock& shared) {
    for (std::size_t share = 0; share + 1 < shared.starts.size(); ++share) {
      const std::size_t begin = shared.starts[share];
      const std::size_t end = shared.starts[share + 1];
      if (begin == end) continue;
      File(share).Write({reinterpret_cast<const std::uint8_t*>(shared.echoes.data() + begin),
                         (end - begin) * sizeof(EchoRecord)});
    }
  }

  std::vector<std::filesystem::path> Close() {
    std::vector<std::filesystem::path> paths;
    for (auto& [share, file] : files_) {
      file->Close();
      paths.push_back(path_[share]);
    }
    return paths;
  }

 private:
  OutputFile& File(std::size_t share) {
    auto& file = files_[share];
    if (file == nullptr) {
      path_[share] = new_file_("echoes_" + std::to_string(share));
      file = std::make_unique<OutputFile>(path_[share], path_[share].string());
    }
    return *file;
  }

  const std::function<std::filesystem::path(const std::string&)>& new_file_;
  std::map<std::size_t, std::unique_ptr<OutputFile>> files_;
  std::map<std::size_t, std::filesystem::path> path_;
};

void Convert(const EchoSource& source, const std::string& site,
             const std::vector<std::uint64_t>& limits, SharedBlock& block) {
  block.read.clear();
  Read_Echoes(block.block, source, site, block.read);
  block.lines = {};
  block.lines.Add(block.read, source.frame);
  Sort_By_Shares(limits, block);
}

void Read_Share(const std::filesystem::path& path, std::vector<EchoRecord>& echoes) {
  const PositionalFile file(FilePath{path.string(), path});
  echoes.resize(file.Size() / sizeof(EchoRecord));
  const std::span<std::uint8_t> bytes(reinterpret_cast<std::uint8_t*>(echoes.data()),
                                      echoes.size() * sizeof(EchoRecord));
  if (file.Read_At(0, bytes) != bytes.size()) {
    throw FailedOnTheWay(path.string() + ": the file became shorter");
  }
  std::filesystem::remove(path);
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
  ShareWriter writer(new_file);
  LasBlockReader reader(sources);
  Recycled<SharedBlock> blocks(kBlocksAtOnce);
  const auto read = [&](tbb::flow_control& flow) -> SharedBlock* {
    SharedBlock* const block = blocks.Take();
    if (!reader.Next(block->block)) flow.stop();
    return block;
  };
  const auto convert = [&](SharedBlock* block) {
    Convert(sources[block->block.source], site, limits, *block);
    return block;
  };
  const auto write = [&](SharedBlock* block) {
    writer.Append(*block);
    shares.lines.Add(block->lines);
    Tell_Share(told, done += static_cast<double>(block->echoes.size()), total);
    blocks.Give_Back(block);
  };
  tbb::parallel_pipeline(
      kBlocksAtOnce,
      tbb::make_filter<void, SharedBlock*>(tbb::filter_mode::serial_in_order, read) &
          tbb::make_filter<SharedBlock*, SharedBlock*>(tbb::filter_mode::parallel, convert) &
          tbb::make_filter<SharedBlock*, void>(tbb::filter_mode::serial_in_order, write));
  const std::vector<std::filesystem::path> files = writer.Close();
  shares.count = files.size();
  shares.read = [files](std::size_t share, std::vector<EchoRecord>& echoes) {
    Read_Share(files[share], echoes);
  };
  return shares;
}

}  // namespace sylvomex
