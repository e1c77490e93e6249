// SPDX-License-Identifier: MIT
#include "commands/overlays/convert_field_data.h"

#include <cmath>

#include "commands/overlays/field_dialogs.h"
#include "overlays/field_tree_file.h"
#include "overlays/stem_volume.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "services/kept_file.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

std::int32_t Count_Trees(const FilePath& file) {
  PlotTextReader plot{ListReader(file)};
  std::int32_t count = 0;
  while (plot.Next_Tree()) ++count;
  return count;
}

// Stem volume of a tree; an error names the position in the file of the value that has no volume.
double Volume_Of(const PlotTree& tree, const PlotTextReader& plot, const FilePath& file) {
  try {
    return Stem_Volume(tree.TreeSpecies, tree.Dbh, tree.TreeHeight);
  } catch (const RunTimeError& error) {
    const bool has_diameter = std::isfinite(Diameter_Share(tree.TreeSpecies, tree.Dbh));
    throw error.At(has_diameter ? plot.Height_Place() : plot.Dbh_Place(), file.native);
  }
}

FieldTree Convert_Tree(const Workspace& w, const PlotTree& tree, const PlotHeader& plot) {
  const TreePlace place = Place_Tree(plot, tree);
  FieldTree record;
  record.MapX = place.MapX;
  record.MapY = place.MapY;
  record.TopZ = place.TopZ;
  record.BaseZ = place.BaseZ;
  record.GroundZ = Get_Raster_Elevation(w, place.MapX, place.MapY);
  record.Dbh = tree.Dbh;
  record.TreeHeight = tree.TreeHeight;
  record.TreeId = tree.TreeId;
  record.TreeSpecies = tree.TreeSpecies;
  record.TreeCode = tree.TreeCode;
  return record;
}

void Convert_Trees(const Workspace& w, PlotTextReader& plot, const FilePath& text_file,
                   FieldTreeFile& out) {
  while (const auto tree = plot.Next_Tree()) {
    FieldTree record = Convert_Tree(w, *tree, plot.Header());
    record.StemVolume = Volume_Of(*tree, plot, text_file);
    out.Add(record);
  }
}

}  // namespace

void ConvertFieldDataToBinary(Workspace& w) {
  const auto chosen = Ask_Plot_Text_File(w);
  if (!chosen) return;
  const FilePath& text_file = *chosen;
  const std::int32_t count = Count_Trees(text_file);
  const auto binary_file = Ask_Tree_Data_File(w);
  if (!binary_file) return;
  PlotTextReader plot{ListReader(text_file)};
  FieldTreeFile out(count, plot.Header());
  Write_However_It_Ends([&] { Convert_Trees(w, plot, text_file, out); },
                        [&] { Write_Whole_File(*binary_file, out.Bytes()); });
  w.screen->Message_Box(Plain_Text(count) + " trees");
}

}  // namespace sylvomex
