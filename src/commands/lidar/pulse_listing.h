// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Lists the 2007 tiles of a fixed block as text, one line per echo.
void Print_ALS_in_ASCII(Workspace& w);

}  // namespace sylvomex
