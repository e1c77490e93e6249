// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sylvomex {

/// 64-bit FNV-1a (Fowler, Noll and Vo, RFC 9923) as 16 hexadecimal digits: tells changed content
/// apart, no protection against forgery.
std::string Checksum(std::string_view content);

/// The checksum of an open file of that size: of its whole content up to 128 KB, of its first and
/// last 64 KB beyond. The file's position stays. Empty when it cannot be read.
std::string Checksum_Of_File(int descriptor, std::uint64_t size);

}  // namespace sylvomex
