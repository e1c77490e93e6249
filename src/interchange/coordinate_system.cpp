// SPDX-License-Identifier: MIT
#include "interchange/coordinate_system.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <gdal_priv.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <mutex>

#include "interchange/failures.h"

namespace sylvomex {

namespace {

std::unique_ptr<OGRSpatialReference> Horizontal_Part(const OGRSpatialReference& system) {
  std::unique_ptr<OGRSpatialReference> part(system.Clone());
  if (part->IsCompound() != 0) part->StripVertical();
  part->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return part;
}

}  // namespace

void Start_Gdal() {
  static std::once_flag started;
  std::call_once(started, [] {
    CPLSetErrorHandler(CPLQuietErrorHandler);
    CPLSetConfigOption("GDAL_DISABLE_READDIR_ON_OPEN", "TRUE");
    CPLSetConfigOption("GDAL_ERROR_ON_LIBJPEG_WARNING", "TRUE");  // a JPEG that is cut short
    CPLSetConfigOption("GDAL_NUM_THREADS", "ALL_CPUS");
    CPLSetConfigOption("GTIFF_DIRECT_IO", "YES");  // uncompressed rasters past the block cache
    GDALAllRegister();
  });
}

std::string Gdal_Message(const std::string& otherwise) {
  const std::string message = CPLGetLastErrorMsg();
  return message.empty() ? otherwise : message;
}

OGRSpatialReference Coordinate_System(const std::string& text) {
  Start_Gdal();
  OGRSpatialReference system;
  CPLErrorReset();
  if (text.empty() ||
      system.SetFromUserInput(text.c_str(), OGRSpatialReference::SET_FROM_USER_INPUT_LIMITATIONS) !=
          OGRERR_NONE) {
    throw Refused("\"" + text + "\" is no coordinate system: " +
                  Gdal_Message("it is neither EPSG:n nor a PROJ string nor WKT"));
  }
  system.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return system;
}

void Require_Map_Metres(const OGRSpatialReference& system, const std::string& text) {
  const bool is_local = system.IsLocal() != 0;
  if (system.IsProjected() == 0 && !is_local) {
    throw Refused("\"" + text + "\" has no map coordinates: a site needs a projected system");
  }
  const double unit = is_local ? system.GetLinearUnits() : system.GetTargetLinearUnits("PROJCS");
  if (std::abs(unit - 1) > 1e-9) {
    throw Refused("\"" + text + "\" does not count in metres: a site needs a system in metres");
  }
}

bool Leaves_Height_Unit_Open(const OGRSpatialReference& system) {
  if (system.IsProjected() == 0 || system.IsVertical() != 0 || system.GetAxesCount() > 2) {
    return false;
  }
  return std::abs(system.GetTargetLinearUnits("PROJCS") - 1) > 1e-9;
}

std::string Wkt_Of(const OGRSpatialReference& system, WktForm form) {
  char* text = nullptr;
  const char* const kOptions[] = {form == WktForm::Wkt1 ? "FORMAT=WKT1_GDAL" : "FORMAT=WKT2",
                                  nullptr};
  system.exportToWkt(&text, kOptions);
  std::string wkt = text == nullptr ? "" : text;
  CPLFree(text);
  return wkt;
}

std::string Wkt_Without_Heights(const OGRSpatialReference& system) {
  const auto flat = Horizontal_Part(system);
  flat->DemoteTo2D(nullptr);
  return Wkt_Of(*flat);
}

bool Same_Horizontal(const OGRSpatialReference& a, const OGRSpatialReference& b) {
  const auto first = Horizontal_Part(a);
  const auto second = Horizontal_Part(b);
  const char* const kOptions[] = {"IGNORE_DATA_AXIS_TO_SRS_AXIS_MAPPING=YES",
                                  "CRITERION=EQUIVALENT_EXCEPT_AXIS_ORDER_GEOGCRS", nullptr};
  return first->IsSame(second.get(), kOptions) != 0;
}

namespace {

/// Whether a map position lies in the area of a system with half its size around it, at least some
/// degrees.
bool Is_Near_Area(const OGRSpatialReference& system, double X, double Y, double least_margin) {
  double west = 0, south = 0, east = 0, north = 0;
  const auto map = Horizontal_Part(system);
  if (!map->GetAreaOfUse(&west, &south, &east, &north, nullptr)) return true;
  OGRSpatialReference degrees;
  degrees.SetWellKnownGeogCS("WGS84");
  degrees.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const std::unique_ptr<OGRCoordinateTransformation> to_degrees(
      OGRCreateCoordinateTransformation(map.get(), &degrees));
  if (to_degrees == nullptr) return true;
  if (to_degrees->Transform(1, &X, &Y) == 0 || !std::isfinite(X) || !std::isfinite(Y)) return false;
  if (east < west) east += 360;
  const double wide = std::max((east - west) / 2, least_margin);
  const double high = std::max((north - south) / 2, least_margin);
  return X > west - wide && X < east + wide && Y > south - high && Y < north + high;
}

}  // namespace

bool In_Area_Of_Use(const OGRSpatialReference& system, double X, double Y) {
  return Is_Near_Area(system, X, Y, 0);
}

void Refuse_Far_Away(const OGRSpatialReference& system, double X, double Y,
                     const std::string& name) {
  constexpr double kFarDegrees = 10;
  if (Is_Near_Area(system, X, Y, kFarDegrees)) return;
  throw Refused(name + ": by its own coordinate system it lies at " + std::to_string(X) + ", " +
                std::to_string(Y) + ", far outside the area of the site's; is that system right?");
}

void Refuse_Exchanged_Axes(const OGRSpatialReference& system, double X, double Y,
                           const std::string& name) {
  if (In_Area_Of_Use(system, X, Y) || !In_Area_Of_Use(system, Y, X)) return;
  throw Refused(name + ": the position " + std::to_string(X) + ", " + std::to_string(Y) +
                " lies outside the area of the site's coordinate system, and inside when X and Y "
                "are exchanged");
}

void Refuse_Degrees(const OGRSpatialReference& system, double X, double Y) {
  double west = 0, south = 0, east = 0, north = 0;
  if (std::abs(X) > 180 || std::abs(Y) > 180 || In_Area_Of_Use(system, X, Y)) return;
  if (!system.GetAreaOfUse(&west, &south, &east, &north, nullptr)) return;
  const auto is_within = [&](double longitude, double latitude) {
    return longitude >= west && longitude <= east && latitude >= south && latitude <= north;
  };
  if (!is_within(X, Y) && !is_within(Y, X)) return;
  throw Refused("the position " + std::to_string(X) + ", " + std::to_string(Y) +
                " is in degrees; positions must be in the site's coordinate system");
}

}  // namespace sylvomex
