// SPDX-License-Identifier: MIT
#include "interchange/site.h"
#include "site_program/subcommands.h"

namespace sylvomex {

int Run_Init(const InitArguments& arguments, SiteOutput& output) {
  Init_Site(arguments.site, arguments.crs);
  const std::string file = (arguments.site / "site.toml").string();
  output.Say("wrote " + file);
  output.object["site"] = file;
  output.object["crs"] = arguments.crs;
  return kDone;
}

}  // namespace sylvomex
