// SPDX-License-Identifier: MIT
#include "interchange/convention_finder.h"

#include <tbb/parallel_for.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>

#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "interchange/point_rays.h"

namespace sylvomex {
namespace {

constexpr double kLikePixels = 1;     // projections of a group's conventions differ by less
constexpr double kClearly = 3;        // times better than the next group
constexpr double kFitsShare = 0.005;  // of the longer side
constexpr double kFitsPixels = 3;
constexpr std::size_t kMostGroups = 8;  // that are listed
constexpr double kBehind = std::numeric_limits<double>::infinity();

/// Observations of one point.
struct PointTrack {
  std::optional<Point3D> known;
  std::vector<PointObservation> seen;
};

std::vector<PointTrack> Tracks_Of(const std::vector<PointObservation>& observations,
                                  const std::vector<KnownPoint>& points) {
  std::map<std::string, PointTrack> tracks;
  for (const KnownPoint& point : points) tracks[point.name].known = point.position;
  for (const PointObservation& observation : observations) {
    tracks[observation.point].seen.push_back(observation);
  }
  std::vector<PointTrack> counting;
  for (auto& [name, track] : tracks) {
    if (!track.seen.empty() && (track.known || track.seen.size() > 1)) {
      counting.push_back(std::move(track));
    }
  }
  return counting;
}

/// What a convention makes of the observations: projections in the observations' own counting, in
/// the order of the tracks, and their RMS.
struct Projections {
  double rms = kBehind;
  std::vector<PhotoPixel> pixels;
};

class Trial {
 public:
  Trial(const OrientationTable& table, const std::vector<PointTrack>& tracks)
      : table_(table), tracks_(tracks) {
    for (const PointTrack& track : tracks) {
      for (const PointObservation& seen : track.seen) used_.insert(seen.photo);
    }
  }

  [[nodiscard]] Projections Under(const Convention& convention) const {
    std::map<std::size_t, OrientedPhoto> photos;
    for (const std::size_t photo : used_) {
      photos.emplace(photo, Understood(table_.photos[photo], convention));
    }
    const double middle = convention.pixel_centres ? 0.5 : 0;
    Projections projections;
    double sum = 0;
    for (const PointTrack& track : tracks_) {
      const std::optional<Point3D> point = Place(track, photos, middle);
      if (!point) return {};
      for (const PointObservation& seen : track.seen) {
        const auto pixel = Real_Pixel(photos.at(seen.photo), *point);
        if (!pixel) return {};
        projections.pixels.push_back({pixel->col - middle, pixel->row - middle});
        sum += std::pow(projections.pixels.back().col - seen.col, 2) +
               std::pow(projections.pixels.back().row - seen.row, 2);
      }
    }
    const double rms = std::sqrt(sum / static_cast<double>(projections.pixels.size()));
    if (std::isfinite(rms)) projections.rms = rms;
    return projections;
  }

 private:
  static std::optional<Point3D> Place(const PointTrack& track,
                                      const std::map<std::size_t, OrientedPhoto>& photos,
                                      double middle) {
    if (track.known) return track.known;
    std::vector<PhotoRay> rays;
    for (const PointObservation& seen : track.seen) {
      rays.push_back({&photos.at(seen.photo), {seen.col + middle, seen.row + middle}});
    }
    return Nearest_Point(rays);
  }

