// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <stop_token>
#include <string>
#include <string_view>

namespace sylvomex {

/// SHA-256 of a file's content in lower-case hexadecimal digits. Refused when it cannot be read.
/// Ends early, with that of a part, when stop is requested.
std::string File_Checksum(const std::filesystem::path& file, const std::stop_token& stop = {});

/// SHA-256 of a text.
std::string Text_Checksum(std::string_view text);

}  // namespace sylvomex
