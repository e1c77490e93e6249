// SPDX-License-Identifier: MIT
// The input is a plot text file; its trees are converted to the binary tree file.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "overlays/field_tree_file.h"
#include "overlays/stem_volume.h"
#include "platform/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    sylvomex::PlotTextReader plot(
        sylvomex::ListReader(std::string(data, data + size), "c:\\data\\fuzz.txt"));
    sylvomex::FieldTreeFile file(0, plot.Header());
    std::size_t trees = 0;
    while (const auto tree = plot.Next_Tree()) {
      sylvomex::FieldTree record;
      record.MapX = sylvomex::Place_Tree(plot.Header(), *tree).MapX;
      record.StemVolume = sylvomex::Stem_Volume(tree->TreeSpecies, tree->Dbh, tree->TreeHeight);
      file.Add(record);
      ++trees;
    }
    if (file.Bytes().size() != 60 + 76 * trees) std::abort();
  } catch (const sylvomex::RunTimeError&) {
    return 0;
  }
  return 0;
}
