// SPDX-License-Identifier: MIT
#include "crowns/local_tree.h"

#include "platform/list_reader.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

LocalTree Parse_Tree(ListReader& line) {
  LocalTree tree;
  tree.PlotId = line.Read_Int32();
  tree.TreeNumber = line.Read_Int16();
  tree.Species = line.Read_Byte();
  tree.X = line.Read_Double();
  tree.Y = line.Read_Double();
  tree.Z = line.Read_Double();
  tree.GroundZ = line.Read_Float();
  tree.TreeHeight = line.Read_Float();
  tree.LidarMax = line.Read_Float();
  tree.PhotoCrownWidth = line.Read_Float();
  tree.LidarCrownWidth = line.Read_Float();
  tree.FitRmse = line.Read_Float();
  tree.FitA = line.Read_Double();
  tree.FitP = line.Read_Double();
  tree.FitB = line.Read_Double();
  return tree;
}

}  // namespace

std::string Local_Tree_Line(const LocalTree& tree) {
  std::string line;
  const auto add = [&line](double value, const char* pattern) {
    line += Format(value, pattern) + ",";
  };
  for (const double whole : {double(tree.PlotId), double(tree.TreeNumber), double(tree.Species)}) {
    add(whole, "0");
  }
  for (const double length : {tree.X, tree.Y, tree.Z, double{tree.GroundZ}, double{tree.TreeHeight},
                              double{tree.LidarMax}, double{tree.PhotoCrownWidth},
                              double{tree.LidarCrownWidth}, double{tree.FitRmse}}) {
    add(length, "0.00");
  }
  for (const double parameter : {tree.FitA, tree.FitP, tree.FitB}) add(parameter, "0.0000");
  return line + "\n";
}

std::vector<LocalTree> Read_Local_Trees(const FilePath& file) {
  std::vector<LocalTree> trees;
  ListReader lines(file);
  while (!lines.At_End()) {
    const int number = lines.Line();
    ListReader line(lines.Read_Line(), file, number);
    if (!line.At_End()) trees.push_back(Parse_Tree(line));
  }
  return trees;
}

}  // namespace sylvomex
