// SPDX-License-Identifier: MIT
#include "site_program/raster_output.h"

namespace sylvomex {

int Run_Import_Chm(const RasterArguments& arguments, SiteOutput& output) {
  return Run_Import_Raster(arguments, "chm", output);
}

}  // namespace sylvomex
