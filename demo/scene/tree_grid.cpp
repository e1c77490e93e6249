// SPDX-License-Identifier: MIT
#include "demo/scene/tree_grid.h"

#include "demo/scene/site_settings.h"

namespace sylvomex::demo {
namespace {

struct CellRange {
  int first_column = 0, last_column = 0, first_row = 0, last_row = 0;
};

CellRange Cells_Under(const TreeGrid& grid, const Tree& tree) {
  const auto cell_of = [&grid](double offset, int count) {
    return std::clamp(static_cast<int>(std::floor(offset / grid.cell)), 0, count - 1);
  };
  const double x = tree.X - grid.west, y = tree.Y - grid.south, r = tree.crown_radius;
  return {cell_of(x - r, grid.columns), cell_of(x + r, grid.columns), cell_of(y - r, grid.rows),
          cell_of(y + r, grid.rows)};
}

template <class Action>
void For_Cells_Of(const TreeGrid& grid, const Tree& tree, Action&& action) {
  const CellRange range = Cells_Under(grid, tree);
  for (int row = range.first_row; row <= range.last_row; ++row) {
    for (int column = range.first_column; column <= range.last_column; ++column) {
      action(static_cast<std::size_t>(row * grid.columns + column));
    }
  }
}

void Note_Tops(TreeGrid& grid, const std::vector<Tree>& stand) {
  grid.highest_top = std::numeric_limits<double>::lowest();
  grid.cell_tops.assign(grid.starts.size() - 1, std::numeric_limits<double>::lowest());
  for (const Tree& tree : stand) {
    grid.highest_top = std::max(grid.highest_top, tree.TopZ);
    grid.tallest = std::max(grid.tallest, tree.Height());
    For_Cells_Of(grid, tree, [&](std::size_t cell) {
      grid.cell_tops[cell] = std::max(grid.cell_tops[cell], tree.TopZ);
    });
  }
}

}  // namespace

TreeGrid Make_Tree_Grid(const std::vector<Tree>& stand) {
  TreeGrid grid;
  grid.west = kForestWest;
  grid.south = kForestSouth;
  grid.columns = grid.rows = static_cast<int>(std::ceil(kForestSide / grid.cell));
  grid.starts.assign(static_cast<std::size_t>(grid.columns * grid.rows) + 1, 0);
  for (const Tree& tree : stand) {
    For_Cells_Of(grid, tree, [&](std::size_t cell) { ++grid.starts[cell + 1]; });
  }
  for (std::size_t k = 1; k < grid.starts.size(); ++k) grid.starts[k] += grid.starts[k - 1];
  grid.items.resize(static_cast<std::size_t>(grid.starts.back()));
  std::vector<int> next(grid.starts.begin(), grid.starts.end() - 1);
  for (std::size_t i = 0; i < stand.size(); ++i) {
    For_Cells_Of(grid, stand[i], [&](std::size_t cell) {
      grid.items[static_cast<std::size_t>(next[cell]++)] = static_cast<int>(i);
    });
  }
  Note_Tops(grid, stand);
  return grid;
}

}  // namespace sylvomex::demo
