// SPDX-License-Identifier: MIT
#include "commands/evaluation/results_window.h"

#include <algorithm>

#include "commands/evaluation/evaluated_plot.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

TEST_F(EvaluatedPlot, TheMenuItemOpensTheWindow) {
  EXPECT_EQ(Value("Form6.Visible"), "0");
  Handle(OperatorEvent::Kind::Menu, "Form1", "Show_Results_Window");
  EXPECT_EQ(Value("Form6.Visible"), "-1");
  EXPECT_EQ(Value("Form6.Caption"), "Matching results");
  EXPECT_EQ(Value("Form6.Show_Results"), "Show Results");
}

TEST_F(EvaluatedPlot, TheDialogAsksForABinaryFieldTreeFile) {
  Load_Trees();
  ASSERT_EQ(screen.file_questions.size(), 1U);
  EXPECT_EQ(screen.file_questions[0].title, "Binary field tree file");
  EXPECT_EQ(screen.file_questions[0].filter, "Tree data files (*.bin)|*.bin");
}

TEST_F(EvaluatedPlot, LoadingFillsTheTablesByClass) {
  Load_Trees();
  EXPECT_EQ(Value("MatchCount"), "3");
  EXPECT_EQ(Value("OmittedCount"), "1");
  EXPECT_EQ(Value("CommissionCount"), "2");
  const char* const wanted[] = {"1", "2", "3", "4", "4", "5"};
  for (int i = 1; i <= 6; ++i) {
    EXPECT_EQ(Value("MatchIndex(" + std::to_string(i) + ")"), wanted[i - 1]);
  }
  EXPECT_EQ(Value("ReferenceTree.Count"), "4");
  EXPECT_EQ(Value("ReferenceTree(1).TreeDiameter"), "200");
  EXPECT_EQ(Value("ReferenceTree(2).TreeHeight"), "20");
  EXPECT_EQ(Value("ReferenceTree(2).TreeX"), "1005");
  EXPECT_EQ(Value("ReferenceTree(3).ClusterY"), "2006");
  EXPECT_EQ(Value("ReferenceTree(4).ClusterZ"), "0");
  EXPECT_TRUE(screen.messages.empty());
}

TEST_F(EvaluatedPlot, TheWindowShowsTreesClustersAndCounts) {
  Load_Trees();
  EXPECT_EQ(Value("Form6.Label1"), "4 reference trees of c:\\data\\trees.bin");
  EXPECT_EQ(Value("Form6.Label2"),
            "5 clusters, matched nearest first within 1.5 m in plan:  M 3,  O 1,  C 2");
}

TEST_F(EvaluatedPlot, EntriesOutsideTheTablesAreRejected) {
  Load_Trees();
  EXPECT_THROW(Value("MatchIndex(0)"), RunTimeError);
  EXPECT_THROW(Value("MatchIndex(7)"), RunTimeError);
  EXPECT_THROW(Value("ReferenceTree(5).TreeX"), RunTimeError);
}

class BadTreeFile : public EvaluatedPlot {
 protected:
  // Expects one error and an unchanged state.
  void Expect_Refused(const std::string& reason) {
    ASSERT_EQ(screen.errors.size(), 1U);
    EXPECT_EQ(screen.errors[0], "Load_Reference_Trees: " + reason);
    Expect_As_Before();
  }

  void Expect_As_Before() {
    EXPECT_EQ(Value("MatchCount"), "3");
    EXPECT_EQ(Value("MatchIndex(6)"), "5");
    EXPECT_EQ(Value("ReferenceTree(1).TreeHeight"), "10");
  }
};

TEST_F(BadTreeFile, OfNoTreesLeavesTablesAndCounts) {
  Load_Trees();
  folder.Write("c/data/none.bin", Field_Tree_Bytes({}));
  Load_Trees("c:\\data\\none.bin");
  Expect_Refused("Bad content: c:\\data\\none.bin holds no tree");
}

TEST_F(BadTreeFile, OfAnotherKindLeavesTablesAndCounts) {
  Load_Trees();
  folder.Write("c/data/plot.txt", "not a tree");
  Load_Trees("c:\\data\\plot.txt");
  Expect_Refused(
      "Bad content: c:\\data\\plot.txt is no field tree file: it has 10 bytes, its header alone "
      "takes 60");
}

TEST_F(BadTreeFile, ThatIsMissingLeavesTablesAndCounts) {
  Load_Trees();
  Load_Trees("c:\\data\\missing.bin");
  Expect_Refused("File not found: c:\\data\\missing.bin");
}

TEST_F(BadTreeFile, ThatWasNotChosenEndsQuietlyAndLeavesTablesAndCounts) {
  Load_Trees();
  screen.files.push_back(std::nullopt);
  Handle(OperatorEvent::Kind::Menu, "Form6", "Load_Reference_Trees");
  EXPECT_TRUE(screen.errors.empty());
  Expect_As_Before();
}

TEST_F(BadTreeFile, AClusterWithoutWeightLeavesTablesAndCounts) {
  Load_Trees();
  w.Matching.ClusterWeight(4) = 0;
  Load_Trees();
  Expect_Refused("Division by zero: cluster 4 has no weight");
}

TEST_F(EvaluatedPlot, WithoutASearchAllTreesAreOmitted) {
  w.Matching.ClusterCount = 0;
  Load_Trees();
  EXPECT_EQ(Value("MatchCount"), "0");
  EXPECT_EQ(Value("OmittedCount"), "4");
  EXPECT_EQ(Value("CommissionCount"), "0");
}

