// SPDX-License-Identifier: MIT
#include "commands/evaluation/evaluated_plot.h"
#include "desktop_fixture.h"

namespace sylvomex {
namespace {

class ResultsWindow : public DesktopTest {
 protected:
  ResultsWindow() {
    w().Matching.PlotCenter.PlotX = 1000;
    w().Matching.PlotCenter.PlotY = 2000;
    w().Matching.PlotRadius = 10;
    w().Matching.CaptureSnapshot.XYt = 1.5;
    Add_Cluster({1000.3, 2000.4, 159});
    Add_Cluster({1005, 2000, 168});
    Add_Cluster({1000, 2006, 173});
    site_.Folder().Write("c/data/trees.bin",
                         Field_Tree_Bytes({Field_Tree(1000, 2000, 150, 10, 200),
                                           Field_Tree(1005, 2000, 150, 20, 200),
                                           Field_Tree(1000, 2005, 150, 25, 100)}));
  }

  void Add_Cluster(const Point3D& top) {
    const int i = ++w().Matching.ClusterCount;
    w().Matching.ClusterWeight(i) = 1;
    w().Matching.ClusterSum(i) = top;
  }

  void Load_Trees() {
    dialogs_.files.push_back((site_.Folder().Path() / "c/data/trees.bin").string());
    Choose("Load_Reference_Trees", "Form6");
  }

  void Press_Show_Results() {
    QTest::mouseClick(&Get<QPushButton>("Show_Results", "Form6"), Qt::LeftButton);
  }

  QImage Shown(int k) {
    return Get<PictureWidget>("Picture1(" + std::to_string(k) + ")", "Form6").grab().toImage();
  }

  static int Pixels_Of(const QImage& image, QColor colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
  }
};

TEST_F(ResultsWindow, OpensByItsKeyOnWhitePaper) {
  Press_Key(Qt::Key_R, Qt::ControlModifier);
  ASSERT_TRUE(Window("Form6").isVisible());
  const QImage pane = Shown(5);
  EXPECT_EQ(pane.pixelColor(pane.width() / 2, pane.height() / 2), QColor(Qt::white));
}

TEST_F(ResultsWindow, ShowsTheGraphsOfTheTreesThatItsMenuLoads) {
  Choose("Show_Results_Window");
  Load_Trees();
  EXPECT_EQ(Get<QLabel>("Label2", "Form6").text(),
            "3 clusters, matched nearest first within 1.5 m in plan:  M 3,  O 0,  C 0");
  Press_Show_Results();
  // Three dots of 5 x 5 pixels and one in the legend; the line may cover parts of the dots.
  EXPECT_GT(Pixels_Of(Shown(0), QColor(255, 0, 0)), 3 * 25);
  EXPECT_LE(Pixels_Of(Shown(0), QColor(255, 0, 0)), 4 * 25);
  EXPECT_GT(Pixels_Of(Shown(0), QColor(0, 255, 0)), 100);
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(ResultsWindow, TooFewTreesAreReportedInOneMessage) {
  w().Matching.ClusterCount = 2;
  Choose("Show_Results_Window");
  Load_Trees();
  Press_Show_Results();
  ASSERT_EQ(dialogs_.messages.size(), 1U);
  EXPECT_NE(dialogs_.messages[0].find("the regression of 2 points takes at least 3"),
            std::string::npos);
  EXPECT_TRUE(Window("Form6").isVisible());
}

TEST_F(ResultsWindow, ANewSizeLaysThePanesOutAndRedrawsThem) {
  Choose("Show_Results_Window");
  Load_Trees();
  Press_Show_Results();
  const int before = Get<PictureWidget>("Picture1(0)", "Form6").width();
  Window("Form6").resize(Window("Form6").width() - 300, Window("Form6").height() - 200);
  EXPECT_TRUE(
      Soon([&] { return Get<PictureWidget>("Picture1(0)", "Form6").width() < before - 20; }));
  EXPECT_GT(Pixels_Of(Shown(0), QColor(255, 0, 0)), 0);
}

TEST_F(ResultsWindow, TheTitleBarHidesItAndTheGraphsStay) {
  Choose("Show_Results_Window");
  Load_Trees();
  Press_Show_Results();
  Window("Form6").close();
  EXPECT_FALSE(Window("Form6").isVisible());
  Choose("Show_Results_Window");
  EXPECT_GT(Pixels_Of(Shown(1), QColor(0, 0, 255)), 0);
}

}  // namespace
}  // namespace sylvomex
