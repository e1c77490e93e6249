// SPDX-License-Identifier: MIT
// How much of a text file is to come, for the progress of the command that reads it.
#pragma once

#include "platform/drive_map.h"

namespace sylvomex {

/// Number of line ends in a file while somebody watches the work; else 0, and the file is not read.
/// RunTimeErrors of PositionalFile.
double Lines_To_Come(const FilePath& file);

}  // namespace sylvomex
