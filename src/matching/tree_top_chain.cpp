// SPDX-License-Identifier: MIT
#include "matching/tree_top_chain.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <utility>

#include "closedlib/back_projection.h"
#include "matching/cluster_position.h"
#include "matching/correlation_volume.h"
#include "matching/patch_geometry.h"
#include "matching/template_cutting.h"
#include "matching/template_ellipse.h"
#include "matching/tree_top_steps.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

/// Adds the time of its life to a number of seconds.
class Stopwatch {
 public:
  explicit Stopwatch(double& seconds) : seconds_(seconds) {}
  ~Stopwatch() {
    seconds_ += std::chrono::duration<double>(std::chrono::steady_clock::now() - begun_).count();
  }
  Stopwatch(const Stopwatch&) = delete;
  Stopwatch& operator=(const Stopwatch&) = delete;

 private:
  double& seconds_;
  std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
};

/// What a search has at hand while it runs.
struct Search {
  const TreeTopOrder& order;
  std::span<const ChainImage> images;
  int threads;
  std::vector<int> used;  // indices of images
  std::vector<ImageTemplate> templates{};
  std::vector<ImageRecord> patches{};  // of the used images
  CorrelationVolume volume{};
  TreeTopSearch found{};
};

std::string Name_Of(const ChainImage& image) { return "image " + Plain_Text(image.record.ImageId); }

void Note_Borders(const CutTemplate& cut, const ChainImage& image, TreeTopSearch& found) {
  if (cut.cols_defined && cut.rows_defined) return;
  found.notes.push_back(Name_Of(image) + ": the crown is wider than the window of its template");
}

// std::nullopt, with a note, for an image that does not show the whole ellipse. An ellipse without
// width is an error in the numbers, not in the image.
std::optional<ImageTemplate> Cut_Or_Note(const ChainImage& image, const TreeTopOrder& order,
                                         TreeTopSearch& found) {
  try {
    const TemplateRecord ellipse =
        Ellipse_Of_Crown(image.camera, order.model_tree, order.numbers.crown, {});
    CutTemplate cut = Cut_Template(image.record, image.raw, ellipse);
    Note_Borders(cut, image, found);
    return std::move(cut.pattern);
  } catch (const RunTimeError& error) {
    if (error.Kind() == Failure::DivisionByZero) throw;
    found.notes.push_back(Name_Of(image) + " is left out. " + error.what());
    return std::nullopt;
  }
}

std::string All_Of(const std::vector<std::string>& notes) {
  std::string text;
  for (const std::string& note : notes) text += "; " + note;
  return text;
}

void Cut_Templates(Search& search) {
  const Stopwatch watch(search.found.seconds.read);
  for (std::size_t i = 0; i < search.images.size(); ++i) {
    auto pattern = Cut_Or_Note(search.images[i], search.order, search.found);
    if (!pattern) continue;
    search.used.push_back(static_cast<int>(i));
    search.templates.push_back(std::move(*pattern));
  }
  search.found.images = search.used.size();
  if (search.used.size() >= 2) return;
  throw RunTimeError(Failure::BadContent,
                     "fewer than two images show the model tree" + All_Of(search.found.notes));
}

RawWindow Choose_Window(const ChainImage& image, const TreeTopOrder& order, TreeTopSearch& found) {
  const auto note = [&](std::string_view text) {
    found.notes.push_back(Name_Of(image) + ": " + std::string(text));
  };
  const double ground_side =
      Ground_Pixel_Side(image.record, Pixel_Side_Micrometres(image.record, note), order.plot.Z);
  const double size = Patch_Size_Of(order.numbers.r);
  const auto side = Patch_Side(size, ground_side);
  if (!side) {
    throw RunTimeError(Failure::SubscriptOutOfRange, Name_Of(image) + ": a patch of " +
                                                         Plain_Text(size) +
                                                         " m has more than 10001 pixels a side");
  }
  const PatchPlace place = Place_Patch(image.record, image.camera, order.plot, *side);
  if (!place.fits) note("the patch is larger than the raw file");
  CorrelationVolume::Require_Room(place.window.Width(), place.window.Height());
  return place.window;
}

