// SPDX-License-Identifier: MIT
// Raw files that shrink under a command: at once after they were mapped, or at any moment.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace sylvomex {

/// Called with the path of each "*.raw" file after it was mapped, on the mapping thread; may be
/// empty. Without effect under sanitizers, which map by functions of their own.
extern std::function<void(const std::filesystem::path&)> after_mapping_raw;
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool kMappingIsSeen = false;
#else
inline constexpr bool kMappingIsSeen = true;
#endif

/// A command that reads raw files.
struct ReadingCommand {
  std::filesystem::path root;
  std::string before;                // steps that prepare it
  std::string command;               // its own steps
  std::vector<std::string> raws;     // below the root; what it reads
  std::vector<std::string> outputs;  // below the root; what it writes
  bool takes_short_files = false;    // one that is short from the start is no error
  double width = 1280, height = 1024;
};

struct PlayedCommand {
  bool went_on = false;    // the step after the command was played
  std::string transcript;  // of the command alone
  double seconds = 0;      // that the command took
  std::map<std::string, std::string> outputs_before, outputs_after;
};

/// Plays the command once. begin() is called when it is about to begin, end() after its last step.
/// The raw files are new ones then, so that they are mapped anew.
PlayedCommand Play_Command(const ReadingCommand& reading, const std::function<void()>& begin,
                           const std::function<void()>& end);

/// The n-th file that the command maps shrinks to nothing, for every n: one error names it, no
/// output comes of it, and the program goes on.
void Expect_One_Error_For_Each_Mapping(const ReadingCommand& reading);

/// Files shrink at random moments, `rounds` times: the command ends as if nothing had happened, or
/// no output comes of it, and the program goes on.
void Expect_To_Survive_Any_Moment(const ReadingCommand& reading, int rounds);

}  // namespace sylvomex
