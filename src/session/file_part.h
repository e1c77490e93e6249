// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace sylvomex {

/// Up to so many bytes of a file from an offset on, counted from 0; none of one that cannot be
/// opened. RunTimeError when it cannot be read to the end of them.
std::string Part_Of_File(const std::filesystem::path& file, std::uint64_t offset,
                         std::uint64_t bytes);

}  // namespace sylvomex
