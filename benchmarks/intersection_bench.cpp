// SPDX-License-Identifier: MIT
// One space intersection as run by the operator's command: five images, film coordinates
// parsed from their text boxes, three passes. Goal: below 10 us. The peer solves the same
// passes with Eigen's dense least squares from observations already given as numbers.
#include <benchmark/benchmark.h>

#ifdef SYLVOMEX_BENCH_EIGEN
#include <Eigen/Dense>
#endif
#include <random>
#include <string>
#include <vector>

#include "platform/number_text.h"
#include "solver/space_intersection.h"

namespace sylvomex {
namespace {

constexpr Point3D kTruth = {2515103.27, 6859941.6, 172.84};
constexpr Point3D kStart = {2515095, 6859950, 160};

/// A strip of photographs with observations of kTruth, each with a few micrometres of noise.
class Strip {
 public:
  explicit Strip(int count) {
    std::mt19937 random(32);
    std::normal_distribution<double> noise(0, 5e-6);
    for (int k = 0; k < count; ++k) {
      ImageRecord image;
      image.PrincipalDistance = 0.15;
      image.X0 = 2515000 + 300.0 * (k - count / 2);
      image.Y0 = 6860000 + 10.0 * k;
      image.Z0 = 1800 + k;
      const Camera camera = Make_Camera(
          image, Build_Rotation_Matrix(0.01 * k - 0.02, 0.015 - 0.01 * k, 0.3 + 0.02 * k));
      const FilmPosition film = Film_Of_Point(camera, kTruth);
      texts.push_back(Plain_Text(film.x + noise(random)));
      texts.push_back(Plain_Text(film.y + noise(random)));
      observations.push_back({camera, {}});
    }
    Parse();
  }

  void Parse() {
    for (std::size_t k = 0; k < observations.size(); ++k) {
      observations[k].film.x = Parse_Double(texts[2 * k]);
      observations[k].film.y = Parse_Double(texts[2 * k + 1]);
    }
  }

  std::vector<FilmObservation> observations;
  std::vector<std::string> texts;
};

void Intersection(benchmark::State& state) {
  Strip strip(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto read_texts = [&strip]() -> std::span<const FilmObservation> {
      strip.Parse();
      return strip.observations;
    };
    benchmark::DoNotOptimize(Intersect_Rays(read_texts, kStart, {}));
  }
  state.counters["passes"] = Intersect_Rays(strip.observations, kStart, {}).passes;
}
BENCHMARK(Intersection)->Arg(2)->Arg(5)->Arg(9);

void Intersection_Without_Texts(benchmark::State& state) {
  const Strip strip(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(Intersect_Rays(strip.observations, kStart, {}));
  }
}
BENCHMARK(Intersection_Without_Texts)->Arg(5);

#ifdef SYLVOMEX_BENCH_EIGEN
void Eigen_Least_Squares(benchmark::State& state) {
  const Strip strip(static_cast<int>(state.range(0)));
  const auto rows = static_cast<Eigen::Index>(2 * strip.observations.size());
  Eigen::MatrixXd design(rows, 3);
  Eigen::VectorXd misclosures(rows);
  for (auto _ : state) {
    Eigen::Vector3d point(kStart.X, kStart.Y, kStart.Z);
    for (int pass = 0; pass < 3; ++pass) {
      for (Eigen::Index row = 0; const FilmObservation& o : strip.observations) {
        const CollinearityPartials p =
            Collinearity_Partials(o.camera, {point(0), point(1), point(2)}, o.film);
        design.row(row) << p.ax1, p.ax2, p.ax3;
        misclosures(row++) = p.lx;
        design.row(row) << p.ay1, p.ay2, p.ay3;
        misclosures(row++) = p.ly;
      }
      point += design.colPivHouseholderQr().solve(misclosures);
    }
    benchmark::DoNotOptimize(point);
  }
}
BENCHMARK(Eigen_Least_Squares)->Arg(5);
#endif

}  // namespace
}  // namespace sylvomex
