// SPDX-License-Identifier: MIT
#include "demo/write/heath_session.h"

#include "demo/scene/surface_photographs.h"
#include "demo/write/session_steps.h"

namespace sylvomex::demo {
namespace {

constexpr MapArea kHeath{kHeathWest, kHeathSouth, kHeathEast, kHeathNorth};
constexpr double kPlaceSpacing = 10;  // metres
constexpr const char* kHeathGround = "c:\\data\\demo\\heath.hdr";

std::string Load_Heath(const std::vector<Photograph>& photos) {
  return Add_Image_Steps(photos) + Add_Ground_Steps(kHeathGround);
}

std::string Triplet_Places(const Scene& scene, const std::vector<Photograph>& photos,
                           const std::string& kind) {
  return Place_Steps(kind, 1, "Get_surface_single_point_triplet",
                     Ground_Places(scene, photos, 1, kHeath, kPlaceSpacing));
}

Point3D Middle_Of(const Scene& scene, const MapArea& area) {
  return Ground_Point(scene, (area.west + area.east) / 2, (area.south + area.north) / 2);
}

}  // namespace

std::string Heath_Points_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const std::vector<Photograph> outer_fixed = Outer_Second(photos);
  return "# Heights of single places on open ground by vertical line search.\n" +
         Load_Heath(photos) +
         Place_Steps("pair, heath", 0, "Get_Surface_Height",
                     Ground_Places(scene, photos, 0, kHeath, kPlaceSpacing)) +
         Window_Picture("Form1", "surface_pair_point") +
         Triplet_Places(scene, photos, "triplet, heath") +
         Window_Picture("Form1", "surface_triplet_point") + Remove_Steps() +
         Add_Image_Steps(outer_fixed) +
         Triplet_Places(scene, outer_fixed, "triplet, outer fixed, heath");
}

std::string Heath_Pair_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const Point3D middle = Middle_Of(scene, kHeathPairArea);
  // The grid begins at the start point, north-west of the polygon.
  const Point3D start = Ground_Point(scene, kHeathPairArea.west - 4, kHeathPairArea.north + 4);
  return "# The heath by a polygon of pair searches.\n" + Load_Heath(photos) +
         Centre_Steps(Rough(middle)) +
         Polygon_Steps(scene, photos, {0, "Zoom1_4", 4}, middle, kHeathPairArea) +
         Box_Steps(photos, 0, start) + "menu Get_Surface_Height_InCdll\nprint Label10\n" +
         Window_Picture("Form1", "surface_pair");
}

std::string Heath_Triplet_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const Point3D middle = Middle_Of(scene, kHeathTripletArea);
  return "# A part of the heath by a polygon of triplet searches.\n" + Load_Heath(photos) +
         Centre_Steps(Rough(middle)) + Box_Steps(photos, 1, middle) +
         "menu Get_surface_single_point_triplet\n" +
         Polygon_Steps(scene, photos, {1, "Zoom_1_2", 2}, middle, kHeathTripletArea) +
         Box_Steps(photos, 1, middle) + "menu Triplet_Matching\nprint Label10\n" +
         Window_Picture("Form1", "surface_triplet");
}

}  // namespace sylvomex::demo
