// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace sylvomex {

/// Reserves that many bytes for an open file, all 0 as far as they are new. 0, or the error number
/// of the system. A disk that has not so much free is left alone: a reservation that ends in the
/// middle has taken all of it by then, and what other programs write meanwhile fails.
int Reserve_Disk_Room(int descriptor, std::uint64_t bytes);

}  // namespace sylvomex
