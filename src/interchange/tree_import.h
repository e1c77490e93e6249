// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "interchange/import_transaction.h"

namespace sylvomex {

/// Which column of a table holds a value of the plot file, by its name there in lower case.
using TreeColumns = std::map<std::string, std::string>;

/// The names that can be mapped, as they are written: X, Y, Z, Dbh, TreeHeight, TreeId,
/// TreeSpecies, TreeCode.
const std::vector<std::string>& Tree_Column_Names();

struct TreeReport {
  std::uint64_t trees = 0;
  std::string plot_file, vector_file;  // the names that the workstation knows
  std::vector<std::string> notes;      // a sentence each
};

/// Makes a plot text file "c:\data\vektorit\<name>_plot.txt" and a file of measured trees
/// "<name>_trees.txt" of a tree list. Positions are world coordinates in the columns X and Y, or
/// the points of a vector file. TreeHeight is required (metres); Dbh in millimetres; TreeSpecies a
/// code, or pine, spruce, birch. Trees without a mapped Z stand on the terrain model of the site,
/// or at 0 where there is none.
///
/// Refused, naming file, row and column, for missing columns and what is no number.
TreeReport Import_Trees(ImportTransaction& transaction, const std::filesystem::path& file,
                        const TreeColumns& columns);

}  // namespace sylvomex
