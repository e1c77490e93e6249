// SPDX-License-Identifier: MIT
#include "session/routine_calls.h"

#include "state/workspace.h"

#include <algorithm>
#include <array>
#include <limits>

#include "lidar/tile_grid.h"
#include "platform/rounding.h"
#include "session/left_outputs.h"
#include "session/step_arguments.h"
#include "session/step_end.h"
#include "session/transcript_text.h"
#include "session/value_text.h"
#include "state/tin_access.h"

namespace sylvomex {

namespace {

using Arguments = std::span<const std::string>;

double Real(Arguments arguments, std::size_t i) { return Real_Argument(arguments[i]); }

Point3D Point_Argument(Arguments arguments) {
  return {Real(arguments, 1), Real(arguments, 2), Real(arguments, 3)};
}

int Image_Index(Arguments arguments) {
  const long image = Whole_Argument(arguments[0]);
  constexpr long kFirst = std::numeric_limits<int>::min();
  constexpr long kLast = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(image, kFirst, kLast));
}

std::string Call_Object_To_Pixel(Workspace& w, Arguments a) {
  const auto [col, row] = Object_To_Pixel(w, Image_Index(a), Point_Argument(a));
  return Value_Texts(col, row);
}

std::string Call_Object_To_Image(Workspace& w, Arguments a) {
  FilmPosition film;
  Object_To_Image(Camera_Of(w, Image_Index(a)), Point_Argument(a), film);
  return Value_Texts(film.x, film.y);
}

std::string Call_Image_To_Object_At_Z(Workspace& w, Arguments a) {
  Point3D ground;
  Image_To_Object_At_Z(Camera_Of(w, Image_Index(a)), Real(a, 1), {Real(a, 2), Real(a, 3)}, ground);
  return Value_Texts(ground.X, ground.Y);
}

std::string Call_Image_To_Pixel(Workspace& w, Arguments a) {
  const auto [col, row] = Image_To_Pixel(w, Image_Index(a), {Real(a, 1), Real(a, 2)});
  return Value_Texts(col, row);
}

std::string Call_Pixel_To_Image(Workspace& w, Arguments a) {
  const auto [x, y] = Pixel_To_Image(w, Image_Index(a), {Real(a, 1), Real(a, 2)});
  return Value_Texts(x, y);
}

std::string Call_Get_View_Angles(Workspace& w, Arguments a) {
  ViewAngles angles;
  Get_View_Angles(w, Image_Index(a), angles);
  return Value_Texts(angles.off_nadir, angles.azimuth_difference, angles.ray_azimuth);
}

std::string Call_Get_Raster_Elevation(Workspace& w, Arguments a) {
  return Value_Text(Get_Raster_Elevation(w, Real(a, 0), Real(a, 1)));
}

std::string Call_Get_Raster_Chm_Elevation(Workspace& w, Arguments a) {
  return Value_Text(Get_Raster_Chm_Elevation(w, Real(a, 0), Real(a, 1)));
}

// Height at X, Y; the hint is read and updated.
using TinLookup = double (*)(const Workspace&, double, double, std::int32_t&);

template <TinLookup Lookup>
std::string Call_Tin_Lookup(Workspace& w, Arguments a) {
  std::int32_t hint = To_Int32(static_cast<double>(Whole_Argument(a[2])));
  const double height = Lookup(w, Real(a, 0), Real(a, 1), hint);
  return Value_Texts(height, hint);
}

Campaign Campaign_Argument(const std::string& text) {
  for (const Campaign campaign : {Campaign::Als2004, Campaign::Als2006, Campaign::Als2007}) {
    if (Whole_Argument(text) == static_cast<long>(campaign)) return campaign;
  }
  throw StepEnd{kStepFailed, "there is no campaign " + text};
}

std::string Call_Tile_Name(Workspace&, Arguments a) {
  return Quoted(Tile_Name(a[0], Campaign_Argument(a[1]), Real(a, 2), Real(a, 3)));
}

std::string Call_Format(Workspace&, Arguments a) { return Quoted(Format(Real(a, 0), a[1])); }

struct Routine {
  const char* name;
  std::size_t arguments;
  std::string (*call)(Workspace& w, Arguments arguments);
};

constexpr std::array kRoutines{
    Routine{"Object_To_Pixel", 4, Call_Object_To_Pixel},
    Routine{"Object_To_Image", 4, Call_Object_To_Image},
    Routine{"Image_To_Object_At_Z", 4, Call_Image_To_Object_At_Z},
    Routine{"Image_To_Pixel", 3, Call_Image_To_Pixel},
    Routine{"Pixel_To_Image", 3, Call_Pixel_To_Image},
    Routine{"Get_View_Angles", 1, Call_Get_View_Angles},
    Routine{"Get_Raster_Elevation", 2, Call_Get_Raster_Elevation},
    Routine{"Get_Raster_Chm_Elevation", 2, Call_Get_Raster_Chm_Elevation},
    Routine{"Get_Tin_Elevation", 3, Call_Tin_Lookup<Get_Tin_Elevation>},
    Routine{"Get_Tin_Elevation_Tiled", 3, Call_Tin_Lookup<Get_Tin_Elevation_Tiled>},
    Routine{"Get_Tin_Chm_Elevation", 3, Call_Tin_Lookup<Get_Tin_Chm_Elevation>},
    Routine{"Tile_Name", 4, Call_Tile_Name},
    Routine{"Format", 2, Call_Format},
};

}  // namespace

std::string Call_Routine(Workspace& w, const std::string& name, Arguments arguments) {
  const auto routine =
      std::ranges::find_if(kRoutines, [&](const Routine& row) { return name == row.name; });
  if (routine == kRoutines.end()) throw StepEnd{kStepFailed, "there is no routine " + name};
  if (arguments.size() != routine->arguments) {
    throw StepEnd{kStepFailed, name + " takes " + std::to_string(routine->arguments) +
                                   " arguments, not " + std::to_string(arguments.size())};
  }
  return routine->call(w, arguments);
}

}  // namespace sylvomex
