// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "region/plan_record.h"

namespace sylvomex {

/// The text of "plan.json"; sets the plan's id, the checksum of its content.
std::string Plan_Text(RegionPlan& plan);

/// Reads "plan.json". name: the file in messages. Refused for a text that is no plan, a plan of
/// another version, and one whose content does not match its id.
RegionPlan Parse_Plan(std::string_view text, const std::string& name);

/// Reads the plan of a folder.
RegionPlan Read_Plan(const std::filesystem::path& folder);

}  // namespace sylvomex
