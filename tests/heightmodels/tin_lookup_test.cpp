// SPDX-License-Identifier: MIT
#include "heightmodels/tin_lookup.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "heightmodels/tin_support.h"
#include "platform/number_text.h"
#include "support/vector_units.h"

namespace sylvomex {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(TinElevation, IsTheHeightOfTheTriangleAndLeavesItsPosition) {
  const TinModel model = Two_Triangles();
  std::int32_t hint = 0;
  EXPECT_NEAR(Tin_Elevation(model, 1008, 2, hint), 108, 1e-9);
  EXPECT_EQ(model.Index.at(static_cast<std::size_t>(hint - 1)), 1);
  EXPECT_NEAR(Tin_Elevation(model, 1002, 8, hint), 102, 1e-9);
  EXPECT_EQ(model.Index.at(static_cast<std::size_t>(hint - 1)), 2);
}

TEST(TinElevation, OutsideTheModelIsMinus99WithAHintOfZero) {
  const TinModel model = Two_Triangles();
  for (const MapPoint& p : {MapPoint{999, 5}, {1011, 5}, {1005, -1}, {1005, 11}}) {
    std::int32_t hint = 1;
    EXPECT_EQ(Tin_Elevation(model, p.X, p.Y, hint), -99);
    EXPECT_EQ(hint, 0);
  }
}

TEST(TinElevation, WithoutAModelIsMinus99) {
  std::int32_t hint = 0;
  EXPECT_EQ(Tin_Elevation({}, 5, 5, hint), -99);
}

TEST(TinElevation, AHintOutsideTheTableIsARunTimeError) {
  const TinModel model = Two_Triangles();
  for (const std::int32_t outside : {3, -1, -99}) {
    std::int32_t hint = outside;
    EXPECT_THROW(Tin_Elevation(model, 1005, 5, hint), RunTimeError) << outside;
  }
}

/// Two sheets over one square; the second, at 150, is hinted at or found first by Index.
TinModel Two_Sheets() {
  return Tin_Of({{0, 1000, 0, 100},
                 {0, 1010, 0, 100},
                 {0, 1000, 10, 100},
                 {0, 990, -5, 150},
                 {0, 1020, -5, 150},
                 {0, 990, 20, 150}},
                {{0, 1, 2}, {3, 4, 5}});
}

TEST(TinElevation, TheHintedTriangleComesBeforeTheFirstOfIndex) {
  const TinModel model = Two_Sheets();
  std::int32_t hint = 0;
  EXPECT_NEAR(Tin_Elevation(model, 1002, 2, hint), 150, 1e-9);
  EXPECT_EQ(hint, 1);
  hint = 2;
  EXPECT_NEAR(Tin_Elevation(model, 1002, 2, hint), 100, 1e-9);
  EXPECT_EQ(hint, 2);
}

/// Z = X - 1005: the height is exactly 0 on a line through the triangle.
TinModel Ramp_Through_Zero() {
  return Tin_Of({{0, 1000, 0, -5}, {0, 1010, 0, 5}, {0, 1010, 10, 5}}, {{0, 1, 2}});
}

TEST(TinElevation, AHeightOfZeroLooksLikeAMiss) {
  const TinModel model = Ramp_Through_Zero();
  std::int32_t hint = 0;
  ASSERT_EQ(Height_In_Triangle(model.Triangles[0], 1005, 2), 0);
  EXPECT_EQ(Tin_Elevation(model, 1005, 2, hint), -99);
  EXPECT_EQ(hint, 0);
}

TEST(TinElevation, AHeightOfZeroInTheHintedTriangleIsReturned) {
  const TinModel model = Ramp_Through_Zero();
  std::int32_t hint = 1;
  EXPECT_EQ(Tin_Elevation(model, 1005, 2, hint), 0);
  EXPECT_EQ(hint, 1);
}

TEST(TinChmElevation, OutsideTheModelIsZeroWithAHintOfMinus99) {
  const TinModel model = Two_Triangles();
  std::int32_t hint = 1;
  EXPECT_EQ(Tin_Chm_Elevation(model, 999, 5, hint), 0);
  EXPECT_EQ(hint, -99);
  EXPECT_NEAR(Tin_Chm_Elevation(model, 1008, 2, hint), 108, 1e-9);  // -99 is not a hint
  EXPECT_GT(hint, 0);
}

TEST(TinChmElevation, AHeightOfZeroLooksLikeAMiss) {
  const TinModel model = Ramp_Through_Zero();
  std::int32_t hint = 0;
  EXPECT_EQ(Tin_Chm_Elevation(model, 1005, 2, hint), 0);
  EXPECT_EQ(hint, -99);
  hint = 1;
  EXPECT_EQ(Tin_Chm_Elevation(model, 1005, 2, hint), 0);
  EXPECT_EQ(hint, 1);  // at once, with the hint unchanged
}

TEST(TinChmElevation, AHintAboveTheTableIsARunTimeError) {
  const TinModel model = Two_Triangles();
  std::int32_t hint = 3;
  EXPECT_THROW(Tin_Chm_Elevation(model, 1005, 5, hint), RunTimeError);
}

// The lookups compared with linear searches, bit for bit.

std::uint64_t Bits(double value) { return std::bit_cast<std::uint64_t>(value); }

void Expect_Plain_Answers(const TinModel& model, const std::vector<MapPoint>& points) {
  std::vector<double> one_thread(points.size()), all_threads(points.size());
  Tin_Elevations(model, points, one_thread, 1);
  Tin_Elevations(model, points, all_threads, 0);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const auto [X, Y] = points[i];
    const std::int32_t first = First_By_Plain_Walk(model, X, Y);
    ASSERT_EQ(First_Position(model, X, Y), first) << Full_Text(X) << " " << Full_Text(Y);
    ASSERT_EQ(Lowest_Number(model, X, Y), Lowest_By_Plain_Walk(model, X, Y));
    double height = 0;
    if (first > 0) height = Height_In_Triangle(Tin_Triangle_In_Index(model, first), X, Y);
    const double plain = height != 0 ? height : -99;
    std::int32_t hint = 0;
    ASSERT_EQ(Bits(Tin_Elevation(model, X, Y, hint)), Bits(plain));
    ASSERT_EQ(hint, height != 0 ? first : 0);
    ASSERT_EQ(Bits(one_thread[i]), Bits(plain));
    ASSERT_EQ(Bits(all_threads[i]), Bits(plain));
  }
}

