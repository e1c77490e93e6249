// SPDX-License-Identifier: MIT
// Writes the demo site.
#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <map>
#include <string>

#include "demo/write/demo_site.h"
#include "demo/write/exact_text.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace {

using namespace sylvomex;
using namespace sylvomex::demo;

constexpr const char* kUsage =
    "sylvomex_demo_site --root DIR [--seed N] [--threads N] [--pixel-scale F]\n"
    "  [--density STEMS_PER_HECTARE] [--pine W] [--spruce W] [--birch W]\n"
    "  [--sun-azimuth DEG] [--sun-elevation DEG] [--noise GREY_VALUES]\n"
    "  [--pulse-share F] [--margin METRES]\n"
    "sylvomex_demo_site --version\n";

struct Request {
  SiteSettings settings = {.margin = kWideMargin};
  std::string root;
};

using Setter = std::function<void(Request&, const std::string&)>;

Setter Number(double SiteSettings::*field) {
  return [field](Request& r, const std::string& text) { r.settings.*field = Parse_Double(text); };
}

const std::map<std::string, Setter>& Options() {
  static const std::map<std::string, Setter> options = {
      {"--root", [](Request& r, const std::string& text) { r.root = text; }},
      {"--seed",
       [](Request& r, const std::string& text) {
         r.settings.seed = static_cast<std::uint64_t>(Parse_Int32(text));
       }},
      {"--threads",
       [](Request& r, const std::string& text) { r.settings.threads = Parse_Int32(text); }},
      {"--pixel-scale", Number(&SiteSettings::pixel_scale)},
      {"--density", Number(&SiteSettings::stems_per_hectare)},
      {"--pine", Number(&SiteSettings::pine_share)},
      {"--spruce", Number(&SiteSettings::spruce_share)},
      {"--birch", Number(&SiteSettings::birch_share)},
      {"--sun-azimuth", Number(&SiteSettings::sun_azimuth_deg)},
      {"--sun-elevation", Number(&SiteSettings::sun_elevation_deg)},
      {"--noise", Number(&SiteSettings::noise_sigma)},
      {"--pulse-share", Number(&SiteSettings::pulse_share)},
      {"--margin", Number(&SiteSettings::margin)},
  };
  return options;
}

Request Read_Arguments(int count, char** arguments) {
  Request request;
  for (int i = 1; i < count; i += 2) {
    const auto option = Options().find(arguments[i]);
    if (option == Options().end()) {
      throw RunTimeError(Failure::BadContent, std::string("unknown option ") + arguments[i]);
    }
    if (i + 1 == count) {
      throw RunTimeError(Failure::BadContent, std::string(arguments[i]) + " has no value");
    }
    option->second(request, arguments[i + 1]);
  }
  if (request.root.empty()) throw RunTimeError(Failure::BadContent, "--root is missing");
  return request;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    if (count == 2 && std::string(arguments[1]) == "--version") {
      std::printf("%d\n", kSiteVersion);
      return 0;
    }
    const auto begin = std::chrono::steady_clock::now();
    const Request request = Read_Arguments(count, arguments);
    const Scene scene = Build_Scene(request.settings);
    Write_Demo_Site(scene, Fly_Over(scene), request.root);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    std::printf("%zu trees, site written to %s in %s s\n", scene.trees.size(), request.root.c_str(),
                Fixed_Decimals(taken.count(), 1).c_str());
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "sylvomex_demo_site: %s\n%s", error.what(), kUsage);
    return 1;
  }
}
