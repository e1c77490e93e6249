// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

/// The JavaScript that writes a LAZ file (first argument) as a LAS file (second): the header and
/// its records with the mark of compression taken away, then the points, chunk by chunk. The third
/// argument is kLazChunkScript. Exit status: 10 when laz-perf is not found, 11 when the file cannot
/// be decoded, 12 when it cannot be written.
extern const char* const kLazScript;

/// The JavaScript of the function that finds the chunks of a LAZ file.
extern const char* const kLazChunkScript;

}  // namespace sylvomex
