// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// A mosaic of the images of a camera table, which are loaded one after the other: each tile of
/// 100 x 100 cells, at most 130 by 162 of them, is served by the first camera of the table that
/// sees its middle. The image block is cleared; the last image stays in it. A table that cannot be
/// read leaves the block as it was.
void Create_an_Ortho_Block_2(Workspace& w);

}  // namespace sylvomex
