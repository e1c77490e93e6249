// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "site_program/subcommands.h"

namespace sylvomex {

/// Imports rasters as the model of that name, "dem" or "chm", and says what was done.
int Run_Import_Raster(const RasterArguments& arguments, const std::string& model,
                      SiteOutput& output);

}  // namespace sylvomex