/// Corners, points on edges, and the neighbouring doubles.
void Add_Touching_Points(const TinModel& model, std::mt19937& random,
                         std::vector<MapPoint>& points) {
  std::uniform_real_distribution<double> share(0, 1);
  const auto add_around = [&](double X, double Y) {
    for (const double x : {std::nextafter(X, -kInfinity), X, std::nextafter(X, kInfinity)}) {
      for (const double y : {std::nextafter(Y, -kInfinity), Y, std::nextafter(Y, kInfinity)}) {
        points.push_back({x, y});
      }
    }
  };
  std::uniform_int_distribution<std::size_t> any(0, model.Triangles.size() - 1);
  for (int i = 0; i < 60; ++i) {
    const auto& c = model.Triangles[any(random)].Corners;
    const double s = share(random);
    add_around(c[0].X, c[0].Y);
    add_around(c[0].X + s * (c[1].X - c[0].X), c[0].Y + s * (c[1].Y - c[0].Y));
    add_around((c[1].X + c[2].X) / 2, (c[1].Y + c[2].Y) / 2);
  }
}

std::vector<MapPoint> Asked_Points(const TinModel& model, unsigned seed) {
  std::mt19937 random(seed);
  std::vector<MapPoint> points;
  MapPoint low{kInfinity, kInfinity}, high{-kInfinity, -kInfinity};
  for (const TinNode& node : model.Nodes) {
    low = {std::min(low.X, node.X), std::min(low.Y, node.Y)};
    high = {std::max(high.X, node.X), std::max(high.Y, node.Y)};
  }
  const double width = high.X - low.X, height = high.Y - low.Y;
  std::uniform_real_distribution<double> along(-0.05, 1.05);
  for (int i = 0; i < 2000; ++i) {
    points.push_back({low.X + along(random) * width, low.Y + along(random) * height});
  }
  Add_Touching_Points(model, random, points);
  for (const double a : {low.X, high.X, kNoNumber, kInfinity, -kInfinity, 1e300, -1e300, 0.0}) {
    for (const double b : {low.Y, high.Y, kNoNumber, kInfinity, -kInfinity, 1e300, -1e300, 0.0}) {
      points.push_back({a, b});
    }
  }
  return points;
}

