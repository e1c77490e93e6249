// SPDX-License-Identifier: MIT
#include "region/seams.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace sylvomex {
namespace {

/// Tops by squares of the plane, whose side is the distance that is asked for.
class TopGrid {
 public:
  explicit TopGrid(double distance) : distance_(distance) {}

  void Add(const FoundTop& top) { squares_[Square_Of(top.at.X, top.at.Y)].push_back(&top); }

  /// Whether a top of another task lies nearer than the distance.
  [[nodiscard]] bool Has_Other_Near(const FoundTop& top) const {
    const auto [col, row] = Square_Of(top.at.X, top.at.Y);
    for (std::int64_t c = col - 1; c <= col + 1; ++c) {
      for (std::int64_t r = row - 1; r <= row + 1; ++r) {
        const auto square = squares_.find({c, r});
        if (square != squares_.end() && Is_Near_Any(top, square->second)) return true;
      }
    }
    return false;
  }

 private:
  using Square = std::pair<std::int64_t, std::int64_t>;

  [[nodiscard]] Square Square_Of(double X, double Y) const {
    return {static_cast<std::int64_t>(std::floor(X / distance_)),
            static_cast<std::int64_t>(std::floor(Y / distance_))};
  }

  [[nodiscard]] bool Is_Near_Any(const FoundTop& top,
                                 const std::vector<const FoundTop*>& others) const {
    return std::any_of(others.begin(), others.end(), [&](const FoundTop* other) {
      return other->task != top.task &&
             std::hypot(other->at.X - top.at.X, other->at.Y - top.at.Y) < distance_;
    });
  }

  double distance_;
  std::map<Square, std::vector<const FoundTop*>> squares_;
};

bool Comes_First(const FoundTop& a, const FoundTop& b) {
  return std::tuple(-a.score, a.task, a.number) < std::tuple(-b.score, b.task, b.number);
}

bool Stands_Before(const FoundTop& a, const FoundTop& b) {
  return std::tie(a.task, a.number) < std::tie(b.task, b.number);
}

}  // namespace

bool Lies_In(const OwnCell& cell, double X, double Y) {
  if (!cell.tile) return std::hypot(X - cell.X, Y - cell.Y) <= cell.radius;
  return X >= cell.tile->west && X < cell.tile->east && Y >= cell.tile->south &&
         Y < cell.tile->north;
}

bool Lies_Near(const OwnCell& cell, double X, double Y, double distance) {
  if (!cell.tile) return std::hypot(X - cell.X, Y - cell.Y) < cell.radius + distance;
  const double dx = std::max({cell.tile->west - X, 0.0, X - cell.tile->east});
  const double dy = std::max({cell.tile->south - Y, 0.0, Y - cell.tile->north});
  return std::hypot(dx, dy) < distance;
}

std::vector<FoundTop> One_Top_A_Tree(std::vector<FoundTop> tops, double distance) {
  std::sort(tops.begin(), tops.end(), Comes_First);
  TopGrid all(distance), kept(distance);
  for (const FoundTop& top : tops) all.Add(top);
  std::vector<FoundTop> trees;
  for (const FoundTop& top : tops) {
    if (kept.Has_Other_Near(top)) continue;
    if (!top.is_own && !all.Has_Other_Near(top)) continue;
    kept.Add(top);
    trees.push_back(top);
  }
  std::sort(trees.begin(), trees.end(), Stands_Before);
  return trees;
}

}  // namespace sylvomex
