// SPDX-License-Identifier: MIT
// Random measuring, taken back step by step and done again: the block and its files are compared
// with a dump of every moment.
#include <random>
#include <vector>

#include "history/history_fixture.h"
#include "history/measuring_dump.h"

namespace sylvomex {
namespace {

constexpr int kSteps = 1000;

class RandomSteps {
 public:
  explicit RandomSteps(std::uint32_t seed) : generator_(seed) {}

  std::string Next() {
    static const std::vector<std::string> kPlain{"menu Point_Intersection",
                                                 "menu Center_to_xyz_click",
                                                 "menu Clear_ima",
                                                 "menu Clear_all",
                                                 "key U",
                                                 "key S",
                                                 "key 2",
                                                 "menu Draw_Polygon",
                                                 "menu Draw_XYZ_Polygon",
                                                 "menu Save_measured_point",
                                                 "press Form3.Accept_And_Save_Button",
                                                 "menu Epipolar_line",
                                                 "menu Capture_templates",
                                                 "menu Save_XY_Distances",
                                                 "press Form7.Command3",
                                                 "menu Zoom_1_2",
                                                 "menu Gamma_2",
                                                 "menu Get_elevation",
                                                 "press Form3.Cancel_Button",
                                                 "set MeasureDistancesCheckBox 1",
                                                 "set MeasureDistancesCheckBox 0",
                                                 "menu Cast_sun_ray",
                                                 "menu Read_plot_center_data",
                                                 "menu Reset_Point_Solution"};
    const int kind = Below(10);
    if (kind < 4) return Click("");
    if (kind == 4) return Click(Below(2) == 0 ? " right" : " right shift");
    if (kind == 5) return Click(Below(2) == 0 ? " shift" : " alt");
    if (kind == 6) return "set Text1(" + Text(Below(4)) + ") 0.00" + Text(Below(99));
    if (kind == 7) return "set Check1(" + Text(Below(2)) + ") " + Text(Below(2));
    if (kind == 8) return "move Picture1(0) " + Text(Below(100)) + " " + Text(Below(100));
    return kPlain[static_cast<std::size_t>(Below(static_cast<int>(kPlain.size())))];
  }

 private:
  static std::string Text(int number) { return std::to_string(number); }
  int Below(int end) { return static_cast<int>(generator_() % static_cast<unsigned>(end)); }
  std::string Click(const std::string& how) {
    return "click Picture1(" + Text(Below(2)) + ") " + Text(20 + Below(100)) + " " +
           Text(20 + Below(100)) + how;
  }

  std::mt19937 generator_;
};

struct Moment {
  std::string step;
  std::size_t before = 0, after = 0;  // hashes of the dumps
};

class RandomHistory : public HistoryTest, public testing::WithParamInterface<int> {
 protected:
  std::size_t Hash() { return std::hash<std::string>()(Block_Dump(w()) + Files_Dump(Folder())); }
};

TEST_P(RandomHistory, EveryStepIsTakenBackAndDoneAgainBitForBit) {
  RandomSteps steps(static_cast<std::uint32_t>(GetParam()));
  std::vector<Moment> moments;
  int played = 0;
  while (moments.size() < kSteps && ++played < 20 * kSteps) {
    const std::string step = steps.Next();
    const std::size_t before = Hash();
    const std::size_t count = history.Steps();
    Play(step);
    if (history.Steps() != count) {
      moments.push_back({step, before, Hash()});
    } else {
      ASSERT_TRUE(step.starts_with("move") || Hash() == before) << step << " left no step";
    }
  }
  ASSERT_EQ(moments.size(), static_cast<std::size_t>(kSteps));
  for (std::size_t i = moments.size(); i-- > 0;) {
    ASSERT_EQ(Play("undo"), EventOutcome::Done) << Transcript();
    ASSERT_EQ(Hash(), moments[i].before) << "undone: " << moments[i].step << ", step " << i;
  }
  EXPECT_EQ(Play("undo"), EventOutcome::Greyed);
  for (std::size_t i = 0; i < moments.size(); ++i) {
    ASSERT_EQ(Play("redo"), EventOutcome::Done) << Transcript();
    ASSERT_EQ(Hash(), moments[i].after) << "done again: " << moments[i].step << ", step " << i;
  }
  EXPECT_EQ(Play("redo"), EventOutcome::Greyed);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomHistory, testing::Values(1, 2, 3));

}  // namespace
}  // namespace sylvomex
