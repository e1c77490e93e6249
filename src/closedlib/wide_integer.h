// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

/// 128 bits, which g++ and clang++ have on every 64-bit machine.
__extension__ typedef __int128 Int128;

}  // namespace sylvomex
