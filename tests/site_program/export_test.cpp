// SPDX-License-Identifier: MIT
// Exports by the command line, read back by GDAL.
#include <ogrsf_frmts.h>

#include <array>
#include <cmath>
#include <memory>
#include <nlohmann/json.hpp>

#include "interchange/las_header.h"
#include "interchange/las_points.h"
#include "site_program/imported_site.h"
#include "support/file_size_limit.h"
#include "support/las_files.h"
#include "support/test_rasters.h"

namespace sylvomex {
namespace {

struct ExportSite : ImportedSite {
  ExportSite() {
    EXPECT_EQ(Import("dem", {TestRaster().Write(Path("start.tif"))}).status, 0);
    shift = Shift();
  }
  std::string Path(const std::string& name) const { return (folder.Path() / name).string(); }

  /// A working coordinate of the middle of the site as the workstation prints it.
  std::string Line(double X, double Y, const std::string& rest) const {
    char text[100];
    std::snprintf(text, sizeof text, "%.2f,%.2f,", X - shift.X, Y - shift.Y);
    return text + rest;
  }

  Point3D shift;
};

struct Opened {
  GDALDatasetUniquePtr file;
  std::vector<OGRFeatureUniquePtr> features;

  explicit Opened(const std::string& name) : file(GDALDataset::Open(name.c_str(), GDAL_OF_VECTOR)) {
    if (file == nullptr) return;
    OGRLayer& layer = *file->GetLayer(0);
    for (OGRFeatureUniquePtr f{layer.GetNextFeature()}; f; f.reset(layer.GetNextFeature())) {
      features.push_back(std::move(f));
    }
  }
  double Number(std::size_t i, const char* field) {
    return features.at(i)->GetFieldAsDouble(field);
  }
  OGRPoint Point(std::size_t i) { return *features.at(i)->GetGeometryRef()->toPoint(); }
};

TEST_F(ExportSite, ObservationsReadBackTheSameInEveryFormat) {
  const std::string comment = "the old one, by the lake     x";  // 30 characters
  ASSERT_EQ(comment.size(), 30U);
  const std::string input =
      folder
          .Write("PointData.txt",
                 "1," + Line(384010.25, 6675990.5, "180.75,150.5,3.25,1,-7,2," + comment) +
                     ",101,102,1234.500,.125,500.000,600.875,\n" + "2," +
                     Line(384011, 6675991, "181.00,-99.00,.50,0,0,0,") + std::string(30, ' ') +
                     ",\n")
          .native.string();
  for (const char* name : {"o.gpkg", "o.geojson", "o.csv"}) {
    const SitePlayed played = Export("observations", input, Path(name));
    ASSERT_EQ(played.status, 0) << played.err;
    Opened back(Path(name));
    ASSERT_EQ(back.features.size(), 2U) << name;
    EXPECT_EQ(back.Number(0, "MeasurementNumber"), 1);
    EXPECT_NEAR(back.Number(0, "X"), 384010.25, 1e-9);
    EXPECT_NEAR(back.Number(0, "Y"), 6675990.5, 1e-9);
    EXPECT_EQ(back.Number(0, "Z"), 180.75);
    EXPECT_EQ(back.Number(0, "Rmse"), 3.25);
    EXPECT_EQ(back.Number(0, "FreeInteger"), -7);
    EXPECT_STREQ(back.features[0]->GetFieldAsString("FreeText"), comment.c_str());
    EXPECT_EQ(back.Number(0, "ImageId2"), 102);
    EXPECT_EQ(back.Number(0, "Col2"), 0.125);
    EXPECT_EQ(back.Number(0, "Row2"), 600.875);
    EXPECT_EQ(back.Number(1, "DemZ"), -99);
  }
}

TEST_F(ExportSite, InputMayHaveTheNameThatTheWorkstationKnows) {
  for (const char* name : {"c:\\data\\models\\dem.hdr", "C:/Data/Models/dem.hdr"}) {
    const SitePlayed played = Export("dem", name, Path("dem.tif"));
    EXPECT_EQ(played.status, 0) << played.err;
  }
  const SitePlayed missing = Export("dem", "c:\\data\\models\\none.hdr", Path("dem.tif"));
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.err, "sylvomex-site: c:\\data\\models\\none.hdr: there is no such file\n");
}

TEST_F(ExportSite, PointsHaveThreeDimensionsAndTheSitesSystem) {
  const std::string input =
      folder.Write("maa.nod", Line(384010.1234, 6675990, "123.5\n")).native.string();
  for (const char* name : {"o.gpkg", "o.geojson"}) {
    ASSERT_EQ(Export("surface", input, Path(name)).status, 0);
    Opened back(Path(name));
    const OGRPoint point = back.Point(0);
    EXPECT_NEAR(point.getX(), 384010.12, 1e-6);
    EXPECT_EQ(point.getZ(), 123.5);
    const OGRSpatialReference* system = back.file->GetLayer(0)->GetSpatialRef();
    ASSERT_NE(system, nullptr);
    EXPECT_STREQ(system->GetAuthorityCode(nullptr), "3067");
  }
}

TEST_F(ExportSite, GeoJsonCarriesASystemThatHasNoCode) {
  const std::string own = Path("own");
  const std::string proj = "+proj=tmerc +lat_0=0 +lon_0=24.7 +x_0=500000 +ellps=GRS80 +units=m";
  ASSERT_EQ(Play_Site({"init", own, "--crs", proj}).status, 0);
  const std::string input = folder.Write("maa.nod", "510000.25,6675990.5,123.5\n").native.string();
  const SitePlayed played = Play_Site({"export", own, "surface", input, Path("o.geojson")});
  ASSERT_EQ(played.status, 0) << played.err;
  Opened back(Path("o.geojson"));
  EXPECT_EQ(back.Point(0).getX(), 510000.25);
  const OGRSpatialReference* system = back.file->GetLayer(0)->GetSpatialRef();
  ASSERT_NE(system, nullptr);
  EXPECT_EQ(system->GetProjParm("central_meridian"), 24.7);
  EXPECT_EQ(system->GetProjParm("false_easting"), 500000);
}

TEST_F(ExportSite, DistancesHaveFourteenColumnsForEachImageInWorldCoordinates) {
  std::string line = "12,3," + Line(384010, 6675990, "180.00");
  for (int image = 0; image < 2; ++image) {
    char part[300];
    std::snprintf(part, sizeof part,
                  ",%d,%d,%.6f,%.6f,%.6f,%.6f,5000.0,4.25,35.00,180.00,90.00,-90.00,12.50,%-30s",
                  image, 700 + image, image == 0 ? 384008 - shift.X : 0,
                  image == 0 ? 384012 - shift.X : 0, image == 0 ? 6675990 - shift.Y : 0,
                  image == 0 ? 6675991 - shift.Y : 0, "a, b");
    line += part;
  }
  const std::string input = folder.Write("w.txt", line + "\n").native.string();
  ASSERT_EQ(Export("distances", input, Path("d.gpkg")).status, 0);
  Opened back(Path("d.gpkg"));
  EXPECT_EQ(back.Number(0, "TreeNumber"), 12);
  EXPECT_NEAR(back.Number(0, "X0Obj1"), 384008, 1e-6);
  EXPECT_NEAR(back.Number(0, "Y1Obj1"), 6675991, 1e-6);
  EXPECT_EQ(back.Number(0, "X0Obj2"), 0);  // not measured
  EXPECT_EQ(back.Number(0, "ImageCode2"), 701);
  EXPECT_EQ(back.Number(0, "OffNadirAngle2"), 12.5);
  EXPECT_STREQ(back.features[0]->GetFieldAsString("ObsCoding2"), "a, b");
}

TEST_F(ExportSite, ClustersCrownsAndSurfacesHaveTheirOwnColumns) {
  const auto exported = [&](const char* what, const char* name, const std::string& line) {
    EXPECT_EQ(Export(what, folder.Write(name, line).native.string(), Path("x.gpkg")).status, 0);
    return Opened(Path("x.gpkg"));
  };
  EXPECT_EQ(exported("clusters", "testi_89_manual2.nod", "7," + Line(384010, 6675990, "170\n"))
                .Number(0, "Number"),
            7);
  EXPECT_EQ(exported("crowns", "LK_trees.txt",
                     "5,6,1," + Line(384010, 6675990, "170,150,20,19.5,0,4.5,.3,.1,.2,.3,\n"))
                .Number(0, "FitB"),
            0.3);
  EXPECT_EQ(
      exported("surface", "foto.nod", Line(384010, 6675990, "170,150.5\n")).Number(0, "RasterZ"),
      150.5);
  EXPECT_EQ(exported("surface", "testi_89_manual2.txt", Line(384010, 6675990, "170,19.50 \n"))
                .Number(0, "Height"),
            19.5);
  EXPECT_NEAR(
      exported("surface", "testi.txt", "0.75," + Line(384010, 6675990, "170\n")).Number(0, "X"),
      384010, 1e-9);
}

TEST_F(ExportSite, ADamagedLineIsRefusedWithItsPlace) {
  const std::string input =
      folder.Write("a.nod", Line(384010, 6675990, "1\n") + "\n1,2,x\n").native.string();
  const SitePlayed played = Export("clusters", input, Path("a.csv"));
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.err.find("a.nod, line 3, field 3: \"x\" is no number"), std::string::npos)
      << played.err;
  EXPECT_FALSE(folder.Has("a.csv"));
}

