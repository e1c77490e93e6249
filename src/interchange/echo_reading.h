// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "interchange/echo_record.h"
#include "interchange/las_points.h"

namespace sylvomex {

/// Appends the echoes of a block in their order, in the frame of their source. site: the system
/// (WKT or another text for PROJ) that sources with a system of their own are reprojected to.
/// Refused, naming the file, where that cannot be.
void Read_Echoes(const LasBlock& block, const EchoSource& source, const std::string& site,
                 std::vector<EchoRecord>& echoes);

}  // namespace sylvomex
