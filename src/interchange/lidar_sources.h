// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "interchange/echo_record.h"
#include "interchange/echo_survey.h"
#include "interchange/site.h"

namespace sylvomex {

/// LAS files, checked and ready to be read into a site.
struct LidarSources {
  std::vector<EchoSource> sources;
  EchoSurvey survey;
  MapExtent extent;                // of all echoes, world metres
  std::vector<std::string> notes;  // what the files did not say, a sentence each
};

/// Opens LAS and LAZ files (the latter through copies, made at paths that new_file gives), reads
/// all of their points once, and finds how their coordinates become the site's: files of another
/// coordinate system are reprojected, heights in feet become metres.
///
/// Refused, naming the file, for everything that Read_Las_Header refuses, a file without points,
/// times that are no numbers, and coordinates that cannot be reprojected.
LidarSources Open_Lidar(const std::vector<std::filesystem::path>& files,
                        const std::string& site_crs,
                        const std::function<std::filesystem::path(const std::string&)>& new_file,
                        const ToldShare& told = {});

}  // namespace sylvomex
