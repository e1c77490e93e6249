// SPDX-License-Identifier: MIT
// What the menu Site and its dialogs call the subcommands and what they are asked for.
#pragma once

#include <QString>

#include "site_program/command_table.h"

namespace sylvomex {

/// The caption of a subcommand's menu item and the title of its dialog: "Import terrain (DEM)".
QString Site_Caption(const SiteCommand& command);

/// The label of a field; what may be left empty says so.
QString Label_Of(const SiteCommand& command, const SiteField& field);

}  // namespace sylvomex
