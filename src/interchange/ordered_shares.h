// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>

#include "interchange/echo_shares.h"
#include "interchange/echo_survey.h"

namespace sylvomex {

inline constexpr std::uint64_t kEchoesOfOrderedShare = 1 << 17;

/// The shares of sources whose echoes all lie in the order of their times, as most programs write
/// them: each is read from its runs of the files, without a sort on disk. std::nullopt when a
/// source is not in order, has no times, or is to be reprojected. sources: used as long as shares
/// are read.
std::optional<EchoShares> Ordered_Shares(std::span<const EchoSource> sources,
                                         const EchoSurvey& survey,
                                         std::uint64_t share = kEchoesOfOrderedShare);

}  // namespace sylvomex