  const OrientationTable& table_;
  const std::vector<PointTrack>& tracks_;
  std::set<std::size_t> used_;
};

double Difference(const Projections& a, const Projections& b) {
  double sum = 0;
  for (std::size_t i = 0; i < a.pixels.size(); ++i) {
    sum += std::pow(a.pixels[i].col - b.pixels[i].col, 2) +
           std::pow(a.pixels[i].row - b.pixels[i].row, 2);
  }
  return std::sqrt(sum / static_cast<double>(a.pixels.size()));
}

/// The conventions with every point in front of its cameras, best first; of equal ones the nearer
/// to the stated one.
std::vector<ConventionFit> Sorted_Fits(const Trial& trial,
                                       const std::vector<Convention>& conventions) {
  std::vector<double> rms(conventions.size());
  tbb::parallel_for(std::size_t{0}, conventions.size(),
                    [&](std::size_t i) { rms[i] = trial.Under(conventions[i]).rms; });
  std::vector<ConventionFit> fits;
  for (std::size_t i = 0; i < conventions.size(); ++i) {
    if (rms[i] < kBehind) fits.push_back({conventions[i], rms[i], 0});
  }
  std::stable_sort(fits.begin(), fits.end(), [](const auto& a, const auto& b) {
    constexpr double kEqual = 1e-6;  // pixels: rounding must not decide between equal conventions
    return std::floor(a.rms / kEqual) < std::floor(b.rms / kEqual);
  });
  return fits;
}

/// Numbers the groups; what follows the first groups is cut off.
void Group(const Trial& trial, std::vector<ConventionFit>& fits) {
  std::vector<Projections> leaders;
  for (std::size_t i = 0; i < fits.size(); ++i) {
    const Projections projections = trial.Under(fits[i].convention);
    const auto like = std::find_if(leaders.begin(), leaders.end(), [&](const auto& leader) {
      return Difference(leader, projections) < kLikePixels;
    });
    fits[i].group = static_cast<int>(like - leaders.begin());
    if (like != leaders.end()) continue;
    if (leaders.size() == kMostGroups) {
      fits.resize(i);
      return;
    }
    leaders.push_back(projections);
  }
}

double Limit_For(const OrientationTable& table) {
  int longest = 0;
  for (const PhotoGiven& photo : table.photos) {
    longest = std::max({longest, photo.camera.width, photo.camera.height});
  }
  return std::max(kFitsPixels, kFitsShare * longest);
}

/// The best RMS of a group, infinite where there is none.
double Best_Of_Group(const std::vector<ConventionFit>& fits, int group) {
  for (const ConventionFit& fit : fits) {
    if (fit.group == group) return fit.rms;
  }
  return kBehind;
}

void Decide(ConventionSearch& search, const Convention& stated) {
  if (search.fits.empty() || search.fits.front().rms > search.limit) return;
  const ConventionFit* nearest = nullptr;
  for (const ConventionFit& fit : search.fits) {
    if (fit.group != 0) continue;
    if (nearest == nullptr ||
        Choices_Between(fit.convention, stated) < Choices_Between(nearest->convention, stated)) {
      nearest = &fit;
    }
  }
  if (nearest->convention == stated) {
    search.verdict = FinderVerdict::FitsAsStated;
  } else if (search.fits.front().rms * kClearly <= Best_Of_Group(search.fits, 1)) {
    search.verdict = FinderVerdict::ClearlyAnother;
  } else {
    search.verdict = FinderVerdict::Undecided;
    return;
  }
  search.chosen = nearest->convention;
}

}  // namespace

ConventionSearch Find_Convention(const OrientationTable& table,
                                 const std::vector<PointObservation>& observations,
                                 const std::vector<KnownPoint>& points) {
  for (const PhotoGiven& photo : table.photos) {
    if (photo.camera.width == 0 || photo.camera.height == 0) {
      throw Refused(photo.name + ": the table does not tell the size of the image");
    }
  }
  const std::vector<PointTrack> tracks = Tracks_Of(observations, points);
  if (tracks.empty()) {
    throw Refused("no observation counts: a point must be known or seen in two photographs");
  }
  const Trial trial(table, tracks);
  ConventionSearch search;
  search.limit = Limit_For(table);
  for (const PointTrack& track : tracks) search.observations += track.seen.size();
  search.stated_rms = trial.Under(table.stated).rms;
  search.fits = Sorted_Fits(trial, Plausible_Conventions(table.stated, table.photos));
  Group(trial, search.fits);
  Decide(search, table.stated);
  return search;
}

std::vector<PointObservation> Parse_Observations(const NamedText& text,
                                                 const OrientationTable& table) {
  std::map<std::string, std::size_t> photos;
  for (std::size_t i = 0; i < table.photos.size(); ++i) {
    photos[Lower(Photo_Name(table.photos[i].name))] = i;
  }
  const CsvTable rows(text.text, text.name);
  std::vector<PointObservation> observations;
  for (const TextRow& row : rows.Rows()) {
    const std::string name = rows.Text(row, "photo");
    const auto photo = photos.find(Lower(Photo_Name(name)));
    if (photo == photos.end()) {
      rows.Refuse(row, "the photograph \"" + name + "\" is not in the orientation table");
    }
    observations.push_back({photo->second, rows.Text(row, "point"), rows.Number(row, "col_px"),
                            rows.Number(row, "row_px")});
  }
  if (observations.empty()) throw Refused(text.name + ": the table holds no observation");
  return observations;
}

std::vector<KnownPoint> Parse_Known_Points(const NamedText& text) {
  const CsvTable rows(text.text, text.name);
  for (const char* const column : {"point", "X", "Y", "Z"}) {
    if (!rows.Has(column)) {
      throw Refused(text.name + ": the column \"" + std::string(column) + "\" is missing");
    }
  }
  std::vector<KnownPoint> points;
  std::set<std::string> names;
  for (const TextRow& row : rows.Rows()) {
    const std::string name = rows.Text(row, "point");
    if (!names.insert(name).second) rows.Refuse(row, "the point \"" + name + "\" stands twice");
    points.push_back({name, {rows.Number(row, "X"), rows.Number(row, "Y"), rows.Number(row, "Z")}});
  }
  return points;
}

}  // namespace sylvomex
