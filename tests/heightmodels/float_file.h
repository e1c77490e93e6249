// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "support/temporary_folder.h"

namespace sylvomex {

/// Writes 32-bit floats as a cell file.
inline FilePath Write_Floats(const TemporaryFolder& folder, const std::string& name,
                             std::span<const float> cells) {
  return folder.Write(name, {reinterpret_cast<const char*>(cells.data()), cells.size_bytes()});
}

}  // namespace sylvomex