double Share_Of_Certain(const TinModel& model, const std::vector<MapPoint>& points) {
  int certain = 0;
  for (const MapPoint& p : points) certain += Certain_Holder(model.faces, p.X, p.Y) > 0 ? 1 : 0;
  return certain / static_cast<double>(points.size());
}

/// A lattice of displaced nodes, cut into triangles in random order and orientation. jitter:
/// largest displacement in spacings; from 0.5 on triangles fold over their neighbours.
TinModel Lattice_Model(unsigned seed, double jitter, MapPoint corner, double spacing, int lines) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> shift(-jitter, jitter), height(100, 200);
  std::vector<TinNode> nodes;
  for (int row = 0; row < lines; ++row) {
    for (int col = 0; col < lines; ++col) {
      nodes.push_back({0, corner.X + spacing * (col + shift(random)),
                       corner.Y + spacing * (row + shift(random)), height(random)});
    }
  }
  std::vector<NodeTriple> triples;
  for (int row = 0; row + 1 < lines; ++row) {
    for (int col = 0; col + 1 < lines; ++col) {
      const std::int32_t a = row * lines + col, b = a + 1, c = a + lines, d = c + 1;
      triples.push_back({a, b, d});
      triples.push_back({d, a, c});
    }
  }
  for (NodeTriple& triple : triples) std::shuffle(triple.begin(), triple.end(), random);
  std::shuffle(triples.begin(), triples.end(), random);
  return Tin_Of(nodes, triples);
}

TEST(TinLookups, OnATriangulationMatchTheLinearSearch) {
  for (const unsigned seed : {1U, 2U, 3U}) {
    const TinModel model = Lattice_Model(seed, 0.24, {2515000, 6859000}, 3.2, 40);
    const std::vector<MapPoint> points = Asked_Points(model, seed + 10);
    Expect_Plain_Answers(model, points);
    EXPECT_GT(Share_Of_Certain(model, points), 0.3);  // the fast path is used at all
  }
}

TEST(TinLookups, OnARegularLatticeMatchTheLinearSearch) {
  // Every MinX is shared by many triangles, and every edge lies on those of others.
  const TinModel model = Lattice_Model(4, 0, {100, 100}, 2, 30);
  std::vector<MapPoint> points = Asked_Points(model, 5);
  for (double X = 99; X <= 160; X += 0.5) {
    for (double Y = 99; Y <= 110; Y += 0.5) points.push_back({X, Y});
  }
  Expect_Plain_Answers(model, points);
}

