// SPDX-License-Identifier: MIT
// The calculator of the step `call`: services of the camera and of the height models by name.
#pragma once

#include <span>
#include <string>

namespace sylvomex {

struct Workspace;

/// The results of a routine, numbers with 17 significant digits, texts in double quotes,
/// separated by blanks. Outputs that a routine leaves alone are 0. Raises StepEnd for an
/// unknown routine or arguments that do not fit, and what the routine itself raises.
std::string Call_Routine(Workspace& w, const std::string& name,
                         std::span<const std::string> arguments);

}  // namespace sylvomex
