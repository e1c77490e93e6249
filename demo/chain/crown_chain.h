// SPDX-License-Identifier: MIT
// The crown sessions of a site, played in this process, and what they found beside the truth.
#pragma once

#include <filesystem>
#include <istream>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "crowns/crown_record.h"
#include "demo/scene/scene.h"
#include "lidar/point_file.h"
#include "platform/point3d.h"

namespace sylvomex::demo {

/// A fit over an area as it ended.
struct CrownBoxFit {
  Point3D middle;
  std::vector<CrownRecord> crowns;
  std::vector<LidarPoint> echoes;
  std::map<std::string, int> failed;  // seeds without a crown, by cause
  double seconds = 0;
};

/// A command on one tree of the scene.
struct SingleTree {
  int tree = 0;       // its id
  bool done = false;  // a crown was fitted, a height found
  double value = 0;   // Dcrm, metres; Z of the solution
  double seconds = 0;
};

struct CrownSessionResult {
  bool done = false;  // every step to its end
  std::vector<CrownBoxFit> boxes;
  std::vector<SingleTree> local;   // "say local ID" stands before each
  std::vector<SingleTree> clicks;  // "say click ID" stands before each
  double list_seconds = 0;
};

/// Plays a script below the root; adds what it finds to the result. RunTimeErrors as
/// Play_Watched_Session.
void Play_Crown_Session(const std::filesystem::path& root, std::istream& script,
                        const std::string& name, std::ostream& transcript, std::ostream& err,
                        CrownSessionResult& result);

/// Trees, fitted crowns, failures by cause and errors of a box.
std::string Box_Text(const Scene& scene, const CrownBoxFit& box);

/// Dcrm by species, less the true diameter at the depth that it stands for.
std::string Local_Text(const Scene& scene, const std::vector<SingleTree>& trees);

std::string Click_Text(const Scene& scene, const std::vector<SingleTree>& clicks);

}  // namespace sylvomex::demo
