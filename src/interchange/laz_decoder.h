// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace sylvomex {

/// Writes the points of a LAZ file as a LAS file, with the laz-perf package of npm run by node,
/// which is found through NODE_PATH, then in the folder SYLVOMEX_LAZPERF.
///
/// Refused without node or the package, with a message that says how to install them, and for a
/// file that cannot be decoded. FailedOnTheWay when the disk is full. name: the file in messages.
void Decode_Laz(const std::filesystem::path& laz, const std::filesystem::path& las,
                const std::string& name);

}  // namespace sylvomex
