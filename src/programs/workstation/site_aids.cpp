// SPDX-License-Identifier: MIT
#include "programs/workstation/site_aids.h"

#include "desktop_site/site_menu.h"

namespace sylvomex {

void Add_Site_Menu(Desktop& desktop, Aids& aids) { new SiteMenu(desktop, aids); }

}  // namespace sylvomex
