// SPDX-License-Identifier: MIT
// Writes a demo site's data in the field's formats, moved to another place of the country: GeoTIFF
// photographs with an orientation table, checked points, a terrain and a canopy model, the same
// echoes as LAS and as LAZ, and a list of trees.
#include <gdal_priv.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "demo/write/laz_file.h"
#include "heightmodels/raster_model.h"
#include "imageblock/image_header.h"
#include "interchange/coordinate_system.h"
#include "interchange/csv_table.h"
#include "interchange/las_writer.h"
#include "lidar/path_header.h"
#include "lidar/pulse_table.h"
#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"
#include "solver/camera_model.h"

namespace {

using namespace sylvomex;

namespace fs = std::filesystem;

constexpr double kEast = -2130000;  // metres, from the demo's place to the field's
constexpr double kNorth = -188000;
constexpr const char* kSystem = "EPSG:3067";
constexpr std::uint16_t kSystemCode = 3067;
constexpr double kDegree = 0.017453292519943295;
constexpr std::size_t kTrees = 40;

struct Photo {
  std::string name;
  ImageRecord header;
};

std::vector<Photo> Photos_Of(const DriveMap& drives) {
  std::vector<Photo> photos;
  for (const FilePath& file : drives.Match("c:\\data\\demo\\im?.hdr")) {
    ListReader reader(file);
    photos.push_back({file.native.stem().string(), Read_Image_Header(reader)});
  }
  return photos;
}

std::unique_ptr<GDALDataset> New_Tiff(const fs::path& file, int width, int height, int bands,
                                      GDALDataType type) {
  const char* const options[] = {"TILED=YES", nullptr};
  return std::unique_ptr<GDALDataset>(GetGDALDriverManager()->GetDriverByName("GTiff")->Create(
      file.c_str(), width, height, bands, type, const_cast<char**>(options)));
}

/// The photograph as GeoTIFF; columns and rows are those of the raw file, which may be a cut-out.
void Write_Photo(const Photo& photo, const DriveMap& drives, const fs::path& file) {
  const int width = static_cast<int>(photo.header.SubWidth);
  const int height = static_cast<int>(photo.header.SubHeight);
  const int bands = photo.header.ColorFlag == 1 ? 3 : 1;
  std::string pixels = Read_Whole_File(drives.Locate(photo.header.RawFileName.Trimmed()));
  const auto tiff = New_Tiff(file, width, height, bands, GDT_Byte);
  if (tiff->RasterIO(GF_Write, 0, 0, width, height, pixels.data(), width, height, GDT_Byte, bands,
                     nullptr, bands, static_cast<GSpacing>(bands) * width, 1, nullptr) != CE_None) {
    throw std::runtime_error("cannot write " + file.string());
  }
}

/// The principal point of a cut-out lies away from its middle by as much as it was cut.
std::string Table_Row(const Photo& photo) {
  const ImageRecord& h = photo.header;
  const double pixel = 1000 / h.AffineA1;
  const double col = h.AffineA0 + 0.5 - h.SubColOrigin;
  const double row = h.FullHeight - 0.5 - h.AffineB0 - h.SubRowOrigin;
  std::string text = photo.name + ".tif," + Full_Text(h.SubWidth) + "," + Full_Text(h.SubHeight);
  for (const double value : {h.PrincipalDistance * 1000, pixel, (col - h.SubWidth / 2) * pixel,
                             (h.SubHeight / 2 - row) * pixel, h.Omega / kDegree, h.Phi / kDegree,
                             h.Kappa / kDegree, h.X0 + kEast, h.Y0 + kNorth, h.Z0}) {
    text += "," + Full_Text(value);
  }
  return text + "\n";
}

void Write_Points(const std::vector<Photo>& photos, const CsvTable& trees, const fs::path& out) {
  std::ofstream points(out / "points.csv");
  std::ofstream seen(out / "observations.csv");
  points << "point,X,Y,Z\n";
  seen << "photo,point,col_px,row_px\n";
  for (std::size_t i = 0; i < kTrees && i < trees.Rows().size(); ++i) {
    const TextRow& row = trees.Rows()[i];
    const Point3D top{trees.Number(row, "X"), trees.Number(row, "Y"), trees.Number(row, "top_Z")};
    points << 't' << i << ',' << Full_Text(top.X + kEast) << ',' << Full_Text(top.Y + kNorth) << ','
           << Full_Text(top.Z) << '\n';
    for (const Photo& photo : photos) {
      const PixelPosition at = Object_To_Pixel(Make_Camera(photo.header), top);
      const double col = at.col + 0.5 - photo.header.SubColOrigin;
      const double line = photo.header.FullHeight - 0.5 - at.row - photo.header.SubRowOrigin;
      if (col < 0 || col >= photo.header.SubWidth || line < 0 || line >= photo.header.SubHeight) {
        continue;
      }
      seen << photo.name << ",t" << i << ',' << Full_Text(col) << ',' << Full_Text(line) << '\n';
    }
  }
}

void Write_Trees(const CsvTable& trees, const fs::path& file) {
  std::ofstream out(file);
  out << "tree,species,east,north,ground,height_m,dbh_mm\n";
  for (std::size_t i = 0; i < kTrees && i < trees.Rows().size(); ++i) {
    const TextRow& row = trees.Rows()[i];
    const double height = trees.Number(row, "height");
    out << trees.Text(row, "id") << ',' << i % 3 + 1 << ','
        << Full_Text(trees.Number(row, "X") + kEast) << ','
        << Full_Text(trees.Number(row, "Y") + kNorth) << ',' << trees.Text(row, "ground_Z") << ','
        << Full_Text(height) << ',' << Format(height * 12, "0") << '\n';
  }
}

void Write_Model(const DriveMap& drives, const char* header, const fs::path& file) {
  RasterModel model;
  Read_Raster_Header(drives.Locate(header), model);
  Dimension_Cells(model);
  Read_Cells(drives.Locate(model.CellFile.Trimmed()), model);
  const auto tiff = New_Tiff(file, model.columns, model.rows, 1, GDT_Float32);
  double place[] = {model.OriginX - model.CellSize / 2 + kEast,
                    model.CellSize,
                    0,
                    model.OriginY + (model.rows - 1) * model.CellSize + kNorth,
                    0,
                    -model.CellSize};
  tiff->SetGeoTransform(place);
  const OGRSpatialReference system = Coordinate_System(kSystem);
  tiff->SetSpatialRef(&system);
  for (int row = 0; row < model.rows; ++row) {
    float* const cells =
        &model.Cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(model.columns)];
    if (tiff->GetRasterBand(1)->RasterIO(GF_Write, 0, model.rows - 1 - row, model.columns, 1, cells,
                                         model.columns, 1, GDT_Float32, 0, 0, nullptr) != CE_None) {
      throw std::runtime_error("cannot write " + file.string());
    }
  }
}

