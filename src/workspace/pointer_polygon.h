// SPDX-License-Identifier: MIT
// Drawing a polygon on a pane. Its vertices are stored in the polyline files.
#pragma once

namespace sylvomex {

struct Workspace;

void Start_Polygon(Workspace& w, int pane, double px, double py);
void Add_Polygon_Vertex(Workspace& w, int pane, double px, double py);
void Close_Polygon(Workspace& w, int pane);

}  // namespace sylvomex
