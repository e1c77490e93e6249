// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace sylvomex {

/// From now on freed memory stays with the process for its next task: the system clears every page
/// that it gives anew, which takes longer than searching some of them.
void Keep_Freed_Memory();

/// Begins to measure the memory of a task that may take so many bytes, the process with it. What
/// earlier tasks have freed goes back where it is a large part of them.
void Begin_Task_Memory(std::uint64_t bound);

/// The most memory that the process has had since, in bytes; 0 where the system does not tell.
std::uint64_t Peak_Memory();

}  // namespace sylvomex
