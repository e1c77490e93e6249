// SPDX-License-Identifier: MIT
// The commands that set up the plot and capture the templates.
#pragma once

namespace sylvomex {

struct Workspace;

void Read_plot_center_data(Workspace& w);  // the solution becomes the plot centre
void Capture_templates(Workspace& w);      // cuts an ellipse around the solution in every image
void Resize_templates(Workspace& w);  // resamples the templates of ticked images to eleven sizes

}  // namespace sylvomex