/// The echoes of all tiles, pulse by pulse.
std::vector<WrittenPoint> Echoes_Of(const DriveMap& drives) {
  std::vector<WrittenPoint> echoes;
  double time = 0;
  const std::string prefix = Read_Path_Header(drives.Locate("c:\\data\\als2007_path.hdr"));
  for (const FilePath& tile : drives.Match(prefix + "???_???.bin")) {
    PulseTable table;
    Read_Pulse_Tile(tile, table);
    for (std::int32_t i = 1; i <= table.Count(); ++i) {
      const LidarPulse pulse = table(i);
      time += 1e-5;
      for (int number = 1; number <= pulse.EchoCount; ++number) {
        const LidarEcho& echo = pulse.Slot(kEchoSlots + 1 - number);
        WrittenPoint point;
        point.at = {echo.X + kEast, echo.Y + kNorth, echo.Z};
        point.time = time;
        point.intensity = static_cast<std::uint16_t>(echo.Intensity);
        point.number = number;
        point.returns = pulse.EchoCount;
        echoes.push_back(point);
      }
    }
  }
  return echoes;
}

void Write_Las(const std::vector<WrittenPoint>& echoes, const fs::path& file) {
  LasWriter las(file, file.string(), Wkt_Of(Coordinate_System(kSystem), WktForm::Wkt1));
  for (const WrittenPoint& echo : echoes) las.Add(echo);
  las.Finish();
}

void Write_Laz(const std::vector<WrittenPoint>& echoes, const fs::path& file) {
  const std::array<double, 3> offset{300000, 6600000, 0};
  std::vector<demo::LazEcho> coded;
  for (const WrittenPoint& echo : echoes) {
    const auto millimetres = [](double metres) {
      return static_cast<std::int32_t>(std::llround(metres / 0.001));
    };
    coded.push_back({{millimetres(echo.at.X - offset[0]), millimetres(echo.at.Y - offset[1]),
                      millimetres(echo.at.Z - offset[2])},
                     echo.intensity,
                     echo.number,
                     echo.returns,
                     echo.time});
  }
  std::ofstream out(file, std::ios::binary);
  out << demo::Laz_File(coded, offset, kSystemCode);
  if (!out.flush()) throw std::runtime_error("cannot write " + file.string());
}

int Write_Field(const fs::path& site, const fs::path& out) {
  Start_Gdal();
  fs::create_directories(out / "photos");
  const DriveMap drives(site);
  const std::vector<Photo> photos = Photos_Of(drives);
  std::ofstream table(out / "orientation.csv");
  table << "name,width,height,f_mm,pixel_mm,x0_mm,y0_mm,omega,phi,kappa,X0,Y0,Z0\n";
  for (const Photo& photo : photos) {
    Write_Photo(photo, drives, out / "photos" / (photo.name + ".tif"));
    table << Table_Row(photo);
  }
  const std::string truth = (site / "truth.csv").string();
  const CsvTable trees(Read_Text_File(truth), truth);
  Write_Points(photos, trees, out);
  Write_Trees(trees, out / "trees.csv");
  Write_Model(drives, "c:\\data\\demo\\dem.hdr", out / "terrain.tif");
  Write_Model(drives, "c:\\data\\demo\\chm.hdr", out / "canopy.tif");
  const std::vector<WrittenPoint> echoes = Echoes_Of(drives);
  Write_Las(echoes, out / "lidar.las");
  Write_Laz(echoes, out / "lidar.laz");
  std::cout << photos.size() << " photographs and their field data in " << out.string() << '\n';
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "sylvomex_demo_field DEMO_SITE OUTPUT\n";
    return 2;
  }
  try {
    return Write_Field(arguments[1], arguments[2]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
