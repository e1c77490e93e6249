// SPDX-License-Identifier: MIT
// Memory for large pictures, asked for before it is taken: the system grants more than it has and
// ends a program that then uses it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sylvomex {

/// Bytes that the process can still take: what the machine has left, within the limit on the
/// process's address space. The largest number where neither is known.
std::uint64_t Memory_Left();

/// The bytes of the line "MemAvailable:" in a text like that of /proc/meminfo, which counts in kB;
/// the largest number when there is none.
std::uint64_t Available_Bytes(std::string_view meminfo);

/// RunTimeError(OutOfMemory) "<what> takes <n> MB, <m> MB are left" when the bytes exceed what is
/// left. Below 64 MB nothing is asked.
void Require_Memory(std::uint64_t bytes, const std::string& what);

}  // namespace sylvomex
