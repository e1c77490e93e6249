// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include "session/block_values.h"
#include "session/value_text.h"

namespace sylvomex {

namespace {

struct SingleValue {
  const char* name;
  std::string (*text)(const Workspace& w);
};

struct TableValue {
  const char* name;
  std::string (*text)(const Workspace& w, long index);
};

std::string View_Text(const PaneView& view) {
  return Value_Texts(view.ViewCol, view.ViewRow, view.ViewWidth, view.ViewHeight, view.ZoomX,
                     view.ZoomY);
}

std::string Plot_Text(const PlotLocation& plot) {
  return Value_Texts(plot.PlotNumber, plot.X, plot.Y, plot.GroundZ, plot.HeightAboveGround);
}

// One row a name: the value of a member of the block.
template <auto Member>
std::string Of_Block(const Workspace& w) {
  return Value_Text(w.*Member);
}

template <auto Member>
std::string Of_Options(const Workspace& w) {
  return Value_Text(w.options.*Member);
}

constexpr std::array kSingleValues{
    SingleValue{"Solution3D", Of_Block<&Workspace::Solution3D>},
    SingleValue{"SolutionValid", Of_Block<&Workspace::SolutionValid>},
    SingleValue{"ImageCount", Of_Block<&Workspace::ImageCount>},
    SingleValue{"CurrentImage", Of_Block<&Workspace::CurrentImage>},
    SingleValue{"NextMeasurementNumber", Of_Block<&Workspace::NextMeasurementNumber>},
    SingleValue{"PaneWidth", Of_Block<&Workspace::PaneWidth>},
    SingleValue{"PaneHeight", Of_Block<&Workspace::PaneHeight>},
    SingleValue{"PanCenter", Of_Block<&Workspace::PanCenter>},
    SingleValue{"DefaultPanCenter", Of_Block<&Workspace::DefaultPanCenter>},
    SingleValue{"CenterTarget", Of_Block<&Workspace::CenterTarget>},
    SingleValue{"StereoSolution", Of_Block<&Workspace::StereoSolution>},
    SingleValue{"PlotLocation", [](const Workspace& w) { return Plot_Text(w.Plot); }},
    SingleValue{"ObservationFileName", Of_Block<&Workspace::ObservationFileName>},
    SingleValue{"RasterDemLoaded", Of_Block<&Workspace::RasterDemLoaded>},
    SingleValue{"EpipolarZDepth", Of_Options<&Options::EpipolarZDepth>},
    SingleValue{"StepLength", Of_Options<&Options::StepLength>},
    SingleValue{"RmseBeepOneLevel", Of_Options<&Options::RmseBeepOneLevel>},
    SingleValue{"RmseBeepTwoLevel", Of_Options<&Options::RmseBeepTwoLevel>},
    SingleValue{"RmseBeepOneFrequency", Of_Options<&Options::RmseBeepOneFrequency>},
    SingleValue{"RmseBeepTwoFrequency", Of_Options<&Options::RmseBeepTwoFrequency>},
    SingleValue{"RmseBeepOneDuration", Of_Options<&Options::RmseBeepOneDuration>},
    SingleValue{"RmseBeepTwoDuration", Of_Options<&Options::RmseBeepTwoDuration>},
    SingleValue{"IterationStopDX", Of_Options<&Options::IterationStopDX>},
    SingleValue{"IterationStopDY", Of_Options<&Options::IterationStopDY>},
    SingleValue{"IterationStopDZ", Of_Options<&Options::IterationStopDZ>},
    SingleValue{"PlotTreesMinHeight", Of_Options<&Options::PlotTreesMinHeight>},
    SingleValue{"IncludeTreeNumbers", Of_Options<&Options::IncludeTreeNumbers>},
    SingleValue{"PlotAllAfterSave", Of_Options<&Options::PlotAllAfterSave>},
    SingleValue{"AutoEpipolar", Of_Options<&Options::AutoEpipolar>},
};

constexpr std::array kTableValues{
    TableValue{"ImageKinds",
               [](const Workspace& w, long k) { return Value_Text(w.ImageKinds(k)); }},
    TableValue{"PaneViews", [](const Workspace& w, long k) { return View_Text(w.PaneViews(k)); }},
};

}  // namespace

std::optional<std::string> State_Value(const Workspace& w, const std::vector<NamePart>& name) {
  if (name.size() != 1) return std::nullopt;
  const auto is_named = [&](const auto& row) { return name.front().name == row.name; };
  if (const auto& index = name.front().index) {
    const auto row = std::ranges::find_if(kTableValues, is_named);
    if (row != kTableValues.end()) return row->text(w, *index);
    return std::nullopt;
  }
  const auto row = std::ranges::find_if(kSingleValues, is_named);
  if (row != kSingleValues.end()) return row->text(w);
  return std::nullopt;
}

}  // namespace sylvomex
