// SPDX-License-Identifier: MIT
// Loading the triangulated height models and showing their heights at the solution.
#pragma once

namespace sylvomex {

struct Workspace;

void Add_Tin(Workspace& w);
void Add_Tin_CHM(Workspace& w);
void Get_TIN_elevation(Workspace& w);  // uses the tile files
void Get_TIN_DTM_Opt(Workspace& w);    // searches the model's triangles
void Get_TIN_CHM_Elev(Workspace& w);

}  // namespace sylvomex
