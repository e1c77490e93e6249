// SPDX-License-Identifier: MIT
#include "session/left_outputs.h"

namespace sylvomex {

void Object_To_Image(const Camera& camera, const Point3D& point, FilmPosition& film) {
  if (const auto found = Object_To_Image(camera, point)) {
    film = *found;
  } else {
    film.x = film.y == 0 ? -1 : 0;
  }
}

void Image_To_Object_At_Z(const Camera& camera, double Z, const FilmPosition& film,
                          Point3D& ground) {
  if (const auto found = Image_To_Object_At_Z(camera, Z, film)) ground = *found;
}

void Get_View_Angles(const Workspace& w, int image, ViewAngles& angles) {
  if (const auto found = Get_View_Angles(w, image)) angles = *found;
}

}  // namespace sylvomex
