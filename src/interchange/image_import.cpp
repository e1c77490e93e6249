// SPDX-License-Identifier: MIT
#include "interchange/image_import.h"

#include <tbb/parallel_for.h>

#include <algorithm>
#include <cmath>
#include <future>
#include <map>
#include <memory>
#include <mutex>
#include <numbers>

#include "imageblock/image_header_text.h"
#include "interchange/coordinate_system.h"
#include "interchange/csv_table.h"
#include "interchange/failures.h"
#include "interchange/import_transaction.h"
#include "interchange/orientation_table.h"
#include "interchange/photo_header.h"
#include "interchange/site.h"
#include "interchange/stated_convention.h"
#include "interchange/sun_position.h"
#include "platform/list_reader.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr int kMostPixels = 32767;  // a side, as headers count
constexpr double kDegree = std::numbers::pi / 180;

/// A photograph of the table with its file.
struct Source {
  OrientedPhoto photo;
  std::filesystem::path path;
};

/// The names under which a file may stand in a table.
std::vector<std::string> Names_Of(const std::filesystem::path& file) {
  return {Lower(Photo_Name(file.string())), Lower(file.stem().string())};
}

std::map<std::string, std::filesystem::path> Files_By_Name(
    const std::vector<std::filesystem::path>& files, const OrientationTable& table,
    const std::string& table_name) {
  std::map<std::string, const PhotoGiven*> wanted;
  for (const PhotoGiven& photo : table.photos) wanted[Lower(Photo_Name(photo.name))] = &photo;
  std::map<std::string, std::filesystem::path> found;
  for (const std::filesystem::path& file : files) {
    const std::vector<std::string> names = Names_Of(file);
    const auto name = std::find_if(names.begin(), names.end(),
                                   [&](const std::string& n) { return wanted.contains(n); });
    if (name == names.end()) {
      throw Refused(file.string() + ": no photograph of this name stands in " + table_name);
    }
    if (!found.emplace(*name, file).second) {
      throw Refused(file.string() + ": another file has the same name, " + found[*name].string());
    }
  }
  return found;
}

void Check_Size(OrientedPhoto& photo, const PhotoFile& file, const std::string& table_name) {
  const std::string size = std::to_string(file.Width()) + " x " + std::to_string(file.Height());
  if (file.Width() > kMostPixels || file.Height() > kMostPixels) {
    throw Refused(file.Name() + ": " + size +
                  " pixels; an image may have at most 32767 columns "
                  "and rows");
  }
  if (file.Width() != photo.width || file.Height() != photo.height) {
    throw Refused(file.Name() + ": " + size + " pixels, and " + std::to_string(photo.width) +
                  " x " + std::to_string(photo.height) + " in " + table_name);
  }
}

/// Every photograph with its file, in the table's order.
std::vector<Source> Matched(OrientationTable& table, const Convention& convention,
                            const ImageImportSettings& settings) {
  const auto files = Files_By_Name(settings.files, table, settings.table.string());
  std::vector<Source> sources;
  for (PhotoGiven& given : table.photos) {
    const auto file = files.find(Lower(Photo_Name(given.name)));
    if (file == files.end()) {
      throw Refused(settings.table.string() + ": no file is given for the photograph \"" +
                    given.name + "\"");
    }
    const PhotoFile pixels(file->second);
    if (given.camera.width == 0) given.camera.width = pixels.Width();
    if (given.camera.height == 0) given.camera.height = pixels.Height();
    OrientedPhoto photo = Understood(given, convention);
    Check_Size(photo, pixels, settings.table.string());
    if (photo.utc.empty()) photo.utc = pixels.Utc();
    sources.push_back({std::move(photo), file->second});
  }
  return sources;
}

/// The map extent of the projection centres.
MapExtent Extent_Of(const std::vector<Source>& sources) {
  const Point3D& first = sources.front().photo.centre;
  MapExtent extent{first.X, first.Y, first.X, first.Y};
  for (const Source& source : sources) {
    const Point3D& centre = source.photo.centre;
    extent.west = std::min(extent.west, centre.X);
    extent.east = std::max(extent.east, centre.X);
    extent.south = std::min(extent.south, centre.Y);
    extent.north = std::max(extent.north, centre.Y);
  }
  return extent;
}

