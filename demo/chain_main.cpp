// SPDX-License-Identifier: MIT
// Plays the matching session of the demo site and prints the cost of its commands and how well they
// found the tree tops.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>

#include "demo/chain/match_chain.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace {

using namespace sylvomex;
using namespace sylvomex::demo;

struct Request {
  std::string root;
  std::string transcript;
};

Request Read_Arguments(int count, char** arguments) {
  Request request;
  for (int i = 1; i < count; i += 2) {
    const std::string option = arguments[i];
    if (option != "--root" && option != "--transcript") {
      throw RunTimeError(Failure::BadContent, "unknown option " + option);
    }
    if (i + 1 == count) throw RunTimeError(Failure::BadContent, option + " has no value");
    (option == "--root" ? request.root : request.transcript) = arguments[i + 1];
  }
  if (request.root.empty()) throw RunTimeError(Failure::BadContent, "--root is missing");
  return request;
}

void Write_Transcript(const std::string& file, const std::string& transcript) {
  if (!file.empty()) Write_Whole_File(FilePath{file, file}, transcript);
}

void Print_Tables(const ChainResult& result, const std::string& root,
                  const std::string& transcript) {
  const DetectionTable detection =
      Compare_Clusters(Clusters_Of_Site(root), Trees_Of_Site(root), Read_Searched_Plot(transcript));
  std::cout << Table_Text(result.runs) << '\n' << Table_Text(detection);
}

int Play_Chain(int count, char** arguments) {
  const Request request = Read_Arguments(count, arguments);
  std::ostringstream transcript;
  const ChainResult result = Play_Match_Session(request.root, transcript, std::cerr);
  Write_Transcript(request.transcript, transcript.str());
  if (!result.done) return 1;
  Print_Tables(result, request.root, transcript.str());
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    return Play_Chain(count, arguments);
  } catch (const std::exception& error) {
    std::fprintf(stderr,
                 "sylvomex_demo_chain: %s\n"
                 "usage: sylvomex_demo_chain --root SITE [--transcript FILE]\n",
                 error.what());
    return 1;
  }
}
