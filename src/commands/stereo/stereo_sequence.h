// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// A numbered picture of the viewer at each point of a flight, until the operator ends it.
void Import_And_Export_BMPs(Workspace& w);

}  // namespace sylvomex
