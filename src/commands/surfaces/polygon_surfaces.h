// SPDX-License-Identifier: MIT
// Surface heights over a polygon, as a node file for a TIN.
#pragma once

namespace sylvomex {

struct Workspace;

void Get_Surface_Height_InCdll(Workspace& w);  // images 0 and 1
void Triplet_Matching(Workspace& w);           // images 1, 0 and 2

}  // namespace sylvomex
