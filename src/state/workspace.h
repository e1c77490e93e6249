// SPDX-License-Identifier: MIT
// The block: the one process-wide state that every command reads and writes. It lives from start to
// exit; nothing in it is saved.
//
// Image and pane indices start at 0; image k always shows in pane k.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "evaluation/evaluation_state.h"
#include "heightmodels/raster_model.h"
#include "heightmodels/tin_model.h"
#include "imageblock/image_record.h"
#include "imageblock/pane_view.h"
#include "imageblock/raw_file_cache.h"
#include "lidar/point_file.h"
#include "lidar/pulse_table.h"
#include "matching/matching_state.h"
#include "platform/drive_map.h"
#include "platform/table.h"
#include "solver/camera_model.h"
#include "solver/measurement_records.h"
#include "solver/space_intersection.h"
#include "state/crown_state.h"
#include "state/followed_image.h"
#include "state/form1.h"
#include "state/form2.h"
#include "state/form3.h"
#include "state/form4.h"
#include "state/form5.h"
#include "state/form6.h"
#include "state/form7.h"
#include "state/form8.h"
#include "state/map_state.h"
#include "state/screen.h"
#include "stereo/stereo_state.h"

namespace sylvomex {

/// The options of the options window, with their start values.
struct Options {
  double EpipolarZDepth = 5.0;     // metres on either side of the solution
  double StepLength = 1.0;         // metres
  double RmseBeepOneLevel = 30.0;  // micrometres
  double RmseBeepTwoLevel = 60.0;
  std::int32_t RmseBeepOneFrequency = 1000;  // hertz
  std::int32_t RmseBeepTwoFrequency = 600;
  std::int32_t RmseBeepOneDuration = 200;  // milliseconds
  std::int32_t RmseBeepTwoDuration = 200;
  double IterationStopDX = 0.03;  // metres
  double IterationStopDY = 0.03;
  double IterationStopDZ = 0.03;
  double PlotTreesMinHeight = 10.0;  // metres
  bool IncludeTreeNumbers = false;
  bool PlotAllAfterSave = false;
  bool AutoEpipolar = true;
};

/// Check marks of the menus State and Window, named after the items.
struct MenuChecks {
  bool Draw_Polygon = false;
  bool Draw_XYZ_Polygon = false;
  bool Measure_Surface = false;
  bool Measure_Triplet = false;
  bool Measure_tree_tops_By_Matching = false;
  bool Measure_Tie_and_CP = false;
  Table<bool, 1, 6> Gamma;
};

struct CrownClicks {
  bool CrownClickOne = false;
  bool CrownClickTwo = false;
  double CrownPointOneX = 0, CrownPointOneY = 0;  // pane pixels, rounded to single precision
  double CrownPointTwoX = 0, CrownPointTwoY = 0;
  double CrownPixelSize = 0;  // metres on the horizontal plane of the solution
  double CrownWidth = 0;      // metres, computed with the pixel size
};

struct Workspace {
  Workspace(DriveMap drives, Screen& operator_screen)
      : Drives(std::move(drives)), screen(&operator_screen) {}

  DriveMap Drives;
  Screen* screen;

  std::string DataFolder;
  std::int16_t ImageCount = 0;
  Table<ImageRecord, 0, 700> ImageBlock;
  Table<RotationMatrix, 0, 700> RotationTable;
  Table<std::int16_t, 0, 700> ImageKinds;  // 1 plain image, 2 correlation image
  Table<ImageRecord, 0, 8> CorrelationRecords;
  Table<PaneView, 0, 8> PaneViews;
  Table<PaneView, 0, 8> CorrelationPaneViews;
  std::int16_t PaneWidth = 0;
  std::int16_t PaneHeight = 0;
  RawFileCache RawFiles;
  std::vector<FollowedImage*> FollowedImages;  // of the running commands

  Point3D Solution3D;
  bool SolutionValid = false;
  std::int16_t CurrentImage = -1;
  std::int16_t NextMeasurementNumber = 1;
  std::string ObservationFileName;
  ObservationRecord Observation;
  Table<XYDistanceEntry, 0, 8> XYDistanceEntries;
  Point3D CenterTarget;
  Point3D PanCenter;
  Point3D DefaultPanCenter;
  PlotLocation Plot;
  bool ImageAddDone = false;
  FixedText<16> ScratchBmpName;

  Options options;
  MenuChecks Menu;
  CrownClicks Crown;
  bool PolygonActive = false;
  bool TiePointFileLeftOpen = false;

  RasterModel RasterDem;
  RasterModel RasterChm;
  bool RasterDemLoaded = false;
  std::string LastHeightHeaderName;
  TinModel TinDem;
  TinModel TinChm;
  bool TinDemLoaded = false;

  PulseTable LidarPulses;  // pulses of the tile read last
  std::vector<LidarPoint> LidarPoints;
  double LidarPlotScale = 0;
  double PlotPageScale = 0;

  MatchingState Matching;
  EvaluationState Evaluation;
  CrownState Crowns;
  StereoState Stereo;
  MapState Map;

  Form1State Form1;
  Form2State Form2;
  Form3State Form3;
  Form4State Form4;
  Form5State Form5;
  Form6State Form6;
  Form7State Form7;
  Form8State Form8;
};

}  // namespace sylvomex
