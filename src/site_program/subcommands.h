// SPDX-License-Identifier: MIT
// The subcommands: each takes its part of the command line, throws Refused or FailedOnTheWay, and
// returns the exit status.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "site_program/output.h"

namespace sylvomex {

struct InitArguments {
  std::filesystem::path site;
  std::string crs;
};
int Run_Init(const InitArguments& arguments, SiteOutput& output);

struct ImagesArguments {
  std::filesystem::path site;
  std::filesystem::path table;
  std::vector<std::filesystem::path> files;
  std::filesystem::path cameras;                 // empty: none
  std::string format;                            // empty: found from the table
  std::optional<std::array<double, 2>> stretch;  // percentiles
  std::optional<std::array<double, 4>> around;   // X, Y, Z, radius: world metres
};
int Run_Import_Images(const ImagesArguments& arguments, SiteOutput& output);

struct RasterArguments {
  std::filesystem::path site;
  std::vector<std::filesystem::path> files;
};
int Run_Import_Dem(const RasterArguments& arguments, SiteOutput& output);
int Run_Import_Chm(const RasterArguments& arguments, SiteOutput& output);
int Run_Import_Tin(const RasterArguments& arguments, SiteOutput& output);

struct LidarArguments {
  std::filesystem::path site;
  std::vector<std::filesystem::path> files;
  int campaign = 0;                     // 2004, 2006 or 2007
  std::filesystem::path trajectory;     // empty: none
  std::optional<double> flying_height;  // metres
};
int Run_Import_Lidar(const LidarArguments& arguments, SiteOutput& output);

struct TreesArguments {
  std::filesystem::path site;
  std::filesystem::path file;
  std::string columns;  // NAME=COLUMN,...
};
int Run_Import_Trees(const TreesArguments& arguments, SiteOutput& output);

struct CheckArguments {
  std::filesystem::path site;
  std::filesystem::path table;
  std::filesystem::path observations;
  std::filesystem::path points;
  std::filesystem::path cameras;
  std::string format;
};
int Run_Check_Orientation(const CheckArguments& arguments, SiteOutput& output);

struct ReportArguments {
  std::filesystem::path site;
};
int Run_Report(const ReportArguments& arguments, SiteOutput& output);

struct ExportArguments {
  std::filesystem::path site;
  std::string what;
  std::filesystem::path input;
  std::filesystem::path output;
};
int Run_Export(const ExportArguments& arguments, SiteOutput& output);

}  // namespace sylvomex
