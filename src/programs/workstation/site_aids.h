// SPDX-License-Identifier: MIT
#pragma once

#include "desktop_aids/aids.h"

namespace sylvomex {

/// Adds the menu Site, in builds with the site programs. The desktop and its aids must outlive it.
void Add_Site_Menu(Desktop& desktop, Aids& aids);

}  // namespace sylvomex
