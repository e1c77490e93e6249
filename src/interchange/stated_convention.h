// SPDX-License-Identifier: MIT
#pragma once

#include "interchange/convention.h"
#include "interchange/orientation_table.h"
#include "interchange/site_record.h"

namespace sylvomex {

/// The convention that the orientation check chose for a table, kept in the site under its
/// checksum, else the one that its format states.
Convention Convention_To_Use(const Site& site, const OrientationTable& table);

/// Keeps a chosen convention in the site in place of an older choice for the same table.
void Keep_Convention(Site& site, const OrientationTable& table, const Convention& convention);

}  // namespace sylvomex
