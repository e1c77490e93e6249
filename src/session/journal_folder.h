// SPDX-License-Identifier: MIT
// Where the desktop keeps its journals: one for each root, in the operator's state folder.
#pragma once

#include <filesystem>

#include "session/kept_journal.h"

namespace sylvomex {

/// The journal of a root: NAME-CHECKSUM.journal in $XDG_STATE_HOME/sylvomex/journals, or in
/// ~/.local/state/sylvomex/journals. NAME is the root folder's, CHECKSUM that of its path.
FilePath Journal_Of_Root(const std::filesystem::path& root);

/// Puts a journal aside before a new one takes its place: one that was ended by Exit as .1, the one
/// before as .2 and so on to .5; any other under the present date, where it stays. A missing or
/// empty one is no matter. RunTimeError when that fails.
void Put_Journal_Aside(const FilePath& journal);

/// The journal at the place, if its session was not ended by Exit and did something; a journal
/// that cannot be read counts as none.
std::optional<UnfinishedJournal> Find_Unfinished_Journal(const FilePath& journal,
                                                         const std::filesystem::path& root);

}  // namespace sylvomex
