// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include "session/block_values.h"
#include "session/value_text.h"
#include "state/workspace.h"

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

std::string Plot_Center_Text(const PlotCenterRecord& plot) {
  return Value_Texts(plot.PlotId, plot.MeshRotation, plot.PlotX, plot.PlotY, plot.PlotZ);
}

std::string Mesh_Point_Text(const Point3D& point) { return Value_Texts(point.X, point.Y, point.Z); }

// One row per name: the value of a member of the block.
template <auto Member>
std::string Of_Block(const Workspace& w) {
  return Value_Text(w.*Member);
}

template <auto Member>
std::string Of_Matching(const Workspace& w) {
  return Value_Text(w.Matching.*Member);
}

// An entry of one of the growing matching tables.
template <auto Member>
const auto& Entry_Of_Matching(const Workspace& w, long index) {
  const auto& table = w.Matching.*Member;
  const auto count = static_cast<long>(table.size());
  if (index < 0 || index >= count) Throw_Subscript(index, 0, count - 1);
  return table[static_cast<std::size_t>(index)];
}

template <auto Member>
std::string Of_Evaluation(const Workspace& w) {
  return Value_Text(w.Evaluation.*Member);
}

template <auto Member>
std::string Of_Map(const Workspace& w) {
  return Value_Text(w.Map.View.*Member);
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
    SingleValue{"StereoSolution",
                [](const Workspace& w) { return Value_Text(w.Stereo.StereoSolution); }},
    SingleValue{"PlotLocation", [](const Workspace& w) { return Plot_Text(w.Plot); }},
    SingleValue{"PlotCenter",
                [](const Workspace& w) { return Plot_Center_Text(w.Matching.PlotCenter); }},
    SingleValue{"PlotRadius", Of_Matching<&MatchingState::PlotRadius>},
    SingleValue{"ModelTreeHeight", Of_Matching<&MatchingState::ModelTreeHeight>},
    SingleValue{"ClusterCount", Of_Matching<&MatchingState::ClusterCount>},
    SingleValue{"ClusterParameters", Of_Matching<&MatchingState::ClusterParameters>},
    SingleValue{"MatchCount", Of_Evaluation<&EvaluationState::MatchCount>},
    SingleValue{"OmittedCount", Of_Evaluation<&EvaluationState::OmittedCount>},
    SingleValue{"CommissionCount", Of_Evaluation<&EvaluationState::CommissionCount>},
    SingleValue{"ObservationFileName", Of_Block<&Workspace::ObservationFileName>},
    SingleValue{"RasterDemLoaded", Of_Block<&Workspace::RasterDemLoaded>},
    SingleValue{"TinDemLoaded", Of_Block<&Workspace::TinDemLoaded>},
    SingleValue{"LidarPlotScale", Of_Block<&Workspace::LidarPlotScale>},
    SingleValue{"MapZoom", Of_Map<&MapView::MapZoom>},
    SingleValue{"MapViewCol", Of_Map<&MapView::MapViewCol>},
    SingleValue{"MapViewRow", Of_Map<&MapView::MapViewRow>},
    SingleValue{"MapPaneWidth", Of_Map<&MapView::MapPaneWidth>},
    SingleValue{"MapPaneHeight", Of_Map<&MapView::MapPaneHeight>},
    SingleValue{"MapFirstCol", Of_Map<&MapView::MapFirstCol>},
    SingleValue{"MapLastCol", Of_Map<&MapView::MapLastCol>},
    SingleValue{"MapFirstRow", Of_Map<&MapView::MapFirstRow>},
    SingleValue{"MapLastRow", Of_Map<&MapView::MapLastRow>},
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
    TableValue{"ClusterSum", [](const Workspace& w,
                                long i) { return Mesh_Point_Text(w.Matching.ClusterSum(i)); }},
    TableValue{"ClusterWeight",
               [](const Workspace& w, long i) { return Value_Text(w.Matching.ClusterWeight(i)); }},
    TableValue{"ClusterInfo",
               [](const Workspace& w, long i) {
                 const ClusterInfoRecord& info = w.Matching.ClusterInfo(i);
                 return Value_Texts(info.Reserved, info.Members);
               }},
    TableValue{"MeshPoints",
               [](const Workspace& w, long j) {
                 return Mesh_Point_Text(Entry_Of_Matching<&MatchingState::MeshPoints>(w, j));
               }},
    TableValue{"PointScore",
               [](const Workspace& w, long j) {
                 return Value_Text(Entry_Of_Matching<&MatchingState::PointScore>(w, j));
               }},
    TableValue{"SortIndex",
               [](const Workspace& w, long j) {
                 return Value_Text(Entry_Of_Matching<&MatchingState::SortIndex>(w, j));
               }},
    TableValue{"MatchIndex",
               [](const Workspace& w, long i) {
                 return Value_Text(Entry_From_One(w.Evaluation.MatchIndex, i));
               }},
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
