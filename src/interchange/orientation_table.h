// SPDX-License-Identifier: MIT
// Tables with the orientation of photographs. Each format states its units, axes, order of angles,
// direction of the rotation and origin of the principal point in docs/site-import.md.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "interchange/convention.h"
#include "interchange/photo_given.h"

namespace sylvomex {

enum class TableFormat {
  Plain,      // our own: name,width,height,f_mm,...
  Angles,     // label X Y Z omega phi kappa, the camera in a file of its own
  Frames,     // frames table, cameras table
  TextModel,  // images.txt, cameras.txt
  Shots       // shots.geojson, cameras.json
};

struct OrientationTable {
  TableFormat format = TableFormat::Plain;
  Convention stated;
  std::vector<PhotoGiven> photos;
  std::vector<std::string> passed_over;  // columns that might tell another convention
  std::string checksum;                  // of the table
  std::string cameras_checksum;          // of the camera file, empty without one
};

/// The name of a format on the command line: "plain", "angles", "frames", "text-model", "shots".
const char* Format_Name(TableFormat format);

/// What the cameras are to be read from: a text and its name in messages. Empty: none.
struct NamedText {
  std::string text;
  std::string name;
};

/// Reads a table. format: a Format_Name or empty, then it is found from the content. cameras: empty
/// where the table tells the cameras itself; a file of the usual name beside the table is taken.
/// Refused, with file and line, for what cannot be understood, two photographs of one name, a
/// photograph without camera, and lengths that are not positive.
OrientationTable Read_Orientation_Table(const std::string& file, const std::string& cameras,
                                        const std::string& format);

/// The same for texts at hand.
OrientationTable Parse_Orientation_Table(const NamedText& table, const NamedText& cameras,
                                         const std::string& format);

/// Brings centres that the table gives in degrees into a site's coordinate system. A centre that it
/// gives in map coordinates as well, less than 20 m away, stays as it is.
void Place_In_System(OrientationTable& table, const std::string& crs);

// The formats.
OrientationTable Parse_Plain_Table(const NamedText& table);
OrientationTable Parse_Angle_Table(const NamedText& table, const NamedText& cameras);
OrientationTable Parse_Frames_Table(const NamedText& table, const NamedText& cameras);
OrientationTable Parse_Text_Model(const NamedText& table, const NamedText& cameras);
OrientationTable Parse_Shots(const NamedText& table, const NamedText& cameras);

/// The camera of angle tables: calibration XML, OpenCV's XML or our own CSV.
CameraGiven Parse_Camera_File(const NamedText& cameras, Convention& stated);

}  // namespace sylvomex