std::vector<std::uint8_t> Read_Patch(const ChainImage& image, const RawWindow& window,
                                     ChainSeconds& seconds) {
  const Stopwatch watch(seconds.read);
  return Read_Raw_Window(image.record, image.raw, window, ColourRule::Mean);
}

void Correlate_Images(Search& search) {
  for (std::size_t i = 0; i < search.used.size(); ++i) {
    const int place = search.used[i];
    const ChainImage& image = search.images[static_cast<std::size_t>(place)];
    const RawWindow window = Choose_Window(image, search.order, search.found);
    const std::vector<std::uint8_t> patch = Read_Patch(image, window, search.found.seconds);
    const Stopwatch watch(search.found.seconds.compute);
    search.volume.Store(place, window.Width(), window.Height(),
                        Correlate_Patch(search.templates[i], window, patch, search.threads));
    search.patches.push_back(Correlation_Record(image.record, window, ""));
  }
}

MeshSettings Settings_Of(const TreeTopOrder& order) {
  const TreeTopNumbers& numbers = order.numbers;
  MeshSettings settings;
  settings.plot_X = order.plot.X;
  settings.plot_Y = order.plot.Y;
  settings.side_X = settings.side_Y = Mesh_Side_Of(Patch_Size_Of(numbers.r));
  settings.dx = settings.dy = settings.dz = numbers.Mesh;
  settings.top_factor = numbers.fHDOM;
  settings.low_factor = numbers.Hlow;
  return settings;
}

std::vector<float> Score_Mesh(Search& search, const MeshTable& mesh) {
  std::vector<std::vector<float>> correlations;
  for (std::size_t i = 0; i < search.used.size(); ++i) {
    const int place = search.used[i];
    const ChainImage& image = search.images[static_cast<std::size_t>(place)];
    correlations.push_back(Back_Project(place, image.record, search.patches[i], mesh,
                                        search.volume.All(), search.threads));
  }
  return Score_Points(mesh.size(), correlations, search.threads);
}

void Take_Clusters(Search& search, const MeshTable& mesh, std::span<const float> scores) {
  std::vector<double> weights(kMostClusters + 1);
  std::vector<Point3D> sums(kMostClusters + 1);
  std::vector<std::int32_t> members(kMostClusters + 2);
  const std::vector<std::int32_t> index = Sort_Scores(scores, search.threads);
  const TreeTopNumbers& numbers = search.order.numbers;
  const int count =
      Group_Points({static_cast<std::int32_t>(scores.size() - 1), index, scores, mesh}, numbers.XYt,
                   numbers.Rl, {weights, sums, members});
  for (int i = 1; i <= count; ++i) {
    const auto k = static_cast<std::size_t>(i);
    search.found.tops.push_back({Cluster_Position(sums[k], weights[k], i), weights[k], members[k]});
  }
}

void Search_Mesh(Search& search, const HeightLookup& ground, const HeightLookup& canopy) {
  const Stopwatch watch(search.found.seconds.compute);
  const Point3D& tree = search.order.model_tree;
  search.found.model_tree_height = tree.Z - ground(tree.X, tree.Y);
  const MeshTable mesh = Build_Mesh(Settings_Of(search.order), ground, canopy);
  search.found.mesh_points = mesh.size();
  Take_Clusters(search, mesh, Score_Mesh(search, mesh));
}

}  // namespace

TreeTopSearch Find_Tree_Tops(const TreeTopOrder& order, std::span<const ChainImage> images,
                             const HeightLookup& ground, const HeightLookup& canopy, int threads) {
  if (images.size() > kVolumeImages) {
    throw RunTimeError(Failure::SubscriptOutOfRange,
                       std::to_string(images.size()) + " images, a search takes at most nine");
  }
  Search search{order, images, threads, {}};
  Cut_Templates(search);
  Correlate_Images(search);
  Search_Mesh(search, ground, canopy);
  return std::move(search.found);
}

}  // namespace sylvomex
