// SPDX-License-Identifier: MIT
#include "overlays/colour_map.h"

#include "platform/list_reader.h"
#include "platform/rounding.h"

namespace sylvomex {

ColourMap Read_Colour_Map(const FilePath& file) {
  ListReader list(file);
  ColourMap map;
  for (int row = ColourMap::kFirst; !list.At_End(); ++row) {
    Colour colour;
    colour.r = list.Read_Byte();
    if (row > ColourMap::kLast) {
      throw RunTimeError(Failure::SubscriptOutOfRange,
                         list.Where() + ": a colour map has 64 rows at most", file.native);
    }
    colour.g = list.Read_Byte();
    colour.b = list.Read_Byte();
    map(row) = colour;
  }
  return map;
}

int Colour_Row(double value, double lowest, double highest) {
  // Not simplified: the rounding of the two subtractions is part of the result.
  double index = Round_Half_Even(255 - (255 - ((value - lowest) * 255) / (highest - lowest)));
  if (index < 4) index = 4;
  if (index > 254) index = 253;
  return To_Int16(index / 4);
}

}  // namespace sylvomex
