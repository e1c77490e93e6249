// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

namespace sylvomex {

/// Receives one sentence for a message box when an algorithm finds invalid input.
using Report = std::function<void(std::string_view)>;

}  // namespace sylvomex
