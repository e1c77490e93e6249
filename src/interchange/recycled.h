// SPDX-License-Identifier: MIT
#pragma once

#include <tbb/concurrent_queue.h>

#include <cstddef>
#include <vector>

namespace sylvomex {

/// The items of a pipeline, as many as are in it at once; their memory is used again by the next
/// ones.
template <class Item>
class Recycled {
 public:
  explicit Recycled(std::size_t at_once) : items_(at_once) {
    for (Item& item : items_) free_.push(&item);
  }

  /// One that nobody uses, with what it was given back with.
  Item* Take() {
    Item* item = nullptr;
    free_.pop(item);
    return item;
  }
  void Give_Back(Item* item) { free_.push(item); }

 private:
  std::vector<Item> items_;
  tbb::concurrent_bounded_queue<Item*> free_;
};

}  // namespace sylvomex
