// SPDX-License-Identifier: MIT
#include "interchange/pulse_joining.h"

#include <algorithm>
#include <array>
#include <functional>
#include <queue>
#include <utility>

#include "interchange/key_sort.h"

namespace sylvomex {
namespace {

/// Sorts by key, equal keys in their present order.
void Sort_By_Key(std::vector<EchoRecord>& echoes) {
  const auto less = [](const EchoRecord& a, const EchoRecord& b) { return a.key < b.key; };
  if (std::is_sorted(echoes.begin(), echoes.end(), less)) return;
  std::vector<KeyedIndex> order;
  order.reserve(echoes.size());
  for (const EchoRecord& echo : echoes) {
    order.push_back({echo.key, static_cast<std::uint32_t>(order.size())});
  }
  Sort_By_Keys(order);
  std::vector<EchoRecord> sorted;
  sorted.reserve(echoes.size());
  for (const auto& [key, index] : order) sorted.push_back(echoes[index]);
  echoes = std::move(sorted);
}

/// The pulses of one time that have not come to their highest return number yet.
class OpenPulses {
 public:
  /// The number of the pulse that an echo belongs to, from 0.
  std::uint32_t Pulse_Of(const EchoRecord& echo) {
    auto& of_count = open_[static_cast<std::size_t>(echo.Returns())];
    Numbers* earliest = nullptr;
    for (std::size_t last = 0; last < static_cast<std::size_t>(echo.Return()); ++last) {
      Numbers& numbers = of_count[last];
      if (!numbers.empty() && (earliest == nullptr || numbers.top() < earliest->top())) {
        earliest = &numbers;
      }
    }
    std::uint32_t pulse = pulses_;
    if (earliest == nullptr) {
      ++pulses_;
    } else {
      pulse = earliest->top();
      earliest->pop();
    }
    of_count[static_cast<std::size_t>(echo.Return())].push(pulse);
    return pulse;
  }

 private:
  using Numbers = std::priority_queue<std::uint32_t, std::vector<std::uint32_t>, std::greater<>>;
  std::array<std::array<Numbers, 16>, 16> open_;  // by number of returns, by last return
  std::uint32_t pulses_ = 0;
};

bool All_Returns_Differ(std::span<const EchoRecord> echoes) {
  unsigned seen = 0;
  for (const EchoRecord& echo : echoes) {
    const unsigned bit = 1U << static_cast<unsigned>(echo.Return());
    if ((seen & bit) != 0) return false;
    seen |= bit;
  }
  return true;
}

/// Sorts the echoes of a time into pulses and gives the ends of these.
std::vector<std::size_t> Divide(std::span<EchoRecord> echoes) {
  OpenPulses open;
  std::vector<std::pair<std::uint32_t, EchoRecord>> numbered;
  for (const EchoRecord& echo : echoes) numbered.emplace_back(open.Pulse_Of(echo), echo);
  std::stable_sort(numbered.begin(), numbered.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::size_t> ends;
  for (std::size_t i = 0; i < numbered.size(); ++i) {
    echoes[i] = numbered[i].second;
    if (i + 1 == numbered.size() || numbered[i + 1].first != numbered[i].first) {
      ends.push_back(i + 1);
    }
  }
  return ends;
}

void Join_Time(std::span<EchoRecord> echoes, std::size_t at, std::vector<PulseSpan>& pulses) {
  auto begin = static_cast<std::uint32_t>(at);
  if (All_Returns_Differ(echoes)) {
    std::sort(echoes.begin(), echoes.end(),
              [](const EchoRecord& a, const EchoRecord& b) { return a.Return() < b.Return(); });
    pulses.push_back({begin, begin + static_cast<std::uint32_t>(echoes.size())});
    return;
  }
  for (const std::size_t end : Divide(echoes)) {
    pulses.push_back({begin, static_cast<std::uint32_t>(at + end)});
    begin = pulses.back().end;
  }
}

}  // namespace

std::vector<PulseSpan> Join_Pulses(std::vector<EchoRecord>& echoes) {
  Sort_By_Key(echoes);
  std::vector<PulseSpan> pulses;
  for (std::size_t at = 0; at < echoes.size();) {
    std::size_t end = at + 1;
    while (end < echoes.size() && echoes[end].key == echoes[at].key) ++end;
    Join_Time(std::span(echoes).subspan(at, end - at), at, pulses);
    at = end;
  }
  return pulses;
}

}  // namespace sylvomex
