// SPDX-License-Identifier: MIT
// Files that the operator chooses in a dialog.
#pragma once

#include <optional>
#include <string>

#include "platform/drive_map.h"
#include "state/screen.h"

namespace sylvomex {

struct Workspace;

/// The internal name for the answer of a file dialog: a drive name when the file lies on a drive,
/// so that records, messages and recordings stay valid under another root.
///
/// answer: a drive name, a native path, or a drive name that a dialog mistook for a file in the
/// folder it showed ("/home/me/c:\data\a.hdr"). A name without extension for which no file exists
/// gets the extension of the question's filter when that file exists.
std::string Chosen_File_Name(const DriveMap& drives, const FileQuestion& question,
                             std::string_view answer);

/// Asks for a file; std::nullopt when the dialog is dismissed.
std::optional<FilePath> Ask_File(Workspace& w, const FileQuestion& question);

}  // namespace sylvomex
