// SPDX-License-Identifier: MIT
#include "demo/write/tin_session.h"

#include "demo/write/exact_text.h"
#include "demo/write/heath_session.h"
#include "demo/write/surface_session.h"

namespace sylvomex::demo {
namespace {

constexpr int kSpacing = 2;  // metres

template <class HeightAt>
ComparedSurface Surface_Over(const char* name, const MapArea& area, HeightAt&& height_at) {
  ComparedSurface surface{name, {}};
  const int columns = static_cast<int>(area.east - area.west) / kSpacing;
  const int rows = static_cast<int>(area.north - area.south) / kSpacing;
  for (int row = 0; row <= rows; ++row) {
    for (int col = 0; col <= columns; ++col) {
      const double X = kForestWest + area.west + col * kSpacing;
      const double Y = kForestSouth + area.south + row * kSpacing;
      surface.truth.push_back({X, Y, height_at(X, Y)});
    }
  }
  return surface;
}

}  // namespace

std::vector<ComparedSurface> Compared_Surfaces(const Scene& scene) {
  const auto ground = [&](double X, double Y) { return Ground_Height(scene, X, Y); };
  const auto canopy = [&](double X, double Y) { return Canopy_Height(scene, X, Y); };
  return {Surface_Over("heath_pair", kHeathPairArea, ground),
          Surface_Over("heath_triplet", kHeathTripletArea, ground),
          Surface_Over("canopy_triplet", kCanopyArea, canopy)};
}

std::string True_Point_List(const ComparedSurface& surface) {
  std::string text;
  for (const Point3D& point : surface.truth) {
    text += Fixed_Decimals(point.X, 2) + " " + Fixed_Decimals(point.Y, 2) + " " +
            Fixed_Decimals(point.Z, 3) + "\n";
  }
  return text;
}

std::string True_Point_File(const ComparedSurface& surface) {
  return "c:\\data\\demo\\" + surface.name + "_truth.txt";
}

std::string Tin_Session(const ComparedSurface& surface) {
  const std::string model = "c:\\temp\\" + surface.name;
  return "# A surface from photographs, as triangles, beside what is true.\nfile " + model +
         ".nod\nfile " + model + ".tri\nmenu Add_Tin\nprint TinDem.NodeCount\n" +
         "print TinDem.TriangleCount\nfile " + True_Point_File(surface) +
         "\nmenu Get_Raster_and_TIN_Residuals\n";
}

}  // namespace sylvomex::demo
