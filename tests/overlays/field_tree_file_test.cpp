// SPDX-License-Identifier: MIT
#include "overlays/field_tree_file.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "support/failure_of.h"
#include "support/temporary_folder.h"

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

std::string As_Text(const FieldTreeFile& file) {
  const auto bytes = file.Bytes();
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

FieldTreeFile Two_Trees() {
  FieldTreeFile file(2, {});
  file.Add({1, 2, 3, 4, 5, 6, 7, -8, 9, 10, 11});
  file.Add({-1.5, 22, 33, 44, 55, 66, 77, 88, 99, 100, 110});
  return file;
}

std::string Failure_Reading(const TemporaryFolder& folder, const std::string& content) {
  const FilePath file = folder.Write("trees.bin", content);
  return Failure_Of([&] { Read_Field_Trees(file); });
}

TEST(FieldTreeReader, ReturnsEveryFieldOfEveryTree) {
  const TemporaryFolder folder;
  const auto trees = Read_Field_Trees(folder.Write("trees.bin", As_Text(Two_Trees())));
  ASSERT_EQ(trees.size(), 2U);
  EXPECT_EQ(trees[0].MapX, 1);
  EXPECT_EQ(trees[0].MapY, 2);
  EXPECT_EQ(trees[0].TopZ, 3);
  EXPECT_EQ(trees[0].BaseZ, 4);
  EXPECT_EQ(trees[0].GroundZ, 5);
  EXPECT_EQ(trees[0].Dbh, 6);
  EXPECT_EQ(trees[0].TreeHeight, 7);
  EXPECT_EQ(trees[0].TreeId, -8);
  EXPECT_EQ(trees[0].TreeSpecies, 9);
  EXPECT_EQ(trees[0].TreeCode, 10);
  EXPECT_EQ(trees[0].StemVolume, 11);
  EXPECT_EQ(trees[1].MapX, -1.5);
  EXPECT_EQ(trees[1].StemVolume, 110);
}

TEST(FieldTreeReader, AFileWithoutATreeIsRejected) {
  const TemporaryFolder folder;
  EXPECT_EQ(Failure_Reading(folder, As_Text(FieldTreeFile(0, {}))),
            "Bad content: trees.bin holds no tree");
}

TEST(FieldTreeReader, AFileShorterThanTheHeaderIsRejected) {
  const TemporaryFolder folder;
  EXPECT_EQ(Failure_Reading(folder, ""),
            "Bad content: trees.bin is no field tree file: it has 0 bytes, its header alone "
            "takes 60");
}

TEST(FieldTreeReader, ALengthThatDoesNotMatchTheCountIsRejected) {
  const TemporaryFolder folder;
  const std::string bytes = As_Text(Two_Trees());
  EXPECT_EQ(Failure_Reading(folder, bytes.substr(0, bytes.size() - 76)),
            "Bad content: trees.bin is no field tree file: it has 136 bytes, 2 trees take 212");
  EXPECT_EQ(Failure_Reading(folder, bytes + "x"),
            "Bad content: trees.bin is no field tree file: it has 213 bytes, 2 trees take 212");
}

TEST(FieldTreeReader, AFileOfAnotherKindIsRejected) {
  const TemporaryFolder folder;
  const std::string text(100, '1');  // a count of 0x31313131
  EXPECT_EQ(Failure_Reading(folder, text),
            "Bad content: trees.bin is no field tree file: it has 100 bytes, 825307441 trees take "
            "62723365576");
  std::string negative(60, '\0');
  negative[3] = '\x80';
  EXPECT_EQ(Failure_Reading(folder, negative),
            "Bad content: trees.bin is no field tree file: its count of trees is -2147483648");
}

TEST(FieldTreeReader, ANaNOrInfiniteValueIsRejectedWithItsTree) {
  const TemporaryFolder folder;
  FieldTreeFile file(2, {});
  file.Add({});
  FieldTree tree;
  tree.TopZ = std::numeric_limits<double>::quiet_NaN();
  file.Add(tree);
  EXPECT_EQ(Failure_Reading(folder, As_Text(file)),
            "Bad content: trees.bin is no field tree file: a value of tree 2 is no finite number");
}

TEST(FieldTreeReader, AMissingFileIsNamed) {
  const TemporaryFolder folder;
  EXPECT_EQ(Failure_Of([&] { Read_Field_Trees(folder.File("none.bin")); }),
            "File not found: none.bin");
}

}  // namespace
}  // namespace sylvomex
