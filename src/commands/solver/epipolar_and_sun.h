// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

void Draw_Epipolar_Line(Workspace& w);
void Epipolar_line(Workspace& w);
void Cast_sun_ray(Workspace& w);
void Get_angles(Workspace& w);

}  // namespace sylvomex