/// Numbers of the images that the site has, by the lower-case name of the header.
std::map<std::string, std::int32_t> Known_Images(const Site& site) {
  std::map<std::string, std::int32_t> known;
  for (const FilePath& file : site.Drives().Match("c:\\data\\images\\*.hdr")) {
    try {
      known[Lower(file.native.filename().string())] = ListReader(file).Read_Int32();
    } catch (const RunTimeError&) {
      continue;  // no header: it has no number to keep clear of
    }
  }
  return known;
}

/// A number of its own for each image; one that is imported again keeps its number.
class ImageNumbers {
 public:
  explicit ImageNumbers(const Site& site) : known_(Known_Images(site)) {
    for (const auto& [name, id] : known_) next_ = std::max(next_, id);
  }

  std::int32_t Number_Of(const std::string& photo_name) {
    const auto found = known_.find(Lower(Photo_Name(photo_name) + ".hdr"));
    return found != known_.end() ? found->second : ++next_;
  }

 private:
  std::map<std::string, std::int32_t> known_;
  std::int32_t next_ = 0;
};

/// How far the lens moves the pixels along the image's border.
double Largest_Shift(const OrientedPhoto& photo) {
  constexpr int kSteps = 64;
  double largest = 0;
  const auto look = [&](double col, double row) {
    const PhotoPixel real = Real_Of_Ideal(photo, {col, row});
    largest = std::max(largest, std::hypot(real.col - col, real.row - row));
  };
  for (int i = 0; i <= kSteps && !photo.lens.Is_Ideal(); ++i) {
    const double t = static_cast<double>(i) / kSteps;
    look(t * photo.width, 0);
    look(t * photo.width, photo.height);
    look(0, t * photo.height);
    look(photo.width, t * photo.height);
  }
  return largest;
}

std::optional<std::array<double, 2>> Sun_Of_Photo(const OrientedPhoto& photo,
                                                  const OGRSpatialReference& system,
                                                  const std::string& table_name) {
  if (photo.utc.empty()) return std::nullopt;
  const std::optional<double> day = Julian_Day(photo.utc);
  if (!day) {
    throw Refused(table_name + ": " + photo.name + ": \"" + photo.utc +
                  "\" is no date and time of ISO 8601");
  }
  OGRSpatialReference degrees;
  degrees.SetWellKnownGeogCS("WGS84");
  degrees.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const std::unique_ptr<OGRCoordinateTransformation> to_degrees(
      OGRCreateCoordinateTransformation(&system, &degrees));
  double longitude = photo.centre.X;
  double latitude = photo.centre.Y;
  if (to_degrees == nullptr || to_degrees->Transform(1, &longitude, &latitude) == 0) {
    return std::nullopt;
  }
  const SunDirection sun = Sun_Direction(*day, latitude, longitude);
  return std::array{sun.azimuth / kDegree, sun.elevation / kDegree};
}

/// What is to be written of one photograph.
struct Job {
  const Source* source = nullptr;
  ImportedImage image;
  std::filesystem::path raw_target;
  std::filesystem::path raw_file;
};

std::vector<Job> Jobs_Of(const std::vector<Source>& sources, const ImageImportSettings& settings,
                         const Site& site, ImageImportResult& result) {
  ImageNumbers numbers(site);
  const OGRSpatialReference system = Coordinate_System(site.crs);
  std::vector<Job> jobs;
  for (const Source& source : sources) {
    Job job;
    job.source = &source;
    job.image.window = {0, 0, source.photo.width, source.photo.height};
    job.image.sun = Sun_Of_Photo(source.photo, system, settings.table.string());
    if (settings.around) {
      const auto window = Window_Of_Circle(source.photo, *settings.around);
      if (!window) {
        result.passed_over.push_back(source.photo.name);
        continue;
      }
      job.image.window = *window;
    }
    job.image.name = Photo_Name(source.photo.name);
    job.image.header = Header_Name(source.photo.name);
    job.image.raw = Raw_Name(source.photo.name);
    job.image.image_id = numbers.Number_Of(source.photo.name);
    job.image.largest_shift = Largest_Shift(source.photo);
    jobs.push_back(std::move(job));
  }
  if (jobs.empty()) throw Refused(settings.table.string() + ": no photograph shows the circle");
  return jobs;
}

