// SPDX-License-Identifier: MIT
// Random events over all windows, with damaged files and wrong answers. $SYLVOMEX_EVENTS: how many,
// 3000 unless set; $SYLVOMEX_SEED: another run.
#include "faults/random_events.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "support/file_size_limit.h"

namespace sylvomex {
namespace {

long Number_In(const char* variable, long otherwise) {
  const char* const text = std::getenv(variable);
  return text != nullptr ? std::atol(text) : otherwise;
}

TEST(RandomEvents, NoneOfThemBringsTheProgramDown) {
  const FileSizeLimit small_disk(64 << 20);
  const long count = Number_In("SYLVOMEX_EVENTS", 3000);
  const auto seed = static_cast<std::uint32_t>(Number_In("SYLVOMEX_SEED", 1));
  const EventCounts counts = Play_Random_Events(seed, count);
  EXPECT_GE(counts.events, count);
  EXPECT_GT(counts.inside, 0);
  std::cout << counts.events << " events in " << counts.sessions << " sessions, " << counts.inside
            << " inside others, " << counts.refused << " on nothing, " << counts.dialogs
            << " dialogs, " << counts.errors << " errors; the slowest took " << counts.slowest
            << " s: " << counts.slowest_event << "\n";
}

}  // namespace
}  // namespace sylvomex
