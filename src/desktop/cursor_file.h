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

/// The first picture of a .CUR file: 1, 4, 8, 24 or 32 bits a pixel, uncompressed, or
/// PNG; at most 256 by 256. Pixels that would invert the screen become white. std::nullopt for
/// bytes that are not such a file.
std::optional<CursorPicture> Parse_Cursor(const QByteArray& bytes);

/// The cursor of one file, reloaded when the file changes. A missing or unreadable file gives the
/// system's cross cursor.
class CursorFile {
 public:
  CursorFile(const DriveMap& drives, std::string name);

  /// Checks the file at most once a second.
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
