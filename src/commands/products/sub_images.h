// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Cuts small images out of those of the block around the ground points of a file: "c:\data\B4_"
/// and "c:\data\B4_color_" with the ImageId, each a header and a raw file. Every line of the file
/// makes them anew.
void Write_SUB_images(Workspace& w);

}  // namespace sylvomex
