// SPDX-License-Identifier: MIT
#include "demo/write/truth.h"

#include "demo/render/ray_caster.h"
#include "demo/scene/lidar_campaign.h"
#include "demo/write/exact_text.h"

namespace sylvomex::demo {
namespace {

TopOnPhoto Top_On_Photo(const Scene& scene, const Photograph& photo, std::size_t index) {
  const Tree& tree = scene.trees[index];
  const auto [col, row] = Object_To_Pixel(photo.camera, {tree.X, tree.Y, tree.TopZ});
  const bool visible =
      Is_On_Raw_File(photo.image, col, row) &&
      Is_Apex_Visible(scene, index, photo.image.X0, photo.image.Y0, photo.image.Z0);
  return {col, row, visible};
}

std::string Tree_Fields(const Tree& tree) {
  std::string fields = std::to_string(tree.id) + "," + std::string(Species_Name(tree.species));
  for (const double value :
       {tree.X, tree.Y, tree.GroundZ, tree.TopZ, tree.Height(), tree.crown_radius}) {
    fields += ',';
    fields += Fixed_Decimals(value, 4);
  }
  return fields;
}

}  // namespace

std::vector<TopOnPhoto> Tops_On_Photos(const Scene& scene, const std::vector<Photograph>& photos,
                                       std::size_t tree) {
  std::vector<TopOnPhoto> tops;
  tops.reserve(photos.size());
  for (const Photograph& photo : photos) tops.push_back(Top_On_Photo(scene, photo, tree));
  return tops;
}

std::string Truth_Table(const Scene& scene, const std::vector<Photograph>& photos) {
  std::string table = "id,species,X,Y,ground_Z,top_Z,height,crown_radius";
  for (const Photograph& photo : photos) {
    const std::string id = std::to_string(photo.image.ImageId);
    table += ",col_" + id + ",row_" + id + ",visible_" + id;
  }
  table += "\n";
  for (std::size_t i = 0; i < scene.trees.size(); ++i) {
    table += Tree_Fields(scene.trees[i]);
    for (const TopOnPhoto& top : Tops_On_Photos(scene, photos, i)) {
      table += ',';
      table += Fixed_Decimals(top.col, 4);
      table += ',';
      table += Fixed_Decimals(top.row, 4);
      table += top.visible ? ",1" : ",0";
    }
    table += "\n";
  }
  return table;
}

std::string Scene_Summary(const Scene& scene, const std::vector<Photograph>& photos) {
  const SiteSettings& settings = scene.settings;
  std::string text = "seed " + std::to_string(settings.seed) + "\n";
  text += "trees " + std::to_string(scene.trees.size()) + "\n";
  text += "forest X " + Exact_Text(kForestWest) + " to " + Exact_Text(kForestWest + kForestSide) +
          ", Y " + Exact_Text(kForestSouth) + " to " + Exact_Text(kForestSouth + kForestSide) +
          "\n";
  text += "sun azimuth " + Exact_Text(settings.sun_azimuth_deg) + " elevation " +
          Exact_Text(settings.sun_elevation_deg) + " degrees\n";
  text += "pixel noise " + Exact_Text(settings.noise_sigma) + " grey values\n";
  for (const Photograph& photo : photos) {
    text += "image " + std::to_string(photo.image.ImageId) + " " + photo.header_name +
            (photo.image.ColorFlag == 1 ? " colour " : " grey ") +
            Exact_Text(photo.image.SubWidth) + " x " + Exact_Text(photo.image.SubHeight) + "\n";
  }
  text += "ground model c:\\data\\demo\\dem.hdr, elevations of the ground\n";
  text += "canopy model c:\\data\\demo\\chm.hdr, elevations of the canopy surface\n";
  text += "triangulations c:\\data\\demo\\ground.nod and .tri, canopy.nod and .tri\n";
  for (const LidarCampaign& campaign : Lidar_Campaigns()) {
    text += "lidar " + std::to_string(campaign.year) + ", " +
            Exact_Text(campaign.density * settings.pulse_share) + " pulses a square metre, " +
            Exact_Text(campaign.inset) + " m inside the forest\n";
  }
  return text;
}

}  // namespace sylvomex::demo
