// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "session/scale_bar.h"
#include "state/picture.h"

namespace sylvomex {

/// Pixels; a pixel of the page is 1/96 inch.
struct PageSize {
  int width = 0, height = 0;
};

/// The inside of a picture on a page.
struct PlacedPicture {
  const Picture* picture = nullptr;
  double left = 0, top = 0;  // of its upper left corner, pixels of the page
  PageSize size;
  std::optional<ScaleBar> bar = {};  // drawn at the lower left
  std::string id = {};               // printed at the lower right
};

/// A page of pictures as SVG or PDF: bitmaps as they are, points, lines and texts as shapes above
/// them. Pens that join with the pixels under them multiply these.
class VectorPage {
 public:
  /// file: as of Is_Vector_File.
  VectorPage(std::filesystem::path file, PageSize size);
  ~VectorPage();
  VectorPage(const VectorPage&) = delete;
  VectorPage& operator=(const VectorPage&) = delete;

  void Add(const PlacedPicture& placed);

  /// Ends the file. RunTimeError when it cannot be written.
  void Finish();

 private:
  struct Drawing;
  std::filesystem::path file_;
  std::unique_ptr<Drawing> drawing_;
};

/// Whether a file's ending, ".svg" or ".pdf", asks for vectors.
bool Is_Vector_File(const std::filesystem::path& file);

}  // namespace sylvomex
