// SPDX-License-Identifier: MIT
// The text listing of pulses: a line an echo.
#pragma once

#include <functional>
#include <string>

#include "lidar/echo_selection.h"
#include "lidar/pulse_record.h"

namespace sylvomex {

/// Receives one sentence about an implausible echo while it is listed.
using ListingComplaint = std::function<void()>;

/// Appends the lines of a pulse: X Y Z H intensity type code 1, a blank after every item, H the
/// height above ground. Type 0 is an only echo, 1 the first, 2 an intermediate, 3 the last
/// one. Pulses of no or more than four echoes get no line.
///
/// complain: called after an echo with X below 10, and after a pulse of two or four echoes of
/// which two have the same X to 0.0000001 m.
///
/// False for a pulse of three echoes: its first two are appended, and the listing ends there.
bool List_Pulse(const LidarPulse& pulse, const GroundHeight& ground,
                const ListingComplaint& complain, std::string& lines);

}  // namespace sylvomex
