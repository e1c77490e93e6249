// SPDX-License-Identifier: MIT
#include "crown_case.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <sstream>

#include "demo/chain/crown_chain.h"
#include "demo/chain/temporary_site.h"
#include "demo/render/pulse_tracer.h"
#include "demo/scene/lidar_campaign.h"
#include "demo/write/crown_session.h"
#include "demo/write/height_rasters.h"
#include "demo/write/image_files.h"
#include "demo/write/lidar_files.h"
#include "demo/write/session_steps.h"
#include "demo/write/site_folders.h"
#include "overlays/jet_colours.h"
#include "platform/files.h"

namespace sylvomex::demo {
namespace {

constexpr double kTileSide = 100;  // metres
constexpr std::size_t kPhotos = 2;

// The fit looks at their headers and at the colour of its seeds, which it does not use: the raw
// files are black.
std::vector<Photograph> Write_Black_Photographs(const Scene& scene, const DriveMap& drives) {
  std::vector<Photograph> photos = Fly_Over(scene);
  photos.resize(kPhotos);
  for (const Photograph& photo : photos) {
    Write_Photograph(photo, {}, drives);
    const double bytes = 3 * photo.image.SubWidth * photo.image.SubHeight;
    std::filesystem::resize_file(drives.Locate(photo.image.RawFileName.Trimmed()).native,
                                 static_cast<std::uintmax_t>(bytes));
  }
  return photos;
}

void Write_Campaign(const Scene& scene, double pulses, const DriveMap& drives) {
  LidarCampaign campaign = Lidar_Campaigns()[1];
  campaign.density = pulses;
  for (const auto& [name, bytes] : Lidar_Tiles(campaign, Fly_Lidar(scene, campaign))) {
    Write_Whole_File(drives.Locate(Lidar_Folder(campaign) + name), bytes);
  }
  Write_Whole_File(drives.Locate("c:\\data\\als2006_path.hdr"),
                   '"' + Lidar_Folder(campaign) + "\"\n");
}

std::string Session_Of_Boxes(const Scene& scene, const std::vector<Photograph>& photos) {
  std::string text = Load_Steps(photos);
  for (double y = kTileSide / 2; y < kForestSide; y += kTileSide) {
    for (double x = kTileSide / 2; x < kForestSide; x += kTileSide) {
      const double X = kForestWest + x, Y = kForestSouth + y;
      text += Crown_Box_Steps({X, Y, Ground_Height(scene, X, Y)});
    }
  }
  return text;
}

std::string Error_Lines(const std::string& transcript) {
  std::istringstream lines(transcript);
  std::string errors;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("error ")) errors += line + "\n";
  }
  return errors;
}

void Add_Box(const Scene& scene, const CrownBoxFit& box, CrownCaseRun& run) {
  const auto trees = Crowns_Of_Trees(scene, box.middle.X, box.middle.Y, box.crowns, box.echoes);
  std::copy(trees.begin(), trees.end(), std::back_inserter(run.trees));
  run.crowns += static_cast<int>(box.crowns.size());
  for (const auto& [cause, count] : box.failed) run.failed += count;
  run.seconds += box.seconds;
}

}  // namespace

CrownCaseRun Run_Crown_Case(const CrownCase& one, std::uint64_t seed) {
  const TemporarySite folder("accuracy_crowns");
  Create_Site_Folders(folder.Path());
  const DriveMap drives(folder.Path());
  SiteSettings settings;
  settings.seed = seed;
  settings.stems_per_hectare = one.stems_per_hectare;
  const Scene scene = Build_Scene(settings);
  const std::vector<Photograph> photos = Write_Black_Photographs(scene, drives);
  Write_Raster(Make_Ground_Raster(scene), "c:\\data\\demo\\dem.hdr", drives);
  Write_Whole_File(drives.Locate("C:\\data\\JetColorMAP.csv"), Jet_Colour_Map());
  Write_Campaign(scene, one.pulses, drives);
  std::istringstream script(Session_Of_Boxes(scene, photos));
  std::ostringstream transcript, err;
  CrownSessionResult result;
  Play_Crown_Session(folder.Path(), script, "boxes", transcript, err, result);
  CrownCaseRun run;
  run.done = result.done;
  if (!run.done) run.failure = err.str() + Error_Lines(transcript.str());
  for (const CrownBoxFit& box : result.boxes) Add_Box(scene, box, run);
  return run;
}

}  // namespace sylvomex::demo
