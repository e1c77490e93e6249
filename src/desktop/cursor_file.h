// SPDX-License-Identifier: MIT
// Pointer shapes from .CUR files.
#pragma once

#include <QByteArray>
#include <QCursor>
#include <QDateTime>
#include <QElapsedTimer>
#include <QImage>
#include <QPoint>
#include <optional>
#include <string>

#include "platform/drive_map.h"

namespace sylvomex {

struct CursorPicture {
  QImage image;     // with alpha
  QPoint hot_spot;  // pixels from the top left corner
};

/// The first picture of a .CUR file's bytes: 1, 4, 8, 24 or 32 bits a pixel, uncompressed, or
/// PNG; at most 256 by 256. Pixels that would invert the screen are white. Nothing when the
/// bytes are no such file.
std::optional<CursorPicture> Parse_Cursor(const QByteArray& bytes);

/// The cursor of one file, read anew when the file changes. A file that is missing or not
/// readable gives the system's cross.
class CursorFile {
 public:
  CursorFile(const DriveMap& drives, std::string name);

  /// Looks at the file at most once a second.
  const QCursor& Cursor();

 private:
  void Look_At_File();

  const DriveMap& drives_;
  std::string name_;
  QCursor cursor_{Qt::CrossCursor};
  QDateTime modified_;
  QElapsedTimer looked_;
};

}  // namespace sylvomex
