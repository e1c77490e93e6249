// SPDX-License-Identifier: MIT
// Large input files of the benchmarks, generated once and kept in the folder named by the
// environment variable SYLVOMEX_BENCH_DATA, otherwise in "benchdata" of the build folder.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace sylvomex::bench {

/// The folder; created when missing.
std::filesystem::path Data_Folder();

/// A raw colour file with rows of Fill_Frame_Row, generated unless a complete one exists.
std::filesystem::path Frame_File(const std::string& name, int width, int height,
                                 std::uint64_t seed);

}  // namespace sylvomex::bench
