// SPDX-License-Identifier: MIT
// Large input files of the benchmarks, made once and kept in the folder named by the
// environment variable SYLVOMEX_BENCH_DATA, else in the build folder's "benchdata".
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace sylvomex::bench {

/// The folder, which exists when the call returns.
std::filesystem::path Data_Folder();

/// A raw colour file of Fill_Frame_Row rows, made when it does not lie there in full.
std::filesystem::path Frame_File(const std::string& name, int width, int height,
                                 std::uint64_t seed);

}  // namespace sylvomex::bench