TEST_F(ExportSite, AnObservationOfNoPossibleNumberOfImagesIsRefused) {
  for (const char* images : {"-1", "256", "1e300"}) {
    const std::string line =
        "1,33.98,-31.98,-15260.16,-99.00,182.93,0,0," + std::string(images) + ",tree,1,2,3\n";
    const std::string input = folder.Write("PointData.txt", line).native.string();
    const SitePlayed played = Export("observations", input, Path("o.csv"));
    EXPECT_EQ(played.status, 1) << images;
    EXPECT_NE(played.err.find("no number of images"), std::string::npos) << played.err;
  }
}

TEST_F(ExportSite, AFullDiskIsToldAndLeavesNothing) {
  std::string lines;
  for (int i = 0; i < 5000; ++i) lines += Line(384010 + 0.25 * i, 6675990, "123.5\n");
  const std::string input = folder.Write("maa.nod", lines).native.string();
  const std::string place = folder.Make_Folder("out").string();
  for (const char* name : {"/o.gpkg", "/o.geojson", "/o.csv"}) {
    SitePlayed played;
    {
      const FileSizeLimit limit(60000);
      played = Export("surface", input, place + name);
    }
    EXPECT_EQ(played.status, 3) << name;
    EXPECT_NE(played.err.find(name), std::string::npos) << played.err;
    EXPECT_TRUE(std::filesystem::is_empty(place)) << name;
  }
}

