// SPDX-License-Identifier: MIT
// Cost of the commands of a matching session: seconds and memory.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sylvomex::demo {

/// One run of a measured command.
struct CommandRun {
  std::string command;
  double seconds = 0;             // wall clock
  std::optional<double> peak_mb;  // of the process until the command ended, 1024 kB each
};

/// Capture_templates, Compute_Correlation_Images, Create_XYZ_Point_Set, Compute_Back_Projections,
/// Find_clusters.
bool Is_Chain_Command(std::string_view name);

/// The line "VmHWM: <number> kB" of a Linux process status, as MB of 1024 kB. std::nullopt without
/// such a line.
std::optional<double> Peak_Memory_MB(const std::string& process_status);

/// Peak memory of this process so far; std::nullopt where the system does not report it.
std::optional<double> Peak_Memory_Of_This_Process();

/// The runs as aligned text, with the sum of their seconds.
std::string Table_Text(const std::vector<CommandRun>& runs);

}  // namespace sylvomex::demo
