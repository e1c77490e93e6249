// SPDX-License-Identifier: MIT
// The first half of a sort on disk: every echo goes to its share of the keys; within a share the
// echoes keep the order of the sources and of their files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "interchange/echo_shares.h"
#include "interchange/told_share.h"

namespace sylvomex {

/// Echoes of a share of the sort on disk, for an import of so many: few enough for the memory, and
/// enough of them for long pieces on the disk.
std::uint64_t Echoes_Of_Share(std::uint64_t echoes);

/// Writes the echoes of all sources. limits: as of Share_Limits; pulses without time come behind
/// all others, in shares of their own; site: WKT that sources with a system are reprojected to;
/// new_file: gives the path of a new file, of which there are as many as ShareFiles needs.
/// FailedOnTheWay on a full disk.
EchoShares Spill_Echoes(std::span<const EchoSource> sources,
                        const std::vector<std::uint64_t>& limits, const std::string& site,
                        const std::function<std::filesystem::path(const std::string&)>& new_file,
                        const ToldShare& told = {});

}  // namespace sylvomex
