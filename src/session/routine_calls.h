// SPDX-License-Identifier: MIT
// The step `call`: camera and height model routines by name.
#pragma once

#include <span>
#include <string>

namespace sylvomex {

struct Workspace;

/// The results of a routine, numbers with 17 significant digits, texts in double quotes,
/// separated by blanks. Outputs that the routine does not set are 0. Throws StepEnd for an
/// unknown routine or invalid arguments; the routine's own exceptions propagate.
std::string Call_Routine(Workspace& w, const std::string& name,
                         std::span<const std::string> arguments);

}  // namespace sylvomex
