// SPDX-License-Identifier: MIT
#include "platform/table.h"

namespace sylvomex {

void Throw_Subscript(long long index, long long first, long long last) {
  throw RunTimeError(Failure::SubscriptOutOfRange, std::to_string(index) + " is not in " +
                                                       std::to_string(first) + " to " +
                                                       std::to_string(last));
}

}  // namespace sylvomex
