// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Writes which image of a camera table covers each cell of a map: the images' ids as 32-bit
/// floats and their numbers in the table as bytes, three a cell in colour. Rows run from the south.
/// The image block is not touched.
void Create_An_OrthoIndex(Workspace& w);

}  // namespace sylvomex
