// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdio>

#include "interchange/convention_finder.h"
#include "interchange/csv_table.h"
#include "interchange/import_transaction.h"
#include "interchange/stated_convention.h"
#include "site_program/subcommands.h"

namespace sylvomex {
namespace {

constexpr std::size_t kMostListed = 60;

NamedText Text_Of(const std::filesystem::path& file) {
  return {Read_Text_File(file.string()), file.string()};
}

std::string Pixels(double rms) {
  char text[64];
  std::snprintf(text, sizeof text, "%.3f", rms);
  return std::isfinite(rms) ? text : "behind the camera";
}

void Tell_Fits(const ConventionSearch& search, const OrientationTable& table, SiteOutput& output) {
  const RotationGiven rotation = table.photos.front().rotation;
  output.object["conventions"] = nlohmann::ordered_json::array();
  for (std::size_t i = 0; i < search.fits.size() && i < kMostListed; ++i) {
    const ConventionFit& fit = search.fits[i];
    const std::string name = Convention_Name(fit.convention, rotation);
    output.Say("group " + std::to_string(fit.group + 1) + "  " + Pixels(fit.rms) + " px  " + name);
    output.object["conventions"].push_back(
        {{"name", name}, {"rms_px", fit.rms}, {"group", fit.group + 1}});
  }
  const std::string stated = Convention_Name(table.stated, rotation);
  output.Say("as stated: " + Pixels(search.stated_rms) + " px  " + stated);
  output.object["stated"] = stated;
  if (std::isfinite(search.stated_rms)) output.object["stated_rms_px"] = search.stated_rms;
  output.object["observations"] = search.observations;
  output.object["chosen"] = nullptr;
  if (search.chosen) output.object["chosen"] = Convention_Name(*search.chosen, rotation);
}

const char* Verdict_Text(FinderVerdict verdict) {
  switch (verdict) {
    case FinderVerdict::FitsAsStated:
      return "the table fits as its format states";
    case FinderVerdict::ClearlyAnother:
      return "another convention fits clearly best and is taken";
    case FinderVerdict::NoneFits:
      return "no convention fits the observations";
    case FinderVerdict::Undecided:
      break;
  }
  return "several conventions fit, none three times better than the next";
}

}  // namespace

int Run_Check_Orientation(const CheckArguments& arguments, SiteOutput& output) {
  ImportTransaction change(arguments.site);
  OrientationTable table = Read_Orientation_Table(arguments.table.string(),
                                                  arguments.cameras.string(), arguments.format);
  Place_In_System(table, change.TheSite().crs);
  const auto observations = Parse_Observations(Text_Of(arguments.observations), table);
  const auto points = Parse_Known_Points(Text_Of(arguments.points));
  const ConventionSearch search = Find_Convention(table, observations, points);
  Tell_Fits(search, table, output);
  const std::string verdict = arguments.table.string() + ": " + Verdict_Text(search.verdict);
  output.object["verdict"] = Verdict_Text(search.verdict);
  if (!search.chosen) {
    output.Warn(verdict);
    return kRefused;
  }
  Keep_Convention(change.TheSite(), table, *search.chosen);
  change.Commit();
  output.Say(verdict);
  return kDone;
}

}  // namespace sylvomex
