// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "interchange/echo_record.h"
#include "interchange/flight_lines.h"

namespace sylvomex {

/// All echoes of an import, divided by their keys: those of a share lie before those of the next,
/// and echoes of one key in one share.
struct EchoShares {
  std::size_t count = 0;
  /// Reads a share into a vector, whose former content is dropped; each share once, from any
  /// thread. Echoes of one key come in the order of the sources and of their files.
  std::function<void(std::size_t share, std::vector<EchoRecord>& echoes)> read;
  FlightLines lines;
};

}  // namespace sylvomex
