// SPDX-License-Identifier: MIT
// The set of images: adding by header, clearing, the gamma choice.
#pragma once

#include "platform/drive_map.h"

namespace sylvomex {

class FollowedImage;
struct Workspace;

void Add_images_to_set(Workspace& w);

/// The first steps of adding an image, up to its laid-out pane with its start view; the pane has no
/// picture yet. image: follows the added image from index w.ImageCount on through any removals that
/// run meanwhile. False after the message that the block is full. A header that cannot be read, and
/// a raw file that is missing or too short although its header caused no warning, are RunTimeErrors
/// that leave the block unchanged; an image whose header only caused warnings stays.
bool Take_In_Image(Workspace& w, const FilePath& header, const FollowedImage& image);

/// Add_images_to_set without its dialog. RunTimeErrors of Take_In_Image, and one for an image that
/// stays in the block without a picture.
void Add_Image_By_Name(Workspace& w, const FilePath& header);

void Open_a_set(Workspace& w);

/// Gamma item n (1 to 6): checks it and unchecks the others, or unchecks it.
void Toggle_Gamma(Workspace& w, int n);

}  // namespace sylvomex