TEST_F(ExportSite, EndingsWithoutAFormatAreRefused) {
  const std::string nodes = folder.Write("a.nod", "1,2,3\n").native.string();
  EXPECT_EQ(Export("surface", nodes, Path("a.xlsx")).status, 1);
  EXPECT_EQ(Export("dem", Native("c/data/models/dem.hdr"), Path("a.png")).status, 1);
  EXPECT_EQ(Export("lidar", nodes, Path("a.laz")).status, 1);
  EXPECT_EQ(Export("surface", Path("missing.nod"), Path("a.csv")).status, 1);
  EXPECT_EQ(Export("surface", nodes, Path("none/a.csv")).status, 1);
}

TEST_F(ExportSite, AModelGoesOutAsItCameIn) {
  TestRaster raster;
  raster.no_data = "-32768";
  raster.height = [](int col, int row) { return col == row ? -32768 : 100.1 + col + 3.7 * row; };
  ASSERT_EQ(Import("dem", {raster.Write(Path("in.tif"))}).status, 0);
  ASSERT_EQ(Export("dem", Native("c/data/models/dem.hdr"), Path("out.tif")).status, 0);
  const GDALDatasetUniquePtr out(GDALDataset::Open(Path("out.tif").c_str()));
  ASSERT_NE(out, nullptr);
  std::array<double, 6> place{};
  out->GetGeoTransform(place.data());
  for (std::size_t i = 0; i < 6; ++i) EXPECT_NEAR(place[i], raster.place[i], 1e-6);
  EXPECT_STREQ(out->GetSpatialRef()->GetAuthorityCode(nullptr), "3067");
  EXPECT_STREQ(out->GetMetadataItem("LAYOUT", "IMAGE_STRUCTURE"), "COG");
  EXPECT_EQ(out->GetRasterBand(1)->GetNoDataValue(), -9999);
  std::vector<float> cells(12 * 9);
  ASSERT_EQ(out->GetRasterBand(1)->RasterIO(GF_Read, 0, 0, 12, 9, cells.data(), 12, 9, GDT_Float32,
                                            0, 0, nullptr),
            CE_None);
  for (int row = 0; row < 9; ++row) {
    for (int col = 0; col < 12; ++col) {
      const float expected = col == row ? -9999 : static_cast<float>(raster.height(col, row));
      EXPECT_EQ(cells[static_cast<std::size_t>(12 * row + col)], expected);
    }
  }
}

