// SPDX-License-Identifier: MIT
// The two kinds of measurement record; each is written as one line of text.
#pragma once

#include <cstdint>

#include "platform/fixed_text.h"
#include "platform/table.h"

namespace sylvomex {

/// The current point with its quality and up to nine image observations.
struct ObservationRecord {
  std::int16_t MeasurementNumber = 0;
  double X = 0, Y = 0, Z = 0;    // metres
  float DemZ = 0;                // raster elevation at X, Y, metres
  float Rmse = 0;                // micrometres
  std::uint8_t ImageCount = 0;   // images used, 0 to 9
  std::uint8_t TreeSpecies = 0;  // free class code
  std::int16_t FreeInteger = 0;
  Table<std::uint8_t, 0, 8> ImageSlots;  // image index of each observation
  Table<std::int32_t, 0, 8> ImageIds;
  Table<float, 0, 8> Cols;  // full-image column of each observation
  Table<float, 0, 8> Rows;  // full-image row from the bottom
  FixedText<30> FreeText;
};

template <class Record, class Visitor>
void Visit_Observation_Record(Record& record, Visitor&& visit) {
  visit("MeasurementNumber", record.MeasurementNumber);
  visit("X", record.X);
  visit("Y", record.Y);
  visit("Z", record.Z);
  visit("DemZ", record.DemZ);
  visit("Rmse", record.Rmse);
  visit("ImageCount", record.ImageCount);
  visit("TreeSpecies", record.TreeSpecies);
  visit("FreeInteger", record.FreeInteger);
  visit("ImageSlots", record.ImageSlots);
  visit("ImageIds", record.ImageIds);
  visit("Cols", record.Cols);
  visit("Rows", record.Rows);
  visit("FreeText", record.FreeText);
}

/// The width of one object in one image; entry 0 also holds the values common to the record.
struct XYDistanceEntry {
  double X = 0, Y = 0, Z = 0;    // solution when the width was measured, metres
  std::int16_t TreeNumber = 0;   // entry 0 only
  std::int16_t FreeInteger = 0;  // entry 0 only
  std::uint8_t Index = 0;        // image slot
  std::int32_t ImageCode = 0;
  double X0Obj = 0;  // first end, on the horizontal plane at Z, metres
  double X1Obj = 0;  // second end
  double Y0Obj = 0;
  double Y1Obj = 0;
  float ScaleAtZ = 0;
  float ObservedDistance = 0;  // metres
  FixedText<30> ObsCoding;
  double SunElevation = 0;  // degrees
  double SunAzimuth = 0;
  double ObjCamRayAzimuth = 0;
  double AzimuthDifference = 0;
  double OffNadirAngle = 0;
};

template <class Record, class Visitor>
void Visit_XYDistance_Entry(Record& record, Visitor&& visit) {
  visit("X", record.X);
  visit("Y", record.Y);
  visit("Z", record.Z);
  visit("TreeNumber", record.TreeNumber);
  visit("FreeInteger", record.FreeInteger);
  visit("Index", record.Index);
  visit("ImageCode", record.ImageCode);
  visit("X0Obj", record.X0Obj);
  visit("X1Obj", record.X1Obj);
  visit("Y0Obj", record.Y0Obj);
  visit("Y1Obj", record.Y1Obj);
  visit("ScaleAtZ", record.ScaleAtZ);
  visit("ObservedDistance", record.ObservedDistance);
  visit("ObsCoding", record.ObsCoding);
  visit("SunElevation", record.SunElevation);
  visit("SunAzimuth", record.SunAzimuth);
  visit("ObjCamRayAzimuth", record.ObjCamRayAzimuth);
  visit("AzimuthDifference", record.AzimuthDifference);
  visit("OffNadirAngle", record.OffNadirAngle);
}

/// The current field plot.
struct PlotLocation {
  std::int32_t PlotNumber = 0;
  double X = 0, Y = 0;  // metres
  double GroundZ = 0;   // raster elevation at X, Y
  double HeightAboveGround = 0;
};

}  // namespace sylvomex
