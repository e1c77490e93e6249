// SPDX-License-Identifier: MIT
// Files that the operator chooses in a dialog.
#pragma once

#include <optional>
#include <string>

#include "platform/drive_map.h"
#include "state/screen.h"

namespace sylvomex {

struct Workspace;

/// The name under which the system goes on with the answer of a file dialog: a drive name where the
/// file lies on a drive, so that records, messages and recordings hold under another root.
///
/// answer: a drive name, a native path, or a drive name that a dialog took for a file of the
/// folder it showed ("/home/me/c:\data\a.hdr"). A name without an ending that no file has gets the
/// ending of the question's filter when there is such a file.
std::string Chosen_File_Name(const DriveMap& drives, const FileQuestion& question,
                             std::string_view answer);

/// Asks for a file; nothing when the dialog is dismissed.
std::optional<FilePath> Ask_File(Workspace& w, const FileQuestion& question);

}  // namespace sylvomex
