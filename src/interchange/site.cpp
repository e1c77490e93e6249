// SPDX-License-Identifier: MIT
#include "interchange/site.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"
#include "interchange/import_transaction.h"
#include "interchange/site_text.h"
#include "lidar/tile_grid.h"
#include "overlays/jet_colours.h"
#include "platform/files.h"
#include "platform/replacing_file.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kTiles = 1000;      // three digits
constexpr double kKilometre = 1000;  // metres
constexpr double kRoom = 5000;       // metres around an extent that needs no shift

/// The rectangle that lies within the tiles of every campaign.
MapExtent Room_Of_All_Campaigns() {
  MapExtent room{-1e9, -1e9, 1e9, 1e9};
  for (const Campaign campaign : {Campaign::Als2004, Campaign::Als2006, Campaign::Als2007}) {
    const TileIndex first = Tile_Index(campaign, 0, 0);
    const double west = -first.col * kTileSide;
    const double south = -first.row * kTileSide;
    room.west = std::max(room.west, west);
    room.south = std::max(room.south, south);
    room.east = std::min(room.east, west + kTiles * kTileSide);
    room.north = std::min(room.north, south + kTiles * kTileSide);
  }
  return room;
}

bool Holds(const MapExtent& room, const MapExtent& extent, double around) {
  return extent.west >= room.west + around && extent.east < room.east - around &&
         extent.south >= room.south + around && extent.north < room.north - around;
}

double Shift_To_Middle(double low, double high, double room_low, double room_high) {
  return std::round(((low + high) - (room_low + room_high)) / 2 / kKilometre) * kKilometre;
}

MapExtent Shifted(const MapExtent& world, const WorldShift& shift) {
  return {world.west - shift.X, world.south - shift.Y, world.east - shift.X, world.north - shift.Y};
}

/// The folders that the workstation starts with, and those that its commands write into.
void Create_Work_Folders(const std::filesystem::path& folder) {
  for (const char* const inside : {"c/apu", "c/data/Lehtomaa/Pistedata", "c/data/vektorit",
                                   "c/temp", "d/data/laser", "e/lk", "f/temp/AVI"}) {
    std::error_code error;
    std::filesystem::create_directories(folder / inside, error);
    if (error == std::errc::no_space_on_device) {
      throw FailedOnTheWay((folder / inside).string() + ": " + error.message());
    }
    if (error) throw Refused((folder / inside).string() + ": " + error.message());
  }
}

void Write_Text(const std::filesystem::path& file, const std::string& text) {
  Replace_Whole_File({file.string(), file},
                     {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

}  // namespace

WorldShift Shift_For(const MapExtent& world) {
  const MapExtent room = Room_Of_All_Campaigns();
  if (Holds(room, world, kRoom)) return {};
  const WorldShift shift{Shift_To_Middle(world.west, world.east, room.west, room.east),
                         Shift_To_Middle(world.south, world.north, room.south, room.north)};
  if (!Holds(room, Shifted(world, shift), 0)) {
    throw Refused("the positions span more than the tiles of a site can hold, " +
                  std::to_string(std::lround((room.east - room.west) / kKilometre)) + " km");
  }
  return shift;
}

void Take_Extent(Site& site, const MapExtent& world, const std::string& name) try {
  const auto system = Coordinate_System(site.crs);
  Refuse_Exchanged_Axes(system, (world.west + world.east) / 2, (world.south + world.north) / 2,
                        "the middle");
  Refuse_Degrees(system, (world.west + world.east) / 2, (world.south + world.north) / 2);
  if (!site.shift) {
    site.shift = Shift_For(world);
  } else if (!Holds(Room_Of_All_Campaigns(), Shifted(world, *site.shift), 0)) {
    throw Refused("the positions lie outside the tiles that the site's shift allows");
  }
} catch (const Refused& refusal) {
  throw Refused(name + ": " + refusal.what());
}

void Init_Site(const std::filesystem::path& folder, const std::string& crs) try {
  Require_Map_Metres(Coordinate_System(crs), crs);
  const std::filesystem::path file = folder / "site.toml";
  if (std::filesystem::exists(file)) throw Refused(file.string() + ": there is a site already");
  Create_Work_Folders(folder);
  const std::filesystem::path colours = folder / "c/data/JetColorMAP.csv";
  if (!std::filesystem::exists(colours)) Write_Text(colours, Jet_Colour_Map());
  Site site;
  site.crs = crs;
  Write_Text(file, Site_Text(site));
} catch (const RunTimeError& error) {
  throw FailedOnTheWay(error.what());
}

Site Open_Site(const std::filesystem::path& folder) try {
  const std::filesystem::path file = folder / "site.toml";
  if (!std::filesystem::is_regular_file(file)) {
    throw Refused(folder.string() + ": no site, it has no site.toml (sylvomex-site init makes it)");
  }
  Finish_Killed_Import(folder);
  Site site = Parse_Site(Read_Whole_File({file.string(), file}), file.string());
  try {
    Require_Map_Metres(Coordinate_System(site.crs), site.crs);
  } catch (const Refused& refusal) {
    throw Refused(file.string() + ": " + refusal.what());
  }
  site.folder = folder;
  return site;
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

}  // namespace sylvomex
