// SPDX-License-Identifier: MIT
#include "history/history.h"

#include "history/history_fixture.h"
#include "history/measuring_dump.h"

namespace sylvomex {
namespace {

constexpr const char* kObservations = "c/data/Lehtomaa/Pistedata/PointData.txt";
constexpr const char* kTaken = "c/data/Lehtomaa/Pistedata/PointData.txt.taken";

TEST_F(HistoryTest, TextsTellWhatWouldBeTakenBack) {
  Play("click Picture1(1) 50 60");
  EXPECT_EQ(history.Undo_Text(), "Click in image 1");
  Play("set Text1(3) 0.5");
  EXPECT_EQ(history.Undo_Text(), "y of image 1");
  Play("key U");
  EXPECT_EQ(history.Undo_Text(), "Key U");
  Play("key I ctrl");
  EXPECT_EQ(history.Undo_Text(), "Point Intersection, N>1 images");
  Play("undo");
  EXPECT_EQ(history.Undo_Text(), "Key U");
  EXPECT_EQ(history.Redo_Text(), "Point Intersection, N>1 images");
}

TEST_F(HistoryTest, AnEventThatChangesNothingIsNoStep) {
  const std::size_t steps = history.Steps();
  Play("key Q");
  Play("move Picture1(0) 5 6");
  Play("set Check1(0) 0");
  EXPECT_EQ(history.Steps(), steps);
}

TEST_F(HistoryTest, ANewSizeOfTheWindowIsNoStep) {
  Play("click Picture1(0) 50 60");
  Play("resize Form1 500 300");
  EXPECT_EQ(history.Undo_Text(), "Click in image 0");
}

TEST_F(HistoryTest, LookingAtTheOptionsIsNoStepAndApplyingThemIs) {
  Play("click Picture1(0) 50 60");
  Play("key O ctrl");
  Play("menu Form2.close_window");
  EXPECT_EQ(history.Undo_Text(), "Click in image 0");
  Play("menu Open_Options_Window");
  Play("set Form2.Text1 8");
  Play("press Form2.Apply_Options_Changes");
  EXPECT_EQ(w().options.EpipolarZDepth, 8);
  EXPECT_EQ(history.Undo_Text(), "Apply changes");
  Play("undo");
  EXPECT_EQ(w().options.EpipolarZDepth, 5);
}

TEST_F(HistoryTest, AClickThatArrivesDuringAMovementIsAStep) {
  const auto move = Event_Of_Step(Split_Line("move Picture1(0) 5 6"));
  const std::size_t steps = history.Steps();
  history.Before(w(), move);
  Play("click Picture1(1) 50 60");
  Play("click Picture1(0) 40 30");
  history.After(w());
  EXPECT_EQ(history.Steps(), steps + 2);
  EXPECT_EQ(history.Undo_Text(), "Click in image 0");
  Play("undo");
  EXPECT_EQ(w().Form1.Check1(0).Value, 0);
  EXPECT_EQ(w().Form1.Check1(1).Value, 1);
}

TEST_F(HistoryTest, AnImageRemovedDuringAMovementEndsTheHistory) {
  Play("click Picture1(0) 50 60");
  history.Before(w(), Event_Of_Step(Split_Line("move Picture1(0) 5 6")));
  Answer("1");
  Play("menu Remove_an_image");
  history.After(w());
  EXPECT_EQ(w().ImageCount, 1);
  EXPECT_EQ(Play("undo"), EventOutcome::Greyed);
}

TEST_F(HistoryTest, ANewStepEndsWhatCouldBeRedone) {
  Play("click Picture1(0) 50 60");
  Play("undo");
  Play("set Text4 17");
  EXPECT_EQ(history.Redo_Text(), "");
  EXPECT_EQ(Play("redo"), EventOutcome::Greyed);
}

TEST_F(HistoryTest, ErasedMarksComeBack) {
  Play("click Picture1(0) 50 60");
  const auto cross = w().Form1.Picture1(0).marks;
  Play("click Picture1(0) 20 20");
  Play("undo");
  const auto& marks = w().Form1.Picture1(0).marks;
  ASSERT_EQ(marks.size(), cross.size());
  EXPECT_EQ(marks[0].x1, cross[0].x1);
  EXPECT_EQ(marks[0].y1, cross[0].y1);
}

TEST_F(HistoryTest, AZoomIsTakenBackWithItsPicture) {
  Play("click Picture1(0) 50 60");
  const auto bitmap = w().Form1.Picture1(0).bitmap;
  Play("click Picture1(0) 50 60 shift");
  EXPECT_EQ(w().PaneViews(0).ZoomX, 2);
  Play("undo");
  EXPECT_EQ(w().PaneViews(0).ZoomX, 1);
  EXPECT_EQ(w().Form1.Picture1(0).bitmap, bitmap);
}

TEST_F(HistoryTest, AfterAResizeValuesComeBackAndPanesStay) {
  Play("click Picture1(0) 50 60");
  Play("resize Form1 500 300");
  const auto bitmap = w().Form1.Picture1(0).bitmap;
  const double width = w().Form1.Picture1(0).Width;
  Play("undo");
  Play("undo");
  EXPECT_EQ(w().Form1.Text1(0).Text, "");
  EXPECT_EQ(w().Form1.Check1(0).Value, 0);
  EXPECT_EQ(w().Form1.Picture1(0).bitmap, bitmap);
  EXPECT_EQ(w().Form1.Picture1(0).Width, width);
}

TEST_F(HistoryTest, AChangeOfTheImageSetEndsTheHistory) {
  Play("click Picture1(0) 50 60");
  Answer("1");
  Play("menu Remove_an_image");
  EXPECT_EQ(w().ImageCount, 1);
  EXPECT_EQ(Play("undo"), EventOutcome::Greyed);
}

TEST_F(HistoryTest, APolygonVertexLeavesThePolygonFiles) {
  Play("menu Draw_Polygon");
  Play("click Picture1(0) 20 20 right");
  const std::string first = Read("c/data/polyline.txt");
  Play("click Picture1(0) 60 20");
  EXPECT_NE(Read("c/data/polyline.txt"), first);
  Play("undo");
  EXPECT_EQ(Read("c/data/polyline.txt"), first);
  Play("undo");
  EXPECT_FALSE(w().PolygonActive);
  EXPECT_FALSE(std::filesystem::exists(Folder().Path() / "c/data/polyline.txt"));
  Play("redo");
  EXPECT_EQ(Read("c/data/polyline.txt"), first);
}

TEST_F(HistoryTest, APolygonFileOfSomebodyElseIsNotOverwritten) {
  Play("menu Draw_Polygon");
  Play("click Picture1(0) 20 20 right");
  Folder().Write("c/data/polyline.txt", "1,2\n");
  const std::string before = Block_Dump(w());
  EXPECT_EQ(Play("undo"), EventOutcome::Error);
  EXPECT_EQ(Read("c/data/polyline.txt"), "1,2\n");
  EXPECT_EQ(Block_Dump(w()), before);
  EXPECT_NE(Transcript().find("polyline.txt, it has been changed by something else since"),
            std::string::npos)
      << Transcript();
}

TEST_F(HistoryTest, UndoingASaveMovesItsLineAndBringsTheObservationsBack) {
  Save_A_Point(50);
  const std::string line = Observations();
  ASSERT_TRUE(line.starts_with("1,"));
  EXPECT_EQ(w().NextMeasurementNumber, 2);
  Play("undo");
  EXPECT_EQ(Observations(), "");
  EXPECT_EQ(w().NextMeasurementNumber, 1);
  EXPECT_NE(w().Form1.Text1(0).Text, "");
  EXPECT_TRUE(w().Form3.Visible);
  EXPECT_NE(Read(kTaken).find(line), std::string::npos);
  Play("redo");
  EXPECT_EQ(Observations(), line);
  EXPECT_EQ(w().NextMeasurementNumber, 2);
  EXPECT_FALSE(w().Form3.Visible);
}

TEST_F(HistoryTest, TheLastSavedLineIsTakenBackAndPutBackByRedo) {
  Save_A_Point(50);
  Save_A_Point(70);
  const std::string both = Observations();
  EXPECT_EQ(Play("takeback"), EventOutcome::Done);
  EXPECT_EQ(w().NextMeasurementNumber, 2);
  EXPECT_EQ(w().Form1.Label2.Caption, "Measurement number: 2");
  const std::string one = Observations();
  EXPECT_EQ(both.substr(0, one.size()), one);
  EXPECT_TRUE(both.substr(one.size()).starts_with("2,"));
  EXPECT_NE(Read(kTaken).find("# taken back 2"), std::string::npos);
  EXPECT_NE(Read(kTaken).find(both.substr(one.size())), std::string::npos);
  EXPECT_EQ(Play("redo"), EventOutcome::Done);
  EXPECT_EQ(Observations(), both);
  EXPECT_EQ(w().NextMeasurementNumber, 3);
  EXPECT_EQ(Play("redo"), EventOutcome::Greyed);
}

TEST_F(HistoryTest, LinesAreTakenBackOneAfterTheOther) {
  Save_A_Point(50);
  Save_A_Point(70);
  Play("takeback");
  Play("takeback");
  EXPECT_EQ(Observations(), "");
  EXPECT_EQ(w().NextMeasurementNumber, 1);
  EXPECT_EQ(Play("takeback"), EventOutcome::Greyed);
  Play("undo");
  Play("undo");
  EXPECT_EQ(w().NextMeasurementNumber, 3);
  EXPECT_EQ(std::ranges::count(Observations(), '\n'), 2);
}

TEST_F(HistoryTest, TakingBackAndSavingAgainUsesTheNumberAgain) {
  Save_A_Point(50);
  Play("takeback");
  Save_A_Point(70);
  EXPECT_TRUE(Observations().starts_with("1,"));
  EXPECT_EQ(std::ranges::count(Observations(), '\n'), 1);
}

TEST_F(HistoryTest, ALineThatIsNotTheLastAnyMoreStays) {
  Save_A_Point(50);
  const std::string content = Observations() + "77,1.00,\n";
  Folder().Write(kObservations, content);
  EXPECT_EQ(Play("takeback"), EventOutcome::Error);
  EXPECT_EQ(Play("undo"), EventOutcome::Error);
  EXPECT_EQ(Observations(), content);
  EXPECT_EQ(w().NextMeasurementNumber, 2);
  EXPECT_NE(Transcript().find("its last line is not the one that was saved here"),
            std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(Folder().Path() / kTaken));
}

TEST_F(HistoryTest, ALineOfAnotherObservationFileIsNotTheLastOfThisOne) {
  Save_A_Point(50);
  w().ObservationFileName = "c:\\data\\other.txt";
  EXPECT_EQ(Play("takeback"), EventOutcome::Greyed);
}

TEST_F(HistoryTest, WithoutAHistoryUndoIsAnUnknownName) {
  OperatorEvent undo;
  undo.kind = OperatorEvent::Kind::Undo;
  EXPECT_THROW(Handle_Event_In(nullptr, w(), undo), UnknownName);
}

TEST_F(HistoryTest, TheOldestStepsMakeRoom) {
  for (std::size_t i = 0; i < kMostSteps + 10; ++i) {
    Play("set Text4 " + std::to_string(i + 100));
  }
  EXPECT_EQ(history.Steps(), kMostSteps);
  for (std::size_t i = 0; i < kMostSteps; ++i) ASSERT_EQ(Play("undo"), EventOutcome::Done);
  EXPECT_EQ(w().Form1.Text4.Text, "109");
}

}  // namespace
}  // namespace sylvomex
