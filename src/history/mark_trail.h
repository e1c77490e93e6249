// SPDX-License-Identifier: MIT
// The marks of a picture as a trail that grows with the drawing: states of a picture that differ by
// what was drawn between them share everything before.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "state/picture.h"

namespace sylvomex {

struct MarkTrail {
  std::shared_ptr<const MarkTrail> earlier;  // what was drawn before; may be null
  std::vector<Mark> marks;                   // drawn since, in drawing order
  std::vector<MarkText> texts;
  std::size_t mark_count = 0;  // with those of the earlier trail
  std::size_t text_count = 0;
  int depth = 0;  // number of trails before this one
};

/// The picture's marks; null for none. before: the trail of the same picture at an earlier moment
/// since which marks were only added; null when it was erased or loaded in between.
std::shared_ptr<const MarkTrail> Follow_Marks(const Picture& picture,
                                              std::shared_ptr<const MarkTrail> before);

/// Gives a picture the marks of a trail.
void Lay_Marks(Picture& picture, const std::shared_ptr<const MarkTrail>& trail);

/// Memory of the trail's own marks, without those of earlier ones.
std::size_t Bytes_Of(const MarkTrail& trail);

}  // namespace sylvomex