TEST(TinLookups, OfSmallTrianglesInAWideModelMatchTheLinearSearch) {
  // Two lattices far apart: the smaller the triangles, the less precisely the single precision of
  // the fast path can place them.
  for (const double spacing : {0.05, 0.2, 0.5, 3.0}) {
    const TinModel near = Lattice_Model(22, 0.3, {2515000, 6859000}, spacing, 20);
    const TinModel far = Lattice_Model(23, 0.3, {3515000, 7859000}, spacing, 20);
    std::vector<TinNode> nodes = near.Nodes;
    nodes.insert(nodes.end(), far.Nodes.begin(), far.Nodes.end());
    std::vector<NodeTriple> triples;
    const auto shift = static_cast<std::int32_t>(near.Nodes.size());
    for (const TinTriangle& t : near.Triangles) triples.push_back({t.Node1, t.Node2, t.Node3});
    for (const TinTriangle& t : far.Triangles) {
      triples.push_back({t.Node1 + shift, t.Node2 + shift, t.Node3 + shift});
    }
    std::vector<MapPoint> points = Asked_Points(near, 24);
    const std::vector<MapPoint> more = Asked_Points(far, 25);
    points.insert(points.end(), more.begin(), more.end());
    Expect_Plain_Answers(Tin_Of(nodes, triples), points);
  }
}

/// Nested squares, each one eighth as wide as the one around it, with triangles between them: the
/// innermost are too small for single precision, in a wide model without a gap.
TinModel Nested_Squares(double half_width, int squares, MapPoint centre) {
  std::vector<TinNode> nodes;
  std::vector<NodeTriple> triples;
  for (int k = 0; k < squares; ++k, half_width /= 8) {
    const auto inner = static_cast<std::int32_t>(nodes.size());
    for (std::int32_t i = 0; i < 4; ++i) {
      const double angle = 0.3 * k + 1.5707963267948966 * i;  // each slightly rotated
      // The outermost is shifted, so that no interior point has round coordinates from its corner.
      const double aside = k == 0 ? 0.01 : 0;
      nodes.push_back({0, centre.X + half_width * std::cos(angle) + aside,
                       centre.Y + half_width * std::sin(angle) - aside, 100.0 + k});
      const std::int32_t next = (i + 1) % 4, outer = inner - 4;
      if (k == 0) continue;
      triples.push_back({outer + i, outer + next, inner + i});
      triples.push_back({inner + i, outer + next, inner + next});
    }
  }
  const auto last = static_cast<std::int32_t>(nodes.size());
  triples.push_back({last - 4, last - 3, last - 2});
  triples.push_back({last - 4, last - 2, last - 1});
  return Tin_Of(nodes, triples);
}

TEST(TinLookups, OfTrianglesTooSmallForSinglePrecisionMatchTheLinearSearch) {
  const MapPoint centre{1234.567, -765.4321};
  const TinModel model = Nested_Squares(500000, 13, centre);
  std::mt19937 random(28);
  std::uniform_real_distribution<double> along(0, 1), beside(-2e-4, 2e-4);
  std::vector<MapPoint> points;
  for (const TinTriangle& t : model.Triangles) {
    for (std::size_t k = 0; k < 3; ++k) {
      const MapPoint& p = t.Corners[k];
      const MapPoint& q = t.Corners[(k + 1) % 3];
      const double dx = q.X - p.X, dy = q.Y - p.Y;
      for (int i = 0; i < 200; ++i) {  // near an edge, relative to its length
        const double s = along(random), d = beside(random);
        points.push_back({p.X + s * dx - d * dy, p.Y + s * dy + d * dx});
      }
    }
  }
  Expect_Plain_Answers(model, points);
  EXPECT_GT(Share_Of_Certain(model, points), 0.02);  // of the large triangles
}

TEST_F(OnEveryVectorUnit, LookupsMatchTheLinearSearch) {
  Run([] {
    const TinModel model = Lattice_Model(26, 0.35, {2515000, 6859000}, 3.2, 40);
    Expect_Plain_Answers(model, Asked_Points(model, 27));
  });
}

TEST(TinLookups, WhereTrianglesFoldOverMatchTheLinearSearch) {
  for (const double jitter : {0.45, 0.7, 1.5}) {
    const TinModel model = Lattice_Model(6, jitter, {2515000, 6859000}, 3.2, 30);
    Expect_Plain_Answers(model, Asked_Points(model, 7));
  }
}

