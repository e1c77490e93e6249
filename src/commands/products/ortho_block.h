// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// A mosaic of the images of the block in tiles of 100 x 100 cells, each served by the first image
/// that sees it near the middle of its film.
void OrthoBlock(Workspace& w);

}  // namespace sylvomex
