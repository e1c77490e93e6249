// SPDX-License-Identifier: MIT
// Images that show the solution: search of the camera tables, and loading of the images found.
#pragma once

namespace sylvomex {

struct Workspace;

/// Writes a point-in-image file for each aerial image that shows the solution.
void Find_Images_With_XYZ_Sol(Workspace& w);

/// Adds the image named by a point-in-image file and centres it on the file's point.
void Add_Image_Center_to_XYZ(Workspace& w);

/// Replaces the loaded images by the terrestrial images that show a stem at the solution.
void Find_And_Read_Terr_Images_in_Which(Workspace& w);

void Find_Trees_Based_On_Lidar(Workspace& w);

}  // namespace sylvomex
