// SPDX-License-Identifier: MIT
#include "overlays/field_tree_file.h"

#include <bit>
#include <cmath>
#include <string>

#include "platform/files.h"

namespace sylvomex {
namespace {

constexpr std::size_t kHeaderBytes = 60;
constexpr std::size_t kTreeBytes = 76;

/// Reads little-endian values in sequence.
class FieldBytes {
 public:
  explicit FieldBytes(std::string_view bytes) : bytes_(bytes) {}

  std::int32_t Integer() { return std::bit_cast<std::int32_t>(Take<std::uint32_t>()); }
  double Real() { return std::bit_cast<double>(Take<std::uint64_t>()); }

 private:
  template <class Unsigned>
  Unsigned Take() {
    Unsigned value = 0;
    for (std::size_t i = 0; i < sizeof value; ++i) {
      value |= Unsigned{static_cast<std::uint8_t>(bytes_[position_++])} << (8 * i);
    }
    return value;
  }

  std::string_view bytes_;
  std::size_t position_ = 0;
};

[[noreturn]] void Refuse(const FilePath& file, const std::string& why) {
  throw RunTimeError(Failure::BadContent, file.name + " is no field tree file: " + why,
                     file.native);
}

/// The number of trees in a file, checked against its length.
std::size_t Tree_Count(const FilePath& file, std::string_view bytes) {
  if (bytes.size() < kHeaderBytes) {
    Refuse(file, "it has " + std::to_string(bytes.size()) + " bytes, its header alone takes " +
                     std::to_string(kHeaderBytes));
  }
  const std::int32_t count = FieldBytes(bytes).Integer();
  if (count < 0) Refuse(file, "its count of trees is " + std::to_string(count));
  const std::size_t wanted = kHeaderBytes + kTreeBytes * static_cast<std::size_t>(count);
  if (bytes.size() != wanted) {
    Refuse(file, "it has " + std::to_string(bytes.size()) + " bytes, " + std::to_string(count) +
                     " trees take " + std::to_string(wanted));
  }
  if (count == 0) {
    throw RunTimeError(Failure::BadContent, file.name + " holds no tree", file.native);
  }
  return static_cast<std::size_t>(count);
}

FieldTree Take_Tree(FieldBytes& bytes) {
  FieldTree tree;
  for (double* const value : {&tree.MapX, &tree.MapY, &tree.TopZ, &tree.BaseZ, &tree.GroundZ,
                              &tree.Dbh, &tree.TreeHeight}) {
    *value = bytes.Real();
  }
  for (std::int32_t* const value : {&tree.TreeId, &tree.TreeSpecies, &tree.TreeCode}) {
    *value = bytes.Integer();
  }
  tree.StemVolume = bytes.Real();
  return tree;
}

bool Is_Finite(const FieldTree& t) {
  for (const double value :
       {t.MapX, t.MapY, t.TopZ, t.BaseZ, t.GroundZ, t.Dbh, t.TreeHeight, t.StemVolume}) {
    if (!std::isfinite(value)) return false;
  }
  return true;
}

template <class Unsigned>
void Append_Little_Endian(std::vector<std::uint8_t>& bytes, Unsigned value) {
  for (std::size_t i = 0; i < sizeof value; ++i) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
  }
}

}  // namespace

FieldTreeFile::FieldTreeFile(std::int32_t tree_count, const PlotHeader& plot) {
  Put(tree_count);
  Put(Plot_Radians(plot.PlotAngle));
  for (const double value :
       {plot.PlotX0, plot.PlotY0, plot.PlotZ0, plot.PlotDX, plot.PlotDY, plot.PlotDZ}) {
    Put(value);
  }
}

void FieldTreeFile::Add(const FieldTree& tree) {
  for (const double value :
       {tree.MapX, tree.MapY, tree.TopZ, tree.BaseZ, tree.GroundZ, tree.Dbh, tree.TreeHeight}) {
    Put(value);
  }
  for (const std::int32_t value : {tree.TreeId, tree.TreeSpecies, tree.TreeCode}) Put(value);
  Put(tree.StemVolume);
}

void FieldTreeFile::Put(std::int32_t value) {
  Append_Little_Endian(bytes_, std::bit_cast<std::uint32_t>(value));
}

void FieldTreeFile::Put(double value) {
  Append_Little_Endian(bytes_, std::bit_cast<std::uint64_t>(value));
}

std::vector<FieldTree> Read_Field_Trees(const FilePath& file) {
  const std::string content = Read_Whole_File(file);
  const std::size_t count = Tree_Count(file, content);
  FieldBytes bytes(std::string_view(content).substr(kHeaderBytes));
  std::vector<FieldTree> trees;
  trees.reserve(count);
  for (std::size_t i = 1; i <= count; ++i) {
    trees.push_back(Take_Tree(bytes));
    if (!Is_Finite(trees.back())) {
      Refuse(file, "a value of tree " + std::to_string(i) + " is no finite number");
    }
  }
  return trees;
}

}  // namespace sylvomex
