// SPDX-License-Identifier: MIT
#include "commands/stereo/stereo_sequence.h"

#include "state/workspace.h"

#include <string>
#include <vector>

#include "commands/stereo/recentring.h"
#include "imageblock/bitmap_file.h"
#include "panes/pane_drawing.h"
#include "panes/picture_painter.h"
#include "platform/list_reader.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr const char* kFlightFile = "c:\\data\\flightpoints.txt";
constexpr const char* kFrameFolder = "f:\\temp\\AVI\\";
constexpr double kTextMargin = 10;  // pixels
constexpr double kTextSize = 12;    // points

struct FlightPoint {
  Point3D at;
  std::string word;
};

std::vector<FlightPoint> Read_Flight(const FilePath& file) {
  std::vector<FlightPoint> flight;
  ListReader reader(file);
  while (!reader.At_End()) {
    FlightPoint point;
    reader.Skip_Empty_Lines();
    reader.Read_Text();  // its id
    point.at.X = reader.Read_Double();
    point.at.Y = reader.Read_Double();
    point.at.Z = reader.Read_Double();
    point.word = reader.Read_Text();
    flight.push_back(std::move(point));
  }
  return flight;
}

void Tell_Size(Workspace& w) {
  w.screen->Message_Box("Kuvan leveys on : " + Plain_Text(std::int32_t{w.Stereo.StereoWidth}));
  w.screen->Message_Box("Kuvan kork on : " + Plain_Text(std::int32_t{w.Stereo.StereoHeight}));
}

void Print_On_Frame(Picture& picture, const std::string& text) {
  picture.font = {"Arial", kTextSize, false};
  picture.ForeColor = kWhite;
  picture.CurrentX = kTextMargin;
  picture.CurrentY = kTextMargin;
  Print_Text(picture, text);
}

void Export_Frame(Workspace& w, const FlightPoint& point, std::int32_t number) {
  Recentre_At(w, point.at);
  w.Form5.Title = "SYLVOMEX Anaglyph stereo window , image: " + Plain_Text(number);
  Print_On_Frame(w.Form5.Picture1, point.word + " " + Plain_Text(number));
  const std::string name = kFrameFolder + Format(number, "0000") + ".bmp";
  Replace_Bitmap(w.Drives.Locate(name), Painted_Picture(w.Form5.Picture1));
}

}  // namespace

void Import_And_Export_BMPs(Workspace& w) {
  Require_Open_Pair(w);
  const std::vector<FlightPoint> flight = Read_Flight(w.Drives.Locate(kFlightFile));
  Tell_Size(w);
  std::int32_t number = 0;
  for (const FlightPoint& point : flight) {
    Export_Frame(w, point, ++number);
    w.screen->Service_Events();
    if (w.screen->Message_Box("Wanna continue", Buttons::OkCancel) != Answer::Ok) return;
  }
}

}  // namespace sylvomex
