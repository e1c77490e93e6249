// SPDX-License-Identifier: MIT
// Plays the crown sessions of the demo site and prints how well they found the crowns.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "demo/chain/crown_chain.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace {

using namespace sylvomex;
using namespace sylvomex::demo;

bool Play(const std::filesystem::path& site, const std::string& session, std::ostream& transcript,
          CrownSessionResult& result) {
  const std::filesystem::path script = site / "sessions" / session;
  std::ifstream file(script);
  if (!file) throw RunTimeError(Failure::FileNotFound, script.string(), script);
  Play_Crown_Session(site, file, script.string(), transcript, std::cerr, result);
  return result.done;
}

void Print_Hits(const std::filesystem::path& site, double seconds) {
  const std::string name = (site / "c/data/exotics/Output.txt").string();
  const auto lines = std::ranges::count(Read_Whole_File(FilePath{name, name}), '\n');
  std::printf("pulses that hit the true crowns: %td in %.2f s\n", lines, seconds);
}

// The site has the start settings: its scene is made anew for the truth.
int Play_Sessions(const std::filesystem::path& site, const std::string& transcript_file) {
  std::ofstream transcript(transcript_file);
  CrownSessionResult crowns, clicks;
  if (!Play(site, "crowns.txt", transcript, crowns)) return 1;
  if (!Play(site, "multi_size.txt", transcript, clicks)) return 1;
  const Scene scene = Build_Scene({});
  for (const CrownBoxFit& box : crowns.boxes) std::fputs(Box_Text(scene, box).c_str(), stdout);
  std::fputs(Local_Text(scene, crowns.local).c_str(), stdout);
  Print_Hits(site, crowns.list_seconds);
  std::fputs(Click_Text(scene, clicks.clicks).c_str(), stdout);
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    if (count == 3) return Play_Sessions(arguments[1], arguments[2]);
    throw RunTimeError(Failure::BadContent, "a site and a file for the transcript are expected");
  } catch (const std::exception& error) {
    std::fprintf(stderr,
                 "sylvomex_demo_crowns: %s\n"
                 "usage: sylvomex_demo_crowns SITE TRANSCRIPT\n",
                 error.what());
    return 1;
  }
}
