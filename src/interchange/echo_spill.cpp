// SPDX-License-Identifier: MIT
#include "interchange/echo_spill.h"

#include <tbb/parallel_pipeline.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "interchange/echo_reading.h"
#include "interchange/failures.h"
#include "interchange/las_points.h"
#include "interchange/output_file.h"

namespace sylvomex {
namespace {

constexpr std::size_t kBlocksAtOnce = 8;
constexpr std::uint64_t kPulsesOfShare = 500'000;  // untimed ones

/// Echoes of a block in the order of their shares; those of share i begin at starts[i].
struct SharedEchoes {
  std::uint32_t source = 0;
  std::vector<EchoRecord> echoes;
  std::vector<std::size_t> starts;  // shares + 1
  FlightLines lines;
};

/// The share of an untimed pulse is kept whole: shares change at the first echoes of pulses.
std::size_t Share_Of(std::uint64_t key, const std::vector<std::uint64_t>& limits) {
  if (!Has_Time(key)) return limits.size() + 1 + (key - kFirstUntimedKey) / kPulsesOfShare;
  return static_cast<std::size_t>(std::upper_bound(limits.begin(), limits.end(), key) -
                                  limits.begin());
}

SharedEchoes By_Shares(std::vector<EchoRecord> echoes, const std::vector<std::uint64_t>& limits) {
  std::vector<std::size_t> share_of;
  share_of.reserve(echoes.size());
  std::size_t shares = 0;
  for (const EchoRecord& echo : echoes) {
    share_of.push_back(Share_Of(echo.key, limits));
    shares = std::max(shares, share_of.back() + 1);
  }
  SharedEchoes shared;
  shared.starts.assign(shares + 1, 0);
  for (const std::size_t share : share_of) ++shared.starts[share + 1];
  for (std::size_t i = 0; i < shares; ++i) shared.starts[i + 1] += shared.starts[i];
  std::vector<std::size_t> next(shared.starts.begin(), shared.starts.end() - 1);
  shared.echoes.resize(echoes.size());
  for (std::size_t i = 0; i < echoes.size(); ++i) shared.echoes[next[share_of[i]]++] = echoes[i];
  return shared;
}

class ShareWriter {
 public:
  explicit ShareWriter(const std::function<std::filesystem::path(const std::string&)>& new_file)
      : new_file_(new_file) {}

  void Append(const SharedEchoes& shared) {
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

SharedEchoes Convert(const LasBlock& block, const EchoSource& source, const std::string& site,
                     const std::vector<std::uint64_t>& limits) {
  std::vector<EchoRecord> echoes = Read_Echoes(block, source, site);
  FlightLines lines;
  lines.Add(echoes, source.frame);
  SharedEchoes shared = By_Shares(std::move(echoes), limits);
  shared.source = block.source;
  shared.lines = std::move(lines);
  return shared;
}

}  // namespace

EchoShares Spill_Echoes(std::span<const EchoSource> sources,
                        const std::vector<std::uint64_t>& limits, const std::string& site,
                        const std::function<std::filesystem::path(const std::string&)>& new_file,
                        const ToldShare& told) {
  EchoShares shares;
  const double total = Echo_Count(sources);
  double done = 0;
  ShareWriter writer(new_file);
  LasBlockReader reader(sources);
  using Block = std::shared_ptr<LasBlock>;
  using Shared = std::shared_ptr<SharedEchoes>;
  const auto read = [&](tbb::flow_control& flow) {
    auto block = std::make_shared<LasBlock>();
    if (!reader.Next(*block)) flow.stop();
    return block;
  };
  const auto convert = [&](const Block& block) {
    return std::make_shared<SharedEchoes>(Convert(*block, sources[block->source], site, limits));
  };
  const auto write = [&](const Shared& shared) {
    writer.Append(*shared);
    shares.lines.Add(shared->lines);
    Tell_Share(told, done += static_cast<double>(shared->echoes.size()), total);
  };
  tbb::parallel_pipeline(
      kBlocksAtOnce, tbb::make_filter<void, Block>(tbb::filter_mode::serial_in_order, read) &
                         tbb::make_filter<Block, Shared>(tbb::filter_mode::parallel, convert) &
                         tbb::make_filter<Shared, void>(tbb::filter_mode::serial_in_order, write));
  shares.files = writer.Close();
  return shares;
}

std::vector<EchoRecord> Read_Share(const std::filesystem::path& path) {
  const PositionalFile file(FilePath{path.string(), path});
  std::vector<EchoRecord> echoes(file.Size() / sizeof(EchoRecord));
  const std::span<std::uint8_t> bytes(reinterpret_cast<std::uint8_t*>(echoes.data()),
                                      echoes.size() * sizeof(EchoRecord));
  if (file.Read_At(0, bytes) != bytes.size()) {
    throw FailedOnTheWay(path.string() + ": the file became shorter");
  }
  return echoes;
}

}  // namespace sylvomex
