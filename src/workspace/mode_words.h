// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace sylvomex {

struct Workspace;

/// What the pointer does now, when it is not plain measuring: the modes that are on, joined by
/// "; ", in the order in which they take a click. Empty when a click measures a point and nothing
/// else.
std::string Mode_Words(const Workspace& w);

}  // namespace sylvomex
