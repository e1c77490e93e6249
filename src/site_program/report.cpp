// SPDX-License-Identifier: MIT
#include "interchange/failures.h"
#include "interchange/site.h"
#include "site_program/subcommands.h"

namespace sylvomex {

int Run_Report(const ReportArguments& arguments, SiteOutput& /*output*/) {
  Open_Site(arguments.site);
  throw Refused("report: not built yet");
}

}  // namespace sylvomex
