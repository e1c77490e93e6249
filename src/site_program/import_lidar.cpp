// SPDX-License-Identifier: MIT
#include "interchange/lidar_import.h"
#include "site_program/subcommands.h"

namespace sylvomex {
namespace {

void Say_Report(const LidarReport& report, SiteOutput& output) {
  for (const std::string& file : report.skipped) {
    output.Warn(file + ": imported before, skipped");
  }
  for (const std::string& note : report.notes) output.Warn(note);
  output.Say(std::to_string(report.files) + " files, " + std::to_string(report.echoes) +
             " echoes in " + std::to_string(report.pulses) + " pulses, " +
             std::to_string(report.tiles) + " tiles written");
  output.object["files"] = report.files;
  output.object["skipped"] = report.skipped;
  output.object["echoes"] = report.echoes;
  output.object["pulses"] = report.pulses;
  output.object["echoes_kept"] = report.echoes_kept;
  output.object["echoes_left_out"] = report.echoes_left_out;
  output.object["unknown_sensors"] = report.unknown_sensors;
  output.object["low_sensors"] = report.low_sensors;
  output.object["tiles"] = report.tiles;
  output.object["notes"] = report.notes;
}

}  // namespace

int Run_Import_Lidar(const LidarArguments& arguments, SiteOutput& output) {
  ImportTransaction transaction(arguments.site);
  LidarImport import;
  import.files = arguments.files;
  import.campaign = static_cast<Campaign>(arguments.campaign);
  import.trajectory = arguments.trajectory;
  import.flying_height = arguments.flying_height;
  import.told = output.Progress();
  Say_Report(Import_Lidar(transaction, import), output);
  return kDone;
}

}  // namespace sylvomex
