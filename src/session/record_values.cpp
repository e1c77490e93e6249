// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include "session/block_values.h"
#include "session/value_text.h"
#include "state/workspace.h"

namespace sylvomex {

namespace {

using Found = std::optional<std::string>;

/// Finds a field by name among those that visit_fields(visitor) visits.
template <class VisitFields>
Found Field_Text(const std::string& wanted, VisitFields&& visit_fields) {
  Found found;
  visit_fields([&](const char* field, const auto& value) {
    if (wanted == field) found = Value_Text(value);
  });
  return found;
}

Found Field_Of(const ImageRecord& record, const std::string& field) {
  return Field_Text(field, [&](auto&& visit) { Visit_Image_Record(record, visit); });
}

Found Field_Of(const ObservationRecord& record, const std::string& field) {
  return Field_Text(field, [&](auto&& visit) { Visit_Observation_Record(record, visit); });
}

Found Field_Of(const XYDistanceEntry& record, const std::string& field) {
  return Field_Text(field, [&](auto&& visit) { Visit_XYDistance_Entry(record, visit); });
}

Found Field_Of(const RasterModel& model, const std::string& field) {
  return Field_Text(field, [&](auto&& visit) { Visit_Raster_Model(model, visit); });
}

Found Field_Of(const TinModel& model, const std::string& field) {
  return Field_Text(field, [&](auto&& visit) { Visit_Tin_Model(model, visit); });
}

Found Field_Of(const TemplateRecord& record, const std::string& field) {
  return Field_Text(field, [&](auto&& visit) { Visit_Template_Record(record, visit); });
}

Found Field_Of(const ReferenceTreeRecord& record, const std::string& field) {
  return Field_Text(field, [&](auto&& visit) { Visit_Reference_Tree(record, visit); });
}

Found Field_Of(const CrownRecord& record, const std::string& field) {
  return Field_Text(field, [&](auto&& visit) { Visit_Crown_Record(record, visit); });
}

Found Field_Of(const LocalTree& record, const std::string& field) {
  return Field_Text(field, [&](auto&& visit) { Visit_Local_Tree(record, visit); });
}

Found Field_Of(const StereoState& state, const std::string& field) {
  return Field_Text(field, [&](auto&& visit) { Visit_Stereo_State(state, visit); });
}

Found Count_Of(std::size_t count, const std::string& field) {
  if (field != "Count") return std::nullopt;
  return Value_Text(count);
}

struct RecordRow {
  const char* name;
  Found (*value)(const Workspace& w, const std::string& field);
};

constexpr std::array kRecords{
    RecordRow{"ObservationRecord",
              [](const Workspace& w, const std::string& f) { return Field_Of(w.Observation, f); }},
    RecordRow{"RasterDem",
              [](const Workspace& w, const std::string& f) { return Field_Of(w.RasterDem, f); }},
    RecordRow{"RasterChm",
              [](const Workspace& w, const std::string& f) { return Field_Of(w.RasterChm, f); }},
    RecordRow{"TinDem",
              [](const Workspace& w, const std::string& f) { return Field_Of(w.TinDem, f); }},
    RecordRow{"TinChm",
              [](const Workspace& w, const std::string& f) { return Field_Of(w.TinChm, f); }},
    RecordRow{"LocalTreeRecord",
              [](const Workspace& w, const std::string& f) {
                return Field_Of(w.Crowns.LocalTreeRecord, f);
              }},
    RecordRow{"StereoState",
              [](const Workspace& w, const std::string& f) { return Field_Of(w.Stereo, f); }},
    RecordRow{"CrownTrees",
              [](const Workspace& w, const std::string& f) {
                return Count_Of(static_cast<std::size_t>(w.Crowns.TreeCount), f);
              }},
    RecordRow{"MeshPoints",
              [](const Workspace& w, const std::string& f) {
                return Count_Of(w.Matching.MeshPoints.size(), f);
              }},
    RecordRow{"ReferenceTree",
              [](const Workspace& w, const std::string& f) {
                return Count_Of(w.Evaluation.ReferenceTree.size(), f);
              }},
    RecordRow{"LidarPulses",
              [](const Workspace& w, const std::string& f) {
                return Count_Of(static_cast<std::size_t>(w.LidarPulses.Count()), f);
              }},
    RecordRow{
        "LidarPoints",
        [](const Workspace& w, const std::string& f) { return Count_Of(w.LidarPoints.size(), f); }},
};

struct RecordTableRow {
  const char* name;
  Found (*value)(const Workspace& w, long index, const std::string& field);
};

template <auto Member>
Found Field_In_Table(const Workspace& w, long index, const std::string& field) {
  return Field_Of((w.*Member)(index), field);
}

constexpr std::array kRecordTables{
    RecordTableRow{"ImageBlock", Field_In_Table<&Workspace::ImageBlock>},
    RecordTableRow{"CorrelationRecords", Field_In_Table<&Workspace::CorrelationRecords>},
    RecordTableRow{"XYDistanceEntries", Field_In_Table<&Workspace::XYDistanceEntries>},
    RecordTableRow{"ReferenceTree",
                   [](const Workspace& w, long i, const std::string& f) {
                     return Field_Of(Entry_From_One(w.Evaluation.ReferenceTree, i), f);
                   }},
    RecordTableRow{"CrownTrees",
                   [](const Workspace& w, long k, const std::string& f) {
                     return Field_Of(w.Crowns.CrownTrees(k), f);
                   }},
    RecordTableRow{"Template",
                   [](const Workspace& w, long k, const std::string& f) {
                     return Field_Of(w.Matching.Template(k), f);
                   }},
};

}  // namespace

Found Record_Value(const Workspace& w, const std::vector<NamePart>& name) {
  if (name.size() != 2 || name.back().index) return std::nullopt;
  const auto is_named = [&](const auto& row) { return name.front().name == row.name; };
  if (const auto& index = name.front().index) {
    const auto row = std::ranges::find_if(kRecordTables, is_named);
    if (row != kRecordTables.end()) return row->value(w, *index, name.back().name);
    return std::nullopt;
  }
  const auto row = std::ranges::find_if(kRecords, is_named);
  if (row != kRecords.end()) return row->value(w, name.back().name);
  return std::nullopt;
}

}  // namespace sylvomex
