// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace sylvomex {

/// A text by a pattern of printf; at most 511 characters.
[[gnu::format(printf, 1, 2)]] std::string Printed(const char* pattern, ...);

}  // namespace sylvomex
