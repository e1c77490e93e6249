// SPDX-License-Identifier: MIT
// Folders are layers: a file includes files of its own layer or of lower ones, and only the
// desktop knows Qt.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

/// One #include line. Folders count from the source folder: "commands/solver".
struct Include {
  std::string file;
  std::string folder;
  std::string included;
  std::string included_folder;  // empty for a file outside this project
};

/// The layer of a folder; std::nullopt for a folder without one. The pure subsystems share a few
/// layers of their own: images below the solver below the rest.
std::optional<int> Layer(const std::string& folder) {
  static const std::map<std::string, int> kLayers = {
      {"platform", 0},        {"closedlib", 1}, {"imageblock", 2},    {"solver", 3},
      {"heightmodels", 4},    {"lidar", 4},     {"matching", 4},      {"surfaces", 4},
      {"evaluation", 4},      {"crowns", 4},    {"products", 4},      {"stereo", 4},
      {"overlays", 4},        {"mapview", 4},   {"state", 5},         {"panes", 6},
      {"services", 7},        {"commands", 8},  {"workspace", 9},     {"history", 10},
      {"interchange", 10},    {"session", 11},  {"site_program", 11}, {"region", 11},
      {"region_program", 12}, {"desktop", 12},  {"desktop_aids", 13}, {"desktop_site", 14},
      {"programs", 15}};
  const std::string floor = folder.starts_with("commands/")   ? "commands"
                            : folder.starts_with("programs/") ? "programs"
                                                              : folder;
  const auto layer = kLayers.find(floor);
  if (layer == kLayers.end()) return std::nullopt;
  return layer->second;
}

/// Why an include is forbidden, or the empty text.
std::string Complaint(const Include& include) {
  const std::string line = include.file + " includes " + include.included;
  if (include.included.starts_with("<Q")) {
    const bool may_know_qt = include.folder == "desktop" || include.folder == "desktop_aids" ||
                             include.folder == "desktop_site" ||
                             include.folder == "programs/workstation";
    return may_know_qt ? "" : line + ": only the desktop knows Qt";
  }
  if (include.included_folder.empty()) return "";
  const std::optional<int> from = Layer(include.folder);
  const std::optional<int> to = Layer(include.included_folder);
  if (!from || !to) return line + ": a folder without a place among the layers";
  return *to > *from ? line + ": upward" : "";
}

using FolderGraph = std::map<std::string, std::set<std::string>>;

FolderGraph Folder_Graph(const std::vector<Include>& includes) {
  FolderGraph graph;
  for (const Include& include : includes) {
    if (!include.included_folder.empty() && include.folder != include.included_folder) {
      graph[include.folder].insert(include.included_folder);
    }
  }
  return graph;
}

bool Reaches(const FolderGraph& graph, const std::string& from, const std::string& target,
             std::set<std::string>& seen) {
  const auto entry = graph.find(from);
  if (entry == graph.end()) return false;
  for (const std::string& next : entry->second) {
    if (next == target) return true;
    if (seen.insert(next).second && Reaches(graph, next, target, seen)) return true;
  }
  return false;
}

/// Folders that include themselves through others.
std::set<std::string> Folders_On_Circles(const std::vector<Include>& includes) {
  const FolderGraph graph = Folder_Graph(includes);
  std::set<std::string> circles;
  for (const auto& entry : graph) {
    std::set<std::string> seen;
    if (Reaches(graph, entry.first, entry.first, seen)) circles.insert(entry.first);
  }
  return circles;
}

/// The target of a source line's include as <...> or as a bare name, if it is one.
std::optional<std::string> Included_By_Line(std::string line) {
  std::erase_if(line, [](char c) { return c == ' ' || c == '\t' || c == '\r'; });
  constexpr std::string_view kWord = "#include";
  if (!line.starts_with(kWord) || line.size() <= kWord.size()) return std::nullopt;
  const std::string rest = line.substr(kWord.size());
  if (rest[0] == '<') return rest.substr(0, rest.find('>') + 1);
  if (rest[0] != '"') return std::nullopt;
  return rest.substr(1, rest.find('"', 1) - 1);
}

