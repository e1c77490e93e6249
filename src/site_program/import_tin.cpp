// SPDX-License-Identifier: MIT
#include "interchange/tin_import.h"

#include "site_program/subcommands.h"

namespace sylvomex {

int Run_Import_Tin(const RasterArguments& arguments, SiteOutput& output) {
  ImportTransaction transaction(arguments.site);
  const TinReport report = Import_Tin(transaction, arguments.files, output.Progress());
  for (const std::string& note : report.notes) output.Warn(note);
  output.Say("c:\\data\\models\\tin.nod and tin.tri: " + std::to_string(report.nodes) + " nodes, " +
             std::to_string(report.triangles) + " triangles; " + std::to_string(report.tiles) +
             " tile files in c:\\data\\Tris");
  output.object["nodes"] = report.nodes;
  output.object["triangles"] = report.triangles;
  output.object["tiles"] = report.tiles;
  output.object["notes"] = report.notes;
  return kDone;
}

}  // namespace sylvomex
