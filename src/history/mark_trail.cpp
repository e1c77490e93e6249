// SPDX-License-Identifier: MIT
#include "history/mark_trail.h"

#include <algorithm>
#include <utility>

namespace sylvomex {
namespace {

constexpr int kLongestTrail = 64;

template <class Entry>
std::vector<Entry> From(const std::vector<Entry>& entries, std::size_t first) {
  return {entries.begin() + static_cast<std::ptrdiff_t>(first), entries.end()};
}

}  // namespace

std::shared_ptr<const MarkTrail> Follow_Marks(const Picture& picture,
                                              std::shared_ptr<const MarkTrail> before) {
  const std::size_t marks = before == nullptr ? 0 : before->mark_count;
  const std::size_t texts = before == nullptr ? 0 : before->text_count;
  if (picture.marks.size() == marks && picture.texts.size() == texts) return before;
  MarkTrail trail;
  const bool grown = before != nullptr && picture.marks.size() >= marks &&
                     picture.texts.size() >= texts && before->depth < kLongestTrail;
  if (grown) {
    trail.depth = before->depth + 1;
    trail.earlier = std::move(before);
  }
  trail.marks = From(picture.marks, grown ? marks : 0);
  trail.texts = From(picture.texts, grown ? texts : 0);
  trail.mark_count = picture.marks.size();
  trail.text_count = picture.texts.size();
  return std::make_shared<const MarkTrail>(std::move(trail));
}

void Lay_Marks(Picture& picture, const std::shared_ptr<const MarkTrail>& trail) {
  std::vector<const MarkTrail*> parts;
  for (const MarkTrail* part = trail.get(); part != nullptr; part = part->earlier.get()) {
    parts.push_back(part);
  }
  picture.marks.clear();
  picture.texts.clear();
  ++picture.erase_version;
  for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
    std::ranges::copy((*part)->marks, std::back_inserter(picture.marks));
    std::ranges::copy((*part)->texts, std::back_inserter(picture.texts));
  }
}

std::size_t Bytes_Of(const MarkTrail& trail) {
  return sizeof trail + trail.marks.size() * sizeof(Mark) + trail.texts.size() * sizeof(MarkText);
}

}  // namespace sylvomex
