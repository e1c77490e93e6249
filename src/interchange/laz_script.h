// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

/// The JavaScript that writes a LAZ file (first argument) as a LAS file (second): the header and
/// its records with the mark of compression taken away, then the points. Exit status: 10 when
/// laz-perf is not found, 11 when the file cannot be decoded, 12 when it cannot be written.
extern const char* const kLazScript;

}  // namespace sylvomex