TEST_F(ExportSite, AnOrthoimageLiesWhereItsHeaderSays) {
  const std::string header = "2\n3\n" + Line(384000.5, 6675000.5, "") + "1\n0\n" +
                             (folder.Path() / "o.raw").string() + "\n";
  folder.Write("o.hdr", header);
  const std::string raw =
      folder.Write("o.raw", "aAxbBycCzdDweEvfFu").native.string();  // rows from the south
  ASSERT_EQ(Export("orto", raw, Path("o.tif")).status, 0);
  const GDALDatasetUniquePtr out(GDALDataset::Open(Path("o.tif").c_str()));
  ASSERT_EQ(out->GetRasterCount(), 3);
  std::array<double, 6> place{};
  out->GetGeoTransform(place.data());
  EXPECT_NEAR(place[0], 384000, 1e-6);
  EXPECT_NEAR(place[3], 6675003, 1e-6);
  std::uint8_t corner = 0;
  ASSERT_EQ(
      out->GetRasterBand(2)->RasterIO(GF_Read, 0, 2, 1, 1, &corner, 1, 1, GDT_Byte, 0, 0, nullptr),
      CE_None);
  EXPECT_EQ(corner, 'A');
  std::filesystem::remove(folder.Path() / "o.hdr");
  EXPECT_EQ(Export("orto", raw, Path("p.tif")).status, 1);
}

TEST_F(ExportSite, ACorrelationImageHasItsOwnPixels) {
  folder.Write("corimage3.raw", "abcdef");
  folder.Write("ccor_ima3.img", "3\n2\n");
  ASSERT_EQ(Export("correlation", Path("corimage3.raw"), Path("c.tif")).status, 0);
  const GDALDatasetUniquePtr out(GDALDataset::Open(Path("c.tif").c_str()));
  std::uint8_t pixel = 0;
  ASSERT_EQ(
      out->GetRasterBand(1)->RasterIO(GF_Read, 1, 1, 1, 1, &pixel, 1, 1, GDT_Byte, 0, 0, nullptr),
      CE_None);
  EXPECT_EQ(pixel, 'e');
}

