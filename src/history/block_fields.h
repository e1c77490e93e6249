// SPDX-License-Identifier: MIT
// Which fields of the block are the state of measuring, part by part. Images, height models, lidar,
// the search for tree tops from its correlation images on, fitted crowns, the viewer and the map
// are no part of it.
#pragma once

#include "history/field_bytes.h"
#include "state/workspace.h"

namespace sylvomex {

/// Presents named fields to a visitor that wants none of the names.
template <class Visit>
auto Without_Names(Visit& visit) {
  return [&visit](const char*, auto& field) { visit(field); };
}

template <class Visit>
void Visit_Parts(Visit& visit, ObservationRecord& record) {
  Visit_Observation_Record(record, Without_Names(visit));
}
template <class Visit>
void Visit_Parts(Visit& visit, XYDistanceEntry& entry) {
  Visit_XYDistance_Entry(entry, Without_Names(visit));
}
template <class Visit>
void Visit_Parts(Visit& visit, TemplateRecord& record) {
  Visit_Template_Record(record, Without_Names(visit));
}
template <class Visit>
void Visit_Parts(Visit& visit, LocalTree& tree) {
  Visit_Local_Tree(tree, Without_Names(visit));
}
template <class Visit>
void Visit_Parts(Visit& visit, TemplateParameters& parameters) {
  visit(parameters.Tw, parameters.Zd, parameters.EZA);
}
template <class Visit>
void Visit_Parts(Visit& visit, PaneView& view) {
  visit(view.ViewCol, view.ViewRow, view.ViewWidth, view.ViewHeight, view.ZoomX, view.ZoomY);
}
template <class Visit>
void Visit_Parts(Visit& visit, Font& font) {
  visit(font.name, font.size, font.bold);
}

/// The solution with its flag and record, and the options, modes and clicks of the pointer.
template <class Visit>
void Visit_Solution_Fields(Visit& visit, Workspace& w) {
  visit(w.Solution3D, w.SolutionValid, w.CurrentImage, w.NextMeasurementNumber,
        w.ObservationFileName, w.Observation, w.CenterTarget, w.PanCenter, w.DefaultPanCenter,
        w.ScratchBmpName);
  visit(w.Plot.PlotNumber, w.Plot.X, w.Plot.Y, w.Plot.GroundZ, w.Plot.HeightAboveGround);
  Options& o = w.options;
  visit(o.EpipolarZDepth, o.StepLength, o.RmseBeepOneLevel, o.RmseBeepTwoLevel,
        o.RmseBeepOneFrequency, o.RmseBeepTwoFrequency, o.RmseBeepOneDuration,
        o.RmseBeepTwoDuration, o.IterationStopDX, o.IterationStopDY, o.IterationStopDZ,
        o.PlotTreesMinHeight, o.IncludeTreeNumbers, o.PlotAllAfterSave, o.AutoEpipolar);
  MenuChecks& m = w.Menu;
  visit(m.Draw_Polygon, m.Draw_XYZ_Polygon, m.Measure_Surface, m.Measure_Triplet,
        m.Measure_tree_tops_By_Matching, m.Measure_Tie_and_CP, m.Gamma);
  CrownClicks& c = w.Crown;
  visit(c.CrownClickOne, c.CrownClickTwo, c.CrownPointOneX, c.CrownPointOneY, c.CrownPointTwoX,
        c.CrownPointTwoY, c.CrownPixelSize, c.CrownWidth, w.PolygonActive);
}

template <class Visit>
void Visit_Distance_Fields(Visit& visit, Workspace& w) {
  visit(w.XYDistanceEntries);
}

/// The plot, the captured templates and the tree measured last.
template <class Visit>
void Visit_Tree_Fields(Visit& visit, Workspace& w) {
  MatchingState& m = w.Matching;
  visit(m.PlotCenter.PlotId, m.PlotCenter.MeshRotation, m.PlotCenter.PlotX, m.PlotCenter.PlotY,
        m.PlotCenter.PlotZ, m.ImagePolygon, m.Template, m.Parameters);
  CaptureSnapshotRecord& s = m.CaptureSnapshot;
  visit(s.Template, s.Solution, s.ModelTreeHeight, s.fHDOM, s.Hlow, s.Mesh, s.XYt, s.Rl);
  visit(w.Crowns.LocalTreeRecord, w.Crowns.LidarFitDone, w.Crowns.MultiSizeDone);
}

/// What a pane shows, but for its bitmap and its marks.
template <class Visit>
void Visit_Pane_Fields(Visit& visit, Workspace& w, int pane) {
  Picture& picture = w.Form1.Picture1(pane);
  visit(w.ImageKinds(pane), w.PaneViews(pane), w.CorrelationPaneViews(pane), picture.DrawWidth,
        picture.ForeColor, picture.font, picture.CurrentX, picture.CurrentY, picture.MousePointer,
        picture.PointerFile);
}

/// Texts, captions and values of a control, and whether it is enabled.
template <class Visit, class SomeControl>
void Visit_Content(Visit& visit, SomeControl& control) {
  visit(control.Enabled);
  if constexpr (requires { control.Caption; }) visit(control.Caption);
  if constexpr (requires { control.Text; }) visit(control.Text);
  if constexpr (requires { control.Value; }) visit(control.Value);
  if constexpr (requires { control.FontBold; }) {
    visit(control.ForeColor, control.FontSize, control.FontBold);
  }
}

template <class Visit>
void Visit_Place(Visit& visit, Control& control) {
  visit(control.Left, control.Top, control.Width, control.Height, control.Visible);
}

}  // namespace sylvomex
