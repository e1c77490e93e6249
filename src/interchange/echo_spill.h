// SPDX-License-Identifier: MIT
// The first half of a sort on disk: every echo goes to the file of its share of the keys; within a
// share the echoes keep the order of the sources and of their files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "interchange/echo_record.h"
#include "interchange/flight_lines.h"
#include "interchange/told_share.h"

namespace sylvomex {

inline constexpr std::uint64_t kEchoesOfShare = 1'500'000;

struct EchoShares {
  std::vector<std::filesystem::path> files;  // of EchoRecords, in the order of their keys
  FlightLines lines;
};

/// Writes the echoes of all sources. limits: as of Share_Limits; untimed: pulses without time come
/// behind all others, in shares of their own; site: WKT that sources with a system are
/// reprojected to; new_file: gives the path of a new file. FailedOnTheWay on a full disk.
EchoShares Spill_Echoes(std::span<const EchoSource> sources,
                        const std::vector<std::uint64_t>& limits, const std::string& site,
                        const std::function<std::filesystem::path(const std::string&)>& new_file,
                        const ToldShare& told = {});

/// Reads a share.
std::vector<EchoRecord> Read_Share(const std::filesystem::path& file);

}  // namespace sylvomex
