// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QString>

#include "desktop/desktop.h"

namespace sylvomex {

/// Two items at the end of a menu: the whole window and a single pane, with their overlays, ids and
/// scale bars, as SVG or PDF. taken: the letters of the menu's items so far. The desktop must
/// outlive the menu.
void Add_Picture_Export(Desktop& desktop, QMenu& menu, QString& taken);

}  // namespace sylvomex
