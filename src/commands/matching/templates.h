// SPDX-License-Identifier: MIT
// The commands that set the plot and make the templates.
#pragma once

namespace sylvomex {

struct Workspace;

void Read_plot_center_data(Workspace& w);  // the solution becomes the plot centre
void Capture_templates(Workspace& w);      // cuts an ellipse around the solution in every image
void Resize_templates(Workspace& w);       // the templates of ticked images in eleven sizes

}  // namespace sylvomex