/// Triangles without any structure.
TinModel Heap_Of_Triangles(unsigned seed, int count, double size, double extent) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> place(0, extent), way(-size, size), height(10, 99);
  std::vector<TinNode> nodes;
  std::vector<NodeTriple> triples;
  for (int i = 0; i < count; ++i) {
    const double X = 2515000 + place(random), Y = 6859000 + place(random);
    const auto first = static_cast<std::int32_t>(nodes.size());
    for (int k = 0; k < 3; ++k) {
      nodes.push_back({0, X + way(random), Y + way(random), height(random)});
    }
    triples.push_back({first, first + 1, first + 2});
  }
  return Tin_Of(nodes, triples);
}

TEST(TinLookups, InUnstructuredTrianglesMatchTheLinearSearch) {
  const TinModel scattered = Heap_Of_Triangles(8, 800, 4, 100);
  Expect_Plain_Answers(scattered, Asked_Points(scattered, 9));
  const TinModel heaped = Heap_Of_Triangles(10, 800, 400, 100);
  Expect_Plain_Answers(heaped, Asked_Points(heaped, 11));
}

TEST(TinLookups, OfOneTriangleOverAnotherSheetMatchTheLinearSearch) {
  // A valid triangulation and one large triangle over a part of it.
  const TinModel sheet = Lattice_Model(12, 0.2, {2515000, 6859000}, 3, 30);
  std::vector<TinNode> nodes = sheet.Nodes;
  const auto first = static_cast<std::int32_t>(nodes.size());
  nodes.push_back({0, 2515010, 6859010, 300});
  nodes.push_back({0, 2515060, 6859015, 300});
  nodes.push_back({0, 2515020, 6859070, 300});
  std::vector<NodeTriple> triples;
  for (const TinTriangle& t : sheet.Triangles) triples.push_back({t.Node1, t.Node2, t.Node3});
  triples.insert(triples.begin() + 40, {first, first + 1, first + 2});
  const TinModel model = Tin_Of(nodes, triples);
  Expect_Plain_Answers(model, Asked_Points(model, 13));
}

TEST(TinLookups, WithHolesDuplicatesAndSliversMatchTheLinearSearch) {
  const TinModel sheet = Lattice_Model(14, 0.2, {2515000, 6859000}, 3, 30);
  std::vector<TinNode> nodes = sheet.Nodes;
  std::vector<NodeTriple> triples;
  std::mt19937 random(15);
  for (const TinTriangle& t : sheet.Triangles) {
    const NodeTriple triple{t.Node1, t.Node2, t.Node3};
    const auto fate = random() % 20;
    if (fate != 0) triples.push_back(triple);
    if (fate == 1) triples.push_back({t.Node2, t.Node1, t.Node3});
    if (fate == 2) {  // a sliver along an edge, and nearly coincident nodes
      const auto near = static_cast<std::int32_t>(nodes.size());
      nodes.push_back({0, t.X1 + 1e-7, t.Y1 - 1e-7, t.Z1});
      triples.push_back({t.Node1, near, t.Node2});
      triples.push_back({near, t.Node2, t.Node3});
    }
  }
  const TinModel model = Tin_Of(nodes, triples);
  Expect_Plain_Answers(model, Asked_Points(model, 16));
}

TEST(TinLookups, OfAFanAroundOneNodeMatchTheLinearSearch) {
  std::vector<TinNode> nodes = {{0, 500, 500, 100}};
  std::vector<NodeTriple> triples;
  constexpr int kBlades = 700;
  for (int i = 0; i < kBlades; ++i) {
    const double angle = 2 * 3.14159265358979 * i / kBlades;
    nodes.push_back({0, 500 + 300 * std::cos(angle), 500 + 300 * std::sin(angle), 120});
    triples.push_back({0, i + 1, (i + 1) % kBlades + 1});
  }
  const TinModel model = Tin_Of(nodes, triples);
  Expect_Plain_Answers(model, Asked_Points(model, 17));
}

