// SPDX-License-Identifier: MIT
#include "programs/workstation/site_aids.h"

namespace sylvomex {

void Add_Site_Menu(Desktop&, Aids&) {}

}  // namespace sylvomex