TEST_F(ExportSite, TrianglesGoOutAsPlyAndPolygons) {
  const std::string nodes =
      folder
          .Write("t.nod", Line(384000, 6675000, "1\n") + Line(384010, 6675000, "2\n") +
                              Line(384000, 6675010, "3.5\n"))
          .native.string();
  folder.Write("t.tri", "0,1,2\n");
  ASSERT_EQ(Export("tin", nodes, Path("t.ply")).status, 0);
  const std::string ply = folder.Read("t.ply");
  const std::size_t begin = ply.find("end_header\n") + 11;
  ASSERT_EQ(ply.size(), begin + 3 * 24 + 1 + 12);
  double last[3];
  std::memcpy(last, ply.data() + begin + 48, sizeof last);
  EXPECT_NEAR(last[1], 6675010, 1e-6);
  EXPECT_EQ(last[2], 3.5);
  ASSERT_EQ(Export("tin", nodes, Path("t.gpkg")).status, 0);
  Opened back(Path("t.gpkg"));
  ASSERT_EQ(back.features.size(), 1U);
  const OGRLinearRing& ring = *back.features[0]->GetGeometryRef()->toPolygon()->getExteriorRing();
  EXPECT_EQ(ring.getNumPoints(), 4);
  EXPECT_EQ(ring.getZ(2), 3.5);
  folder.Write("t.tri", "0,1,3\n");
  EXPECT_EQ(Export("tin", nodes, Path("u.ply")).status, 1);
}

TEST_F(ExportSite, LidarComesBackEchoByEcho) {
  TestLas las;
  las.format = 6;
  las.minor = 4;
  for (int i = 0; i < 50; ++i) {
    const double X = 384000 + 3.217 * i, Y = 6675000 + 2.113 * i;
    las.points.push_back({X, Y, 180.5, 1, 2, 10.0 + i, 55, 5, 12, 3});
    las.points.push_back({X + 0.1, Y, 150.25, 2, 2, 10.0 + i, 66, 2, 12, 3});
  }
  const std::string input = folder.Write("a.las", las.Bytes()).native.string();
  for (const char* campaign : {"2004", "2006", "2007"}) {
    ASSERT_EQ(Import("lidar", {input, "--campaign", campaign}).status, 0);
    const std::string path_header = Native(std::string("c/data/als") + campaign + "_path.hdr");
    ASSERT_EQ(Export("lidar", path_header, Path("b.las")).status, 0);
    const std::string bytes = folder.Read("b.las");
    const LasHeader header = Read_Las_Header(Path("b.las"), "b.las");
    ASSERT_EQ(header.count, 100U) << campaign;
    std::map<std::pair<double, int>, const std::uint8_t*> found;
    for (std::size_t i = 0; i < 100; ++i) {
      const auto* record =
          reinterpret_cast<const std::uint8_t*>(bytes.data()) + header.points_at + 30 * i;
      const LasPoint point(record, 6);
      found[{point.Time(), point.Returns() & 15}] = record;
    }
    for (const TestLasPoint& expected : las.points) {
      const LasPoint point(found.at({expected.time, expected.number}), 6);
      EXPECT_NEAR(point.Position(0) * 0.001 + header.offset[0], expected.X, 1e-3);
      EXPECT_NEAR(point.Position(1) * 0.001 + header.offset[1], expected.Y, 1e-3);
      EXPECT_NEAR(point.Position(2) * 0.001 + header.offset[2], expected.Z, 1e-3);
      EXPECT_EQ(point.Intensity(), expected.intensity);
      EXPECT_EQ(point.Classification(), expected.classification);
      EXPECT_EQ(point.Angle(), 2000);
      EXPECT_EQ(point.Line(), 3);
    }
  }
}

TEST_F(ExportSite, ProgressRisesToTheWholeAndTheSiteStaysAsItIs) {
  const std::string input =
      folder.Write("maa.nod", Line(384010, 6675990, "123.5\n")).native.string();
  const auto before = Content();
  for (const auto& [what, from, name] : {std::array<std::string, 3>{"surface", input, "o.gpkg"},
                                         {"dem", Native("c/data/models/dem.hdr"), "o.tif"}}) {
    const SitePlayed played = Play_Site({"export", site, what, from, Path(name), "--progress"});
    ASSERT_EQ(played.status, 0) << played.err;
    EXPECT_TRUE(played.err.ends_with("progress 100\n")) << played.err;
    EXPECT_EQ(Content(), before);
  }
}

}  // namespace
}  // namespace sylvomex
