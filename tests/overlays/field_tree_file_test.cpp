// SPDX-License-Identifier: MIT
#include "overlays/field_tree_file.h"

#include <gtest/gtest.h>

#include <cstring>

namespace sylvomex {
namespace {

double Double_At(std::span<const std::uint8_t> bytes, std::size_t offset) {
  double value = 0;
  std::memcpy(&value, bytes.data() + offset, sizeof value);
  return value;
}

std::int32_t Int_At(std::span<const std::uint8_t> bytes, std::size_t offset) {
  std::int32_t value = 0;
  std::memcpy(&value, bytes.data() + offset, sizeof value);
  return value;
}

TEST(FieldTreeFile, HeaderFieldsStandAtTheirOffsets) {
  const FieldTreeFile file(3, {90, 1, 2, 3, 4, 5, 6});
  const auto bytes = file.Bytes();
  ASSERT_EQ(bytes.size(), 60U);
  EXPECT_EQ(Int_At(bytes, 0), 3);
  EXPECT_NEAR(Double_At(bytes, 4), 1.5707963267948970, 1e-13);
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(Double_At(bytes, 12 + 8 * i), 1.0 + i);
}

TEST(FieldTreeFile, ATreeTakes76BytesWithItsFieldsAtTheirOffsets) {
  FieldTreeFile file(2, {});
  file.Add({});
  file.Add({1, 2, 3, 4, 5, 6, 7, -8, 9, 10, 11});
  const auto bytes = file.Bytes();
  ASSERT_EQ(bytes.size(), 60U + 2 * 76);
  const auto tree = bytes.subspan(60 + 76);
  for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(Double_At(tree, 8 * i), 1.0 + i);
  EXPECT_EQ(Int_At(tree, 56), -8);
  EXPECT_EQ(Int_At(tree, 60), 9);
  EXPECT_EQ(Int_At(tree, 64), 10);
  EXPECT_EQ(Double_At(tree, 68), 11);
}

TEST(FieldTreeFile, BytesAreLittleEndian) {
  const FieldTreeFile file(0x01020304, {0, 1, 0, 0, 0, 0, 0});
  const auto bytes = file.Bytes();
  const std::uint8_t count[] = {4, 3, 2, 1};
  EXPECT_TRUE(std::equal(count, count + 4, bytes.begin()));
  const std::uint8_t one[] = {0, 0, 0, 0, 0, 0, 0xF0, 0x3F};
  EXPECT_TRUE(std::equal(one, one + 8, bytes.begin() + 12));
}

}  // namespace
}  // namespace sylvomex
