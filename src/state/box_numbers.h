// SPDX-License-Identifier: MIT
// Numbers typed into text boxes. An error names its box.
#pragma once

#include <string_view>

#include "state/workspace.h"

namespace sylvomex {

/// The number in a box. RunTimeError as by Parse_Double, prefixed with the name of the box, e.g.
/// "Text5" or "Form2.Text5".
double Number_In(const TextBox& box, std::string_view name);

/// The observation in the two measurement boxes of an image. An error names box and image,
/// e.g. "Text1(2) of image 1".
FilmPosition Film_In_Boxes(const Workspace& w, int image);

}  // namespace sylvomex
