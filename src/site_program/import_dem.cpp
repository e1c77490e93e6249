// SPDX-License-Identifier: MIT
#include "site_program/raster_output.h"

namespace sylvomex {

int Run_Import_Dem(const RasterArguments& arguments, SiteOutput& output) {
  return Run_Import_Raster(arguments, "dem", output);
}

}  // namespace sylvomex