std::vector<Include> Includes_Of_File(const fs::path& source, const fs::path& file) {
  std::vector<Include> includes;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    const std::optional<std::string> included = Included_By_Line(line);
    if (!included) continue;
    const bool is_ours = (*included)[0] != '<' && fs::exists(source / *included);
    includes.push_back({fs::relative(file, source).string(),
                        fs::relative(file.parent_path(), source).string(), *included,
                        is_ours ? fs::path(*included).parent_path().string() : ""});
  }
  return includes;
}

std::vector<Include> All_Includes(const fs::path& source) {
  std::vector<Include> includes;
  for (const auto& entry : fs::recursive_directory_iterator(source)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") continue;
    const std::vector<Include> more = Includes_Of_File(source, entry.path());
    includes.insert(includes.end(), more.begin(), more.end());
  }
  return includes;
}

TEST(Includes, PointDownOnlyAndLeaveQtToTheDesktop) {
  const std::vector<Include> includes = All_Includes(SYLVOMEX_SOURCE_DIR);
  EXPECT_GT(includes.size(), 20u);
  for (const Include& include : includes) EXPECT_EQ(Complaint(include), "");
}

TEST(Includes, FormNoCycleOfFolders) {
  EXPECT_EQ(Folders_On_Circles(All_Includes(SYLVOMEX_SOURCE_DIR)), std::set<std::string>{});
}

TEST(IncludeRules, AnUpwardIncludeIsFound) {
  EXPECT_NE(Complaint({"solver/a.h", "solver", "state/b.h", "state"}), "");
  EXPECT_NE(Complaint({"imageblock/a.h", "imageblock", "solver/b.h", "solver"}), "");
  EXPECT_NE(Complaint({"panes/a.h", "panes", "commands/solver/b.h", "commands/solver"}), "");
  EXPECT_NE(Complaint({"panes/a.h", "panes", "services/b.h", "services"}), "");
  EXPECT_NE(Complaint({"commands/crowns/a.h", "commands/crowns", "workspace/b.h", "workspace"}),
            "");
  EXPECT_NE(Complaint({"session/a.h", "session", "desktop/b.h", "desktop"}), "");
  EXPECT_EQ(Complaint({"commands/solver/a.h", "commands/solver", "panes/b.h", "panes"}), "");
  EXPECT_EQ(Complaint({"session/a.h", "session", "workspace/b.h", "workspace"}), "");
}

TEST(IncludeRules, AFolderOutsideTheLayersIsFound) {
  EXPECT_NE(Complaint({"extras/a.h", "extras", "platform/b.h", "platform"}), "");
}

TEST(IncludeRules, QtBelowTheDesktopIsFound) {
  EXPECT_NE(Complaint({"session/a.cpp", "session", "<QImage>", ""}), "");
  EXPECT_EQ(Complaint({"desktop/a.cpp", "desktop", "<QImage>", ""}), "");
  EXPECT_NE(Complaint({"programs/site/a.cpp", "programs/site", "<QImage>", ""}), "");
}

TEST(IncludeRules, ACycleOfCommandFoldersIsFound) {
  const Include solver{"commands/solver/a.h", "commands/solver", "commands/crowns/b.h",
                       "commands/crowns"};
  const Include crowns{"commands/crowns/b.h", "commands/crowns", "commands/overlays/c.h",
                       "commands/overlays"};
  const Include overlays{"commands/overlays/c.h", "commands/overlays", "commands/solver/a.h",
                         "commands/solver"};
  EXPECT_TRUE(Folders_On_Circles({solver, crowns}).empty());
  EXPECT_EQ(Folders_On_Circles({solver, crowns, overlays}).size(), 3u);
}

TEST(IncludeRules, IncludeLinesAreReadInEverySpelling) {
  EXPECT_EQ(Included_By_Line("#include \"solver/a.h\""), "solver/a.h");
  EXPECT_EQ(Included_By_Line("  #  include <QImage>  // why"), "<QImage>");
  EXPECT_EQ(Included_By_Line("// #include \"x.h\""), std::nullopt);
  EXPECT_EQ(Included_By_Line("#include"), std::nullopt);
}

}  // namespace
}  // namespace sylvomex
