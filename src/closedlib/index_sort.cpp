// SPDX-License-Identifier: MIT
#include "closedlib/index_sort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "closedlib/parallel_tasks.h"
#include "platform/huge_pages.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr int kDigitBits = 11;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
constexpr std::uint32_t kDigitMask = kDigits - 1;
static_assert(3 * kDigitBits >= 32, "three passes see every bit of a key");
constexpr std::size_t kSmallestChunk = 65536;
constexpr std::size_t kMostChunks = 8;
constexpr std::size_t kShort = 2048;  // below this, counting costs more than comparing

/// An integer key that orders like the scores: -0 equals +0, every NaN above the numbers.
std::uint32_t Order_Key(float score) {
  if (!(score <= std::numeric_limits<float>::infinity())) return 0xFFFFFFFFU;
  const auto bits = std::bit_cast<std::uint32_t>(score + 0.0F);
  return (bits >> 31) != 0 ? ~bits : bits | 0x80000000U;
}

/// Key in the upper half, index in the lower.
using Entry = std::uint64_t;

std::size_t Digit(Entry entry, int pass) {
  return (entry >> (32 + kDigitBits * pass)) & kDigitMask;
}

/// Appends entries to one of many output runs. The next cache line of a run is prefetched for
/// writing; otherwise waiting for it would dominate the pass.
struct EntryWriter {
  static constexpr std::size_t kAhead = 12;  // prefetch distance: one to two lines of eight entries

  Entry* entries;

  void operator()(std::size_t place, Entry entry) const {
    entries[place] = entry;
    __builtin_prefetch(entries + place + kAhead, 1);
  }
};

using Counts = std::array<std::uint32_t, kDigits>;

/// A contiguous range of the entries; chunks follow each other.
struct Chunk {
  std::size_t first = 0, last = 0;
  Counts places{};  // count of each digit, then the next output position of each
};

std::vector<Chunk> Cut_Chunks(std::size_t count, int threads) {
  std::size_t chunks = 1;
  if (threads != 1) {
    chunks = std::clamp<std::size_t>(count / kSmallestChunk, 1, kMostChunks);
    chunks = std::min<std::size_t>(chunks, std::max(1U, std::thread::hardware_concurrency()));
  }
  std::vector<Chunk> cut(chunks);
  for (std::size_t k = 0; k < chunks; ++k) {
    cut[k].first = count * k / chunks;
    cut[k].last = count * (k + 1) / chunks;
  }
  return cut;
}

/// Turns counts into positions: digit by digit, within a digit chunk by chunk, which keeps the sort
/// stable.
void Count_To_Places(std::vector<Chunk>& chunks) {
  std::uint32_t place = 0;
  for (std::size_t digit = 0; digit < kDigits; ++digit) {
    for (Chunk& chunk : chunks) {
      const std::uint32_t count = chunk.places[digit];
      chunk.places[digit] = place;
      place += count;
    }
  }
}

/// The state of one sort. Entries move from the scores to first_, to second_, to the index.
class RadixSort {
 public:
  RadixSort(std::span<const float> scores, std::span<std::int32_t> index, int threads)
      : scores_(scores),
        index_(index),
        threads_(threads),
        chunks_(Cut_Chunks(scores.size(), threads)),
        first_(scores.size() + EntryWriter::kAhead),
        second_(scores.size() + EntryWriter::kAhead) {}

  void Run() {
    const Entry* first = first_.Data();
    const Entry* second = second_.Data();
    Pass(
        0, [this](std::size_t k) { return From_Score(k); }, EntryWriter{first_.Data()});
    Pass(
        1, [first](std::size_t k) { return first[k]; }, EntryWriter{second_.Data()});
    Pass(
        2, [second](std::size_t k) { return second[k]; },
        [this](std::size_t place, Entry entry) {
          index_[place] = static_cast<std::int32_t>(static_cast<std::uint32_t>(entry));
        });
  }

 private:
  [[nodiscard]] Entry From_Score(std::size_t k) const {
    return Entry{Order_Key(scores_[k])} << 32 | (k + 1);
  }

  template <class Get, class Put>
  void Pass(int pass, const Get& get, const Put& put) {
    Each_Chunk([&](Chunk& chunk) { Count_Digits(chunk, pass, get); });
    Count_To_Places(chunks_);
    Each_Chunk([&](Chunk& chunk) { Move_Entries(chunk, pass, get, put); });
  }

  // Functions of their own: inside the loop that tells the progress of the chunks they were
  // compiled to a quarter more instructions.
  template <class Get>
  [[gnu::noinline]] static void Count_Digits(Chunk& chunk, int pass, Get get) {
    chunk.places.fill(0);
    for (std::size_t k = chunk.first; k < chunk.last; ++k) ++chunk.places[Digit(get(k), pass)];
  }

  template <class Get, class Put>
  [[gnu::noinline]] static void Move_Entries(Chunk& chunk, int pass, Get get, Put put) {
    for (std::size_t k = chunk.first; k < chunk.last; ++k) {
      const Entry entry = get(k);
      put(chunk.places[Digit(entry, pass)]++, entry);
    }
  }

  template <class Work>
  void Each_Chunk(const Work& work) {
    Run_Tasks(static_cast<int>(chunks_.size()), threads_,
              [&](int k) { work(chunks_[static_cast<std::size_t>(k)]); });
  }

  std::span<const float> scores_;
  std::span<std::int32_t> index_;
  int threads_;
  std::vector<Chunk> chunks_;
  ScratchPages<Entry> first_, second_;
};

void Sort_Short(std::span<const float> scores, std::span<std::int32_t> index) {
  std::vector<Entry> entries(scores.size());
  for (std::size_t k = 0; k < entries.size(); ++k) {
    entries[k] = Entry{Order_Key(scores[k])} << 32 | (k + 1);
  }
  std::sort(entries.begin(), entries.end());
  for (std::size_t k = 0; k < entries.size(); ++k) {
    index[k] = static_cast<std::int32_t>(static_cast<std::uint32_t>(entries[k]));
  }
}

}  // namespace

void MYFUNC_INDEXX(std::span<const float> scores, std::span<std::int32_t> index, int threads) {
  if (index.size() < scores.size()) {
    throw RunTimeError(Failure::SubscriptOutOfRange,
                       "index sort of " + std::to_string(scores.size()) + " entries into " +
                           std::to_string(index.size()));
  }
  if (scores.size() < 2) return;
  scores = scores.subspan(1);
  index = index.subspan(1, scores.size());
  if (scores.size() < kShort) {
    Sort_Short(scores, index);
  } else {
    RadixSort(scores, index, threads).Run();
  }
}

}  // namespace sylvomex