TEST(TinLookups, AtExtremeScalesMatchTheLinearSearch) {
  for (const double scale : {1e-320, 1e-210, 1e-60, 1e60, 1e150}) {
    std::mt19937 random(18);
    std::uniform_real_distribution<double> place(-1, 1);
    std::vector<TinNode> nodes;
    for (int i = 0; i < 60; ++i) {
      nodes.push_back({0, place(random) * scale, place(random) * scale, 50});
    }
    TinModel model;
    model.Nodes = nodes;
    model.NodeCount = 60;
    for (std::int32_t i = 0; i + 2 < 60; ++i) {
      // The planes do not matter here; they may be NaN.
      TinTriangle t;
      t.Node1 = i, t.Node2 = i + 1, t.Node3 = i + 2;
      const auto at = static_cast<std::size_t>(i);
      Fill_Tin_Triangle(nodes[at], nodes[at + 1], nodes[at + 2], t);
      t.PlaneC = 1;
      model.Triangles.push_back(t);
      model.Index.push_back(++model.TriangleCount);
      model.position_of.push_back(model.TriangleCount);
    }
    model.buckets = Make_Tin_Buckets(model.Triangles);
    if (model.buckets.columns > 0) model.faces = Make_Tin_Faces(model.Triangles, 60);
    for (const MapPoint& p : Asked_Points(model, 19)) {
      ASSERT_EQ(First_Position(model, p.X, p.Y), First_By_Plain_Walk(model, p.X, p.Y)) << scale;
      ASSERT_EQ(Lowest_Number(model, p.X, p.Y), Lowest_By_Plain_Walk(model, p.X, p.Y)) << scale;
    }
  }
}

TEST(TinLookups, FindATriangleThatRoundingStretchesWestward) {
  // The crossing is computed from the far end of the edge, and at the top left corner rounding
  // can put it west of that corner.
  std::mt19937 random(21);
  std::uniform_real_distribution<double> near(0.05, 1), far(100, 5000);
  int stretched = 0;
  for (int i = 0; i < 300; ++i) {
    const double corner = near(random);
    const TinModel model =
        Tin_Of({{0, far(random), 0, 50}, {0, corner, 10, 60}, {0, 50, 0, 50}}, {{0, 1, 2}});
    const double X = std::nextafter(corner, -kInfinity);
    const std::int32_t plain = First_By_Plain_Walk(model, X, 10);
    stretched += plain != 0 ? 1 : 0;
    ASSERT_EQ(First_Position(model, X, 10), plain);
    ASSERT_EQ(Lowest_Number(model, X, 10), plain);
  }
  EXPECT_GT(stretched, 0);
}

TEST(TinLookups, WithHintsAlongALineMatchTheLinearSearch) {
  const TinModel model = Lattice_Model(20, 0.7, {2515000, 6859000}, 3.2, 30);
  std::int32_t hint = 0, plain_hint = 0;
  for (double X = 2514990; X < 2515110; X += 0.17) {
    const double Y = 6859000 + 0.6 * (X - 2514990);
    const double height = Tin_Elevation(model, X, Y, hint);
    double plain = -99;
    if (plain_hint == 0 || !Holds(Tin_Triangle_In_Index(model, plain_hint), X, Y)) {
      plain_hint = First_By_Plain_Walk(model, X, Y);
    }
    if (plain_hint != 0) plain = Height_In_Triangle(Tin_Triangle_In_Index(model, plain_hint), X, Y);
    ASSERT_EQ(Bits(height), Bits(plain));
    ASSERT_EQ(hint, plain_hint);
  }
}

TEST(TinElevations, WorkWithoutPointsAndWithoutAModel) {
  Tin_Elevations(Two_Triangles(), {}, {});
  const std::vector<MapPoint> points(3);
  std::vector<double> heights(3);
  Tin_Elevations({}, points, heights);
  EXPECT_EQ(heights, (std::vector<double>{-99, -99, -99}));
}

}  // namespace
}  // namespace sylvomex