TEST_F(EvaluatedPlot, LoadingErasesGraphsOfAnEarlierMatching) {
  Load_Trees();
  Show();
  EXPECT_FALSE(Pane(0).marks.empty());
  Load_Trees();
  for (int k = 0; k <= 5; ++k) EXPECT_TRUE(Pane(k).marks.empty()) << k;
}

TEST_F(EvaluatedPlot, FewerThanThreeMatchedTreesEndTheResultsWithOneError) {
  Set_Clusters({{1000.3, 2000.4, 159}, {1005, 2000, 168}});
  Load_Trees();
  Show();
  EXPECT_EQ(screen.errors,
            std::vector<std::string>{"Show_Results_Click: Division by zero: the regression of 2 "
                                     "points takes at least 3"});
  EXPECT_TRUE(Pane(1).marks.empty());
}

TEST_F(EvaluatedPlot, ResultsWithoutReferenceTreesEndWithOneError) {
  Show();
  EXPECT_EQ(screen.errors,
            std::vector<std::string>{"Show_Results_Click: Division by zero: the regression of 0 "
                                     "points takes at least 3"});
}

class ResultsLayout : public EvaluatedPlot {
 protected:
  void Resize(double width, double height) {
    OperatorEvent event;
    event.kind = OperatorEvent::Kind::Resize;
    event.form = "Form6";
    event.x = width;
    event.y = height;
    Handle_Event(w, event);
  }

  void Expect_Pane(int k, double left, double top, double width, double height) {
    EXPECT_EQ(Pane(k).Left, left) << k;
    EXPECT_EQ(Pane(k).Top, top) << k;
    EXPECT_EQ(Pane(k).Width, width) << k;
    EXPECT_EQ(Pane(k).Height, height) << k;
  }
};

// By hand: (1280 - 12) / 3 - 20 = 402.7 is less than (1024 - 125) / 2; the grid of 3 x 422 + 6
// leaves 4 on either side.
TEST_F(ResultsLayout, ANarrowWindowGivesPanesOfAThirdOfItsWidth) {
  Resize(1280, 1024);
  Expect_Pane(0, 4, 96, 422, 402);
  Expect_Pane(2, 4 + 2 * 425, 96, 422, 402);
  Expect_Pane(4, 4 + 425, 96 + 405, 422, 402);
}

// (1440 - 125) / 2 = 657.5 is less than (2560 - 12) / 3 - 20.
TEST_F(ResultsLayout, AWideWindowGivesPanesOfHalfItsHeightInTheMiddle) {
  Resize(2560, 1440);
  Expect_Pane(0, 261, 96, 677, 657);
  Expect_Pane(5, 261 + 2 * 680, 96 + 660, 677, 657);
}

TEST_F(ResultsLayout, ACancelledLoadingKeepsTheFormerTables) {
  Load_Trees();
  folder.Write("c/data/one.bin", Field_Tree_Bytes({Field_Tree(1000, 2000, 150, 10, 200)}));
  screen.files.emplace_back("c:\\data\\one.bin");
  CancelAfter watcher(1);
  const WatchedWork watched(&watcher);
  EXPECT_EQ(Handle(OperatorEvent::Kind::Menu, "Form6", "Load_Reference_Trees"),
            EventOutcome::Cancelled);
  EXPECT_EQ(Value("MatchCount"), "3");
  EXPECT_EQ(Value("ReferenceTree.Count"), "4");
}

TEST_F(ResultsLayout, ACancelledDrawingLeavesNoGraphAndCanBeRepeated) {
  Load_Trees();
  {
    CancelAfter watcher(2);
    const WatchedWork watched(&watcher);
    EXPECT_EQ(Handle(OperatorEvent::Kind::Press, "Form6", "Show_Results"), EventOutcome::Cancelled);
  }
  for (int k = 0; k <= 5; ++k) EXPECT_TRUE(Pane(k).marks.empty()) << k;
  Show();
  for (int k = 0; k <= 5; ++k) EXPECT_FALSE(Pane(k).marks.empty()) << k;
}

TEST_F(ResultsLayout, TheDesignMatchesTheLayoutOfItsOwnSize) {
  const Form6State before = w.Form6;
  Resize(before.ClientWidth, before.ClientHeight);
  for (int k = 0; k <= 5; ++k) {
    const Picture& pane = before.Picture1(k);
    Expect_Pane(k, pane.Left, pane.Top, pane.Width, pane.Height);
  }
  EXPECT_EQ(w.Form6.Label4.Top, before.Label4.Top);
  EXPECT_EQ(w.Form6.Label1.Left, before.Label1.Left);
}

TEST_F(ResultsLayout, ANewSizeRedrawsTheGraphs) {
  Load_Trees();
  Show();
  Resize(2560, 1440);
  EXPECT_EQ(Texts(1).at(0), "XY-error vectors of matched trees");
  EXPECT_TRUE(std::ranges::any_of(Pane(1).marks, [](const Mark& mark) {
    return mark.kind == Mark::Kind::Point && mark.x1 == 677 / 2.0 && mark.y1 == 657 / 2.0;
  }));  // tree 1 in the middle of the new pane
  EXPECT_TRUE(screen.errors.empty());
}

TEST_F(ResultsLayout, ANewSizeDrawsNothingThatWasNotShown) {
  Load_Trees();
  Resize(2560, 1440);
  EXPECT_TRUE(Pane(0).marks.empty());
}

}  // namespace
}  // namespace sylvomex
