// SPDX-License-Identifier: MIT
#include "interchange/lidar_import.h"

#include <algorithm>
#include <set>
#include <string>

#include "interchange/coordinate_system.h"
#include "interchange/echo_spill.h"
#include "interchange/failures.h"
#include "interchange/lidar_sources.h"
#include "interchange/ordered_shares.h"
#include "interchange/pulse_bytes.h"
#include "interchange/pulse_sorting.h"
#include "interchange/site.h"
#include "interchange/source_checksums.h"
#include "interchange/tile_output.h"
#include "lidar/path_header.h"
#include "platform/files.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr double kRead = 0.2, kSpilled = 0.5;  // shares of the whole that are done then

std::string Campaign_Name(Campaign campaign) { return std::to_string(static_cast<int>(campaign)); }

/// The files that a site holds of a campaign.
std::vector<SourceFile> Imported_Files(const Site& site, Campaign campaign) {
  std::vector<SourceFile> files;
  for (const ImportEntry& entry : site.imports) {
    const auto setting = entry.settings.find("campaign");
    if (entry.kind != "lidar" || setting == entry.settings.end() ||
        setting->second != Campaign_Name(campaign)) {
      continue;
    }
    files.insert(files.end(), entry.files.begin(), entry.files.end());
  }
  return files;
}

/// Takes the files out that the site holds already, and copies among the others.
std::vector<SourceFile> New_Files(const std::vector<SourceFile>& imported, LidarImport& import,
                                  LidarReport& report) {
  std::set<std::string> known;
  for (const SourceFile& file : imported) known.insert(file.checksum);
  std::vector<SourceFile> sources;
  std::vector<fs::path> files;
  const std::vector<SourceFile> all = Source_Files(import.files);
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (known.insert(all[i].checksum).second) {
      sources.push_back(all[i]);
      files.push_back(import.files[i]);
    } else {
      report.skipped.push_back(all[i].path);
    }
  }
  import.files = files;
  return sources;
}

/// The stated trajectory. Refused when no echo was measured in its time.
std::optional<Trajectory> Trajectory_For(const LidarImport& import, const LidarSources& lidar,
                                         const std::string& site) {
  if (import.trajectory.empty()) return std::nullopt;
  Trajectory trajectory = Read_Trajectory(import.trajectory, site);
  for (std::size_t i = 0; i < lidar.sources.size(); ++i) {
    const EchoSource& source = lidar.sources[i];
    const auto time = [&](double stated) {
      return Trajectory_Time(trajectory, stated, source.header.standard_time);
    };
    const SourceSurvey& survey = lidar.survey.sources[i];
    if (source.timed && time(survey.first_time) <= trajectory.Last_Time() &&
        time(survey.last_time) >= trajectory.First_Time()) {
      return trajectory;
    }
  }
  throw Refused(import.trajectory.string() + ": no echo was measured in its time, " +
                Plain_Text(trajectory.First_Time()) + " to " + Plain_Text(trajectory.Last_Time()));
}

SensorPositions Sensors_For(const LidarImport& import, std::optional<Trajectory> trajectory,
                            const FlightLines& lines, LidarReport& report) {
  if (trajectory) return SensorPositions(std::move(*trajectory));
  if (!import.flying_height) {
    report.notes.push_back("neither a trajectory nor a flying height is stated; sensors stand " +
                           Plain_Text(kAssumedFlyingHeight) + " m above the first echoes");
  }
  return {import.flying_height.value_or(kAssumedFlyingHeight), lines};
}

/// The folder prefix of the campaign's tiles; its path header is made when it is missing.
std::string Tile_Prefix(ImportTransaction& transaction, Campaign campaign) {
  const std::string folder = "als" + Campaign_Name(campaign);
  const FilePath header =
      transaction.TheSite().Drives().Locate("c:\\data\\" + folder + "_path.hdr");
  if (File_Exists(header)) return Read_Path_Header(header);
  std::string prefix = "c:\\data\\" + folder + "\\";
  transaction.Write(header.native, prefix + "\n");
  return prefix;
}

TileOutput Tiles_Of(ImportTransaction& transaction, Campaign campaign) {
  const std::string prefix = Tile_Prefix(transaction, campaign);
  const DriveMap drives = transaction.TheSite().Drives();
  const bool is_folder = prefix.ends_with('\\');
  const fs::path folder = drives.Locate(prefix).native;
  const auto place = [=](const TileKey& tile) {
    const std::string name = Tile_File_Name(tile);
    return is_folder ? folder / name : drives.Locate(prefix + name).native;
  };
  return {Record_Bytes(campaign), place,
          [&transaction](const fs::path& target) { return transaction.New_File(target); }};
}

