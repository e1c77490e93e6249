// SPDX-License-Identifier: MIT
#include "platform/memory_room.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/address_space_limit.h"
#include "support/failure_of.h"

namespace sylvomex {
namespace {

constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;
constexpr std::uint64_t kUnknown = std::numeric_limits<std::uint64_t>::max();

TEST(AvailableBytes, AreTheKilobytesOfTheirLine) {
  EXPECT_EQ(Available_Bytes("MemTotal:  9 kB\nMemAvailable:   2048 kB\nCached: 7 kB\n"), 2097152U);
  EXPECT_EQ(Available_Bytes("MemAvailable: 0 kB\n"), 0U);
}

TEST(AvailableBytes, AreUnknownWithoutAReadableLine) {
  EXPECT_EQ(Available_Bytes(""), kUnknown);
  EXPECT_EQ(Available_Bytes("MemTotal: 9 kB\n"), kUnknown);
  EXPECT_EQ(Available_Bytes("MemAvailable:"), kUnknown);
  EXPECT_EQ(Available_Bytes("MemAvailable: many kB"), kUnknown);
  EXPECT_EQ(Available_Bytes("MemAvailable: 18446744073709551615 kB"), kUnknown);
}

TEST(MemoryLeft, LiesWithinTheLimitOnTheAddressSpace) {
  const AddressSpaceLimit limit(300 * kMegabyte);
  EXPECT_LE(Memory_Left(), 300 * kMegabyte);
  EXPECT_GE(Memory_Left(), 200 * kMegabyte);
}

TEST(RequireMemory, RefusesWhatIsNotLeftWithBothQuantities) {
  const AddressSpaceLimit limit(300 * kMegabyte);
  Require_Memory(100 * kMegabyte, "a picture");
  const std::string failure = Failure_Of([] { Require_Memory(400 * kMegabyte, "a picture"); });
  EXPECT_TRUE(failure.starts_with("Out of memory: a picture takes 400 MB, ")) << failure;
  EXPECT_TRUE(failure.ends_with(" MB are left")) << failure;
}

TEST(RequireMemory, AsksNothingForSmallPictures) {
  const AddressSpaceLimit limit(0);
  Require_Memory(64 * kMegabyte - 1, "a picture");
}

}  // namespace
}  // namespace sylvomex
