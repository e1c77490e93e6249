// SPDX-License-Identifier: MIT
// The block's values by name, for the steps `print` and `expect`.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/value_name.h"

namespace sylvomex {

struct Workspace;

/// The value of a name as one line of text. Throws UnknownName for a name that does not exist and
/// RunTimeError(SubscriptOutOfRange) for an index outside its table.
std::string Block_Value(Workspace& w, std::string_view name);

// Block_Value tries these look-ups in this order; each returns std::nullopt for a name that is not
// its own.

/// Controls and windows: "Label10", "Text1(3)", "Form3.Text2", "Label10.ForeColor",
/// "Form3.Visible".
std::optional<std::string> Control_Value(Workspace& w, const std::vector<NamePart>& name);

/// Single values of the state and the options: "Solution3D", "StepLength", "PaneViews(0)".
std::optional<std::string> State_Value(const Workspace& w, const std::vector<NamePart>& name);

/// Fields of the records: "ImageBlock(0).Omega".
std::optional<std::string> Record_Value(const Workspace& w, const std::vector<NamePart>& name);

/// Menu items: "Draw_Polygon", "Point_Intersection.Enabled", "Form2.Apply.Caption".
std::optional<std::string> Menu_Value(Workspace& w, const std::vector<NamePart>& name);

}  // namespace sylvomex
