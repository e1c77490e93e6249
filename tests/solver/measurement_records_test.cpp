// SPDX-License-Identifier: MIT
#include "solver/measurement_records.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sylvomex {
namespace {

TEST(ObservationRecord, HasRoomForNineImagesAndThirtyCharacters) {
  ObservationRecord record;
  record.ImageSlots(8) = 8;
  record.Rows(8) = 1.5F;
  EXPECT_THROW(record.ImageIds(9), RunTimeError);
  record.FreeText = std::string(31, 'a');
  EXPECT_EQ(record.FreeText.Trimmed(), std::string(30, 'a'));
}

TEST(ObservationRecord, NamesItsFieldsInTheirOrder) {
  std::vector<std::string> names;
  ObservationRecord record;
  Visit_Observation_Record(record, [&names](const char* name, auto&) { names.push_back(name); });
  EXPECT_EQ(names,
            (std::vector<std::string>{"MeasurementNumber", "X", "Y", "Z", "DemZ", "Rmse",
                                      "ImageCount", "TreeSpecies", "FreeInteger", "ImageSlots",
                                      "ImageIds", "Cols", "Rows", "FreeText"}));
}

TEST(XYDistanceEntry, NamesItsFieldsInTheirOrder) {
  std::vector<std::string> names;
  XYDistanceEntry entry;
  Visit_XYDistance_Entry(entry, [&names](const char* name, auto&) { names.push_back(name); });
  EXPECT_EQ(names,
            (std::vector<std::string>{"X", "Y", "Z", "TreeNumber", "FreeInteger", "Index",
                                      "ImageCode", "X0Obj", "X1Obj", "Y0Obj", "Y1Obj", "ScaleAtZ",
                                      "ObservedDistance", "ObsCoding", "SunElevation", "SunAzimuth",
                                      "ObjCamRayAzimuth", "AzimuthDifference", "OffNadirAngle"}));
}

}  // namespace
}  // namespace sylvomex
