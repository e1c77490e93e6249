// SPDX-License-Identifier: MIT
// Questions before the main window appears.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "session/kept_journal.h"

namespace sylvomex {

class RunTimeError;

enum class UsedRootAnswer { AnotherRoot, OnlyShow, Quit };

/// What to do about a root that another program, told by holder, works on.
UsedRootAnswer Ask_About_Used_Root(const std::filesystem::path& root, const std::string& holder);

/// A folder that holds the drives; std::nullopt when none was chosen.
std::optional<std::filesystem::path> Ask_For_Root();

/// Tells why nothing can be begun.
void Tell_Of_Failed_Start(const RunTimeError& failure);

/// Tells why what is done cannot be recovered.
void Tell_Of_Missing_Journal(const RunTimeError& failure);

/// Whether to go on with a session that was not ended by Exit.
bool Ask_Whether_To_Go_On(const UnfinishedJournal& unfinished);

}  // namespace sylvomex