void Add_Notes(const LidarImport& import, LidarReport& report) {
  report.echoes_left_out = report.echoes - report.echoes_kept;
  const auto note = [&](std::uint64_t count, const std::string& text) {
    if (count > 0) report.notes.push_back(std::to_string(count) + text);
  };
  if (import.campaign == Campaign::Als2004) {
    note(report.echoes_left_out, " echoes between the first and the last of their pulse left out");
  } else {
    note(report.echoes_left_out, " echoes behind the fourth of their pulse left out");
    report.notes.emplace_back("the receiver's gain is unknown; 127 stands for it");
  }
  note(report.unknown_sensors, import.trajectory.empty()
                                   ? " pulses of flight lines without a heading; their scan "
                                     "angles are taken as of a flight to the north"
                                   : " pulses outside the times of the trajectory; they have its "
                                     "nearest position");
  if (import.campaign == Campaign::Als2006) {
    note(report.low_sensors,
         " pulses with a sensor at 1000 m or below, which the overlay of 2006 leaves out");
  }
}

ImportEntry Entry_Of(const LidarImport& import, std::vector<SourceFile> files) {
  ImportEntry entry;
  entry.kind = "lidar";
  entry.files = std::move(files);
  entry.settings["campaign"] = Campaign_Name(import.campaign);
  if (!import.trajectory.empty()) {
    entry.settings["trajectory"] = import.trajectory.string();
  } else {
    entry.settings["flying_height"] =
        Plain_Text(import.flying_height.value_or(kAssumedFlyingHeight));
  }
  return entry;
}

void Require_Flying_Height(const LidarImport& import) {
  if (import.flying_height && !(*import.flying_height > 0 && *import.flying_height < 1e5)) {
    throw Refused("flying height " + Plain_Text(*import.flying_height) +
                  ": it must lie above 0 and below 100000 m");
  }
}

/// The echoes by their times: from the files where these are in that order, else by a sort on disk.
EchoShares Shares_Of(const LidarSources& lidar, const std::string& site,
                     const std::function<fs::path(const std::string&)>& scratch,
                     const ToldShare& told) {
  if (std::optional<EchoShares> ordered = Ordered_Shares(lidar.sources, lidar.survey)) {
    return std::move(*ordered);
  }
  const std::uint64_t share = Echoes_Of_Share(lidar.survey.echoes);
  return Spill_Echoes(lidar.sources, Share_Limits(lidar.survey, share), site, scratch, told);
}

/// Imports the files; the site's entry is not written yet.
void Import_Files(ImportTransaction& transaction, const LidarImport& import, LidarReport& report) {
  Site& site = transaction.TheSite();
  report.files = import.files.size();
  const auto scratch = [&](const std::string& name) { return transaction.Scratch_File(name); };
  const LidarSources lidar =
      Open_Lidar(import.files, site.crs, scratch, Part_Of(import.told, 0, kRead));
  Take_Extent(site, lidar.extent, import.files.front().string());
  std::optional<Trajectory> trajectory = Trajectory_For(import, lidar, site.crs);
  report.echoes = lidar.survey.echoes;
  report.notes = lidar.notes;
  const EchoShares shares =
      Shares_Of(lidar, site.crs, scratch, Part_Of(import.told, kRead, kSpilled));
  const SensorPositions sensors = Sensors_For(import, std::move(trajectory), shares.lines, report);
  TileOutput tiles = Tiles_Of(transaction, import.campaign);
  Write_Pulses(shares,
               {import.campaign, lidar.sources, sensors, site.shift.value_or(WorldShift{}),
                Part_Of(import.told, kSpilled, 1)},
               tiles, report);
  tiles.Finish();
  report.tiles = tiles.Count();
  Add_Notes(import, report);
}

}  // namespace

LidarReport Import_Lidar(ImportTransaction& transaction, const LidarImport& asked) {
  Require_Flying_Height(asked);
  LidarImport import = asked;
  LidarReport report;
  const std::vector<SourceFile> imported = Imported_Files(transaction.TheSite(), import.campaign);
  if (Sizes_Are_New(import.files, imported)) {
    SourceChecksums checksums(import.files);
    Import_Files(transaction, import, report);
    transaction.Commit(Entry_Of(import, checksums.Take()));
    return report;
  }
  const std::vector<SourceFile> files = New_Files(imported, import, report);
  if (files.empty()) return report;
  Import_Files(transaction, import, report);
  transaction.Commit(Entry_Of(import, files));
  return report;
}

}  // namespace sylvomex
