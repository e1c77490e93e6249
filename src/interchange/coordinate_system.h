// SPDX-License-Identifier: MIT
// Coordinate systems as GDAL and PROJ know them. Everywhere here X is east and Y north, whatever
// order of axes a system's authority prescribes.
#pragma once

#include <ogr_spatialref.h>

#include <string>

namespace sylvomex {

/// Registers GDAL's drivers once; its own messages stay off the screen and are asked for by
/// Gdal_Message.
void Start_Gdal();

/// What GDAL said last, or the text for the case that it said nothing.
std::string Gdal_Message(const std::string& otherwise);

/// Reads "EPSG:3067", a PROJ string or WKT. Refused for anything else.
OGRSpatialReference Coordinate_System(const std::string& text);

enum class WktForm {
  Wkt1,  // OGC 01-009 with GDAL's names, as LAS files hold it
  Wkt2,  // ISO 19162
};

/// A system as text that Coordinate_System reads.
std::string Wkt_Of(const OGRSpatialReference& system, WktForm form = WktForm::Wkt2);

/// A system without its heights: the horizontal part of a compound one, two of the three axes of
/// another one.
std::string Wkt_Without_Heights(const OGRSpatialReference& system);

/// Refused unless the system is one of map coordinates in metres, as the workstation needs it.
void Require_Map_Metres(const OGRSpatialReference& system, const std::string& text);

/// Whether the map coordinates count in another unit than metres and the system says nothing of
/// heights, which may then be in either.
bool Leaves_Height_Unit_Open(const OGRSpatialReference& system);

/// The message for such a file, behind its name.
inline constexpr const char* kHeightsInMetres =
    ": its map counts in feet, and nothing tells the unit of its heights; they are taken in metres";

/// Whether two systems agree in the horizontal; each may be part of a compound system.
bool Same_Horizontal(const OGRSpatialReference& a, const OGRSpatialReference& b);

/// Whether a map position lies in the area for which the system is made, with half its size around
/// it; true where the area is not known.
bool In_Area_Of_Use(const OGRSpatialReference& system, double X, double Y);

/// Refused when a position that was reprojected into the system lies more than ten degrees outside
/// the system's area, as with a file that tells a wrong system. name: the file.
void Refuse_Far_Away(const OGRSpatialReference& system, double X, double Y,
                     const std::string& name);

/// Refused when a position lies far outside the area of the system, but would lie inside with X and
/// Y exchanged. name: the file that gives the position.
void Refuse_Exchanged_Axes(const OGRSpatialReference& system, double X, double Y,
                           const std::string& name);

/// Refused when a position lies far outside the area of the system, but would lie inside as
/// longitude and latitude in degrees, in either order.
void Refuse_Degrees(const OGRSpatialReference& system, double X, double Y);

}  // namespace sylvomex
