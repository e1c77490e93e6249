// SPDX-License-Identifier: MIT
// Everything that measuring changes as one text, written field by field, for comparing two moments.
#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "session/block_values.h"
#include "session/marks_text.h"
#include "state/workspace.h"
#include "support/temporary_folder.h"

namespace sylvomex {

inline void Dump_Controls(std::ostream& out, Form& form, const WindowDesign& design) {
  out << form.Title << ' ' << form.Visible << form.Enabled << '\n';
  Visit_Controls(form, design.controls, [&](const ControlRow& row, int index, AnyControl any) {
    std::visit(
        [&](auto control) {
          if constexpr (requires { control->Left; }) {
            out << row.name << index << ' ' << control->Left << ' ' << control->Top << ' '
                << control->Width << ' ' << control->Height << ' ' << control->Visible
                << control->Enabled;
            if constexpr (requires { control->Caption; }) out << " c " << control->Caption;
            if constexpr (requires { control->Text; }) out << " t " << control->Text;
            if constexpr (requires { control->Value; }) out << " v " << control->Value;
            if constexpr (requires { control->FontBold; }) {
              out << " f " << int{control->ForeColor.r} << ' ' << int{control->ForeColor.g} << ' '
                  << int{control->ForeColor.b} << ' ' << control->FontSize << control->FontBold;
            }
            out << '\n';
          }
        },
        any);
  });
}

inline void Dump_Pane(std::ostream& out, Workspace& w, int k) {
  const Picture& picture = w.Form1.Picture1(k);
  const PaneView& view = w.PaneViews(k);
  out << "pane " << k << ' ' << w.ImageKinds(k) << ' ' << view.ViewCol << ' ' << view.ViewRow << ' '
      << view.ViewWidth << ' ' << view.ViewHeight << ' ' << view.ZoomX << ' ' << view.ZoomY << ' '
      << picture.DrawWidth << ' ' << picture.CurrentX << ' ' << picture.CurrentY << ' '
      << picture.font.name << picture.font.size << picture.font.bold << '\n';
  if (picture.bitmap != nullptr) {
    const auto& bgr = picture.bitmap->bgr;
    out << std::hash<std::string_view>()({reinterpret_cast<const char*>(bgr.data()), bgr.size()})
        << '\n';
  }
  for (const Mark& mark : picture.marks) out << Mark_Text(picture, mark) << '\n';
}

inline void Dump_Values(std::ostream& out, Workspace& w) {
  for (const char* name :
       {"Solution3D", "SolutionValid", "CurrentImage", "NextMeasurementNumber",
        "ObservationFileName", "CenterTarget", "PanCenter", "DefaultPanCenter", "PlotCenter",
        "PlotLocation", "EpipolarZDepth", "StepLength", "AutoEpipolar", "Draw_Polygon",
        "Draw_XYZ_Polygon", "Measure_Surface", "Gamma_1"}) {
    out << name << ' ' << Block_Value(w, name) << '\n';
  }
  Visit_Observation_Record(w.Observation, [&](const char* name, auto&) {
    out << name << ' ' << Block_Value(w, std::string("ObservationRecord.") + name) << '\n';
  });
  for (int k = 0; k < 9; ++k) {
    const std::string index = "(" + std::to_string(k) + ").";
    Visit_XYDistance_Entry(w.XYDistanceEntries(k), [&](const char* name, auto&) {
      out << name << ' ' << Block_Value(w, "XYDistanceEntries" + index + name) << '\n';
    });
    Visit_Template_Record(w.Matching.Template(k), [&](const char* name, auto&) {
      out << name << ' ' << Block_Value(w, "Template" + index + name) << '\n';
    });
  }
  const CrownClicks& c = w.Crown;
  out << c.CrownClickOne << c.CrownClickTwo << ' ' << c.CrownPointOneX << ' ' << c.CrownPointOneY
      << ' ' << c.CrownPointTwoX << ' ' << c.CrownPointTwoY << ' ' << c.CrownPixelSize << ' '
      << c.CrownWidth << ' ' << w.PolygonActive << '\n';
}

/// The block, bits of reals included.
inline std::string Block_Dump(Workspace& w) {
  std::ostringstream out;
  out << std::hexfloat;
  Dump_Values(out, w);
  Dump_Controls(out, w.Form1, kForm1Design);
  Dump_Controls(out, w.Form2, kForm2Design);
  Dump_Controls(out, w.Form3, kForm3Design);
  Dump_Controls(out, w.Form7, kForm7Design);
  for (int k = 0; k < 9; ++k) Dump_Pane(out, w, k);
  return out.str();
}

/// The files of measuring that exist, with their content: polygons, templates and records.
inline std::string Files_Dump(const TemporaryFolder& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
    const std::string name = entry.path().filename().string();
    const bool wanted = name.ends_with("polyline.txt") || name.starts_with("test_") ||
                        name == "PointData.txt" || name == "MA2_2002_Widths.txt" ||
                        name == "imageobs.txt";
    if (!wanted || !entry.is_regular_file() || entry.file_size() == 0) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    files[entry.path().string()] = content.str();
  }
  std::string dump;
  for (const auto& [name, content] : files) dump += name + "\n" + content + "\n";
  return dump;
}

}  // namespace sylvomex
