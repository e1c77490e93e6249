// SPDX-License-Identifier: MIT
// The images in which the solution can be seen: search of the camera tables, and loading of what
// was found.
#pragma once

namespace sylvomex {

struct Workspace;

/// Leaves a point-in-image file for each aerial image that shows the solution.
void Find_Images_With_XYZ_Sol(Workspace& w);

/// Adds the image of a point-in-image file, centred on the file's point.
void Add_Image_Center_to_XYZ(Workspace& w);

/// Replaces the loaded images by the terrestrial ones that show a stem at the solution.
void Find_And_Read_Terr_Images_in_Which(Workspace& w);

void Find_Trees_Based_On_Lidar(Workspace& w);

}  // namespace sylvomex