void Write_Pixels(Job& job, const std::array<double, 2>& percentiles) {
  const PhotoFile file(job.source->path);
  job.image.is_colour = file.Is_Colour();
  GreyStretch stretch;
  if (file.Has_16_Bits()) {
    stretch = Percentile_Stretch(file, percentiles[0], percentiles[1]);
    job.image.stretch = stretch;
  }
  Write_Raw_Photo(file, job.source->photo, job.image.window, stretch, job.raw_file,
                  job.raw_target.string());
}

void Write_All_Pixels(std::vector<Job>& jobs, const ImageImportSettings& settings) {
  std::mutex telling;
  double done = 0;
  tbb::parallel_for(std::size_t{0}, jobs.size(), [&](std::size_t i) {
    Write_Pixels(jobs[i], settings.stretch);
    const std::scoped_lock one_at_a_time(telling);
    Tell_Share(settings.told, ++done, static_cast<double>(jobs.size()));
  });
}

std::string Header_Text(const Job& job, const Site& site) {
  OrientedPhoto photo = job.source->photo;
  photo.centre = site.Working(photo.centre);
  const auto sun = job.image.sun.value_or(std::array<double, 2>{0, 0});
  return Image_Header_Text(Header_Of(photo, job.image.window, job.image.image_id,
                                     job.image.is_colour, sun[0] * kDegree, sun[1] * kDegree));
}

ImportEntry Entry_Of(const ImageImportSettings& settings, const ImageImportResult& result) {
  std::vector<std::filesystem::path> files{settings.table};
  if (!settings.cameras.empty()) files.push_back(settings.cameras);
  files.insert(files.end(), settings.files.begin(), settings.files.end());
  ImportEntry entry;
  entry.kind = "images";
  entry.files = Source_Files(files);
  entry.settings = {
      {"format", result.format},
      {"convention", result.convention},
      {"stretch", std::to_string(settings.stretch[0]) + " " + std::to_string(settings.stretch[1])}};
  if (settings.around) {
    const GroundCircle& circle = *settings.around;
    entry.settings["around"] =
        std::to_string(circle.centre.X) + " " + std::to_string(circle.centre.Y) + " " +
        std::to_string(circle.centre.Z) + " " + std::to_string(circle.radius);
  }
  return entry;
}

}  // namespace

ImageImportResult Import_Images(const ImageImportSettings& settings) {
  ImportTransaction import(settings.site);
  Site& site = import.TheSite();
  OrientationTable table =
      Read_Orientation_Table(settings.table.string(), settings.cameras.string(), settings.format);
  Place_In_System(table, site.crs);
  const Convention convention = Convention_To_Use(site, table);
  const std::vector<Source> sources = Matched(table, convention, settings);
  Take_Extent(site, Extent_Of(sources), settings.table.string());
  ImageImportResult result;
  result.format = Format_Name(table.format);
  result.convention = Convention_Name(convention, table.photos.front().rotation);
  result.shift = *site.shift;
  result.columns_passed_over = table.passed_over;
  std::vector<Job> jobs = Jobs_Of(sources, settings, site, result);
  std::future<ImportEntry> entry =
      std::async(std::launch::async, [&settings, result] { return Entry_Of(settings, result); });
  const DriveMap drives = site.Drives();
  for (Job& job : jobs) {
    job.raw_target = drives.Locate(job.image.raw).native;
    job.raw_file = import.New_File(job.raw_target);
  }
  Write_All_Pixels(jobs, settings);
  for (const Job& job : jobs) {
    import.Write(drives.Locate(job.image.header).native, Header_Text(job, site));
    result.images.push_back(job.image);
  }
  import.Commit(entry.get());
  return result;
}

}  // namespace sylvomex
