// SPDX-License-Identifier: MIT
#include "desktop/cursor_file.h"

#include <QFileInfo>
#include <QPixmap>
#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

#include "imageblock/cursor_bytes.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::uint64_t kMaxFileBytes = 1 << 20;

QImage Image_Of(const CursorBytes& cursor) {
  QImage image(cursor.width, cursor.height, QImage::Format_ARGB32);
  for (int y = 0; y < cursor.height; ++y) {
    std::copy_n(cursor.argb.begin() + std::ptrdiff_t{y} * cursor.width, cursor.width,
                reinterpret_cast<QRgb*>(image.scanLine(y)));
  }
  return image;
}

QImage Png_Image(std::span<const std::uint8_t> png) {
  return QImage::fromData(png.data(), static_cast<int>(png.size()), "PNG");
}

/// Empty for a file that cannot be read.
QByteArray Bytes_Of(const FilePath& file) {
  try {
    const PositionalFile open_file(file);
    QByteArray bytes(static_cast<qsizetype>(std::min(open_file.Size(), kMaxFileBytes)), 0);
    const std::size_t got = open_file.Read_At(
        0, {reinterpret_cast<std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size())});
    bytes.truncate(static_cast<qsizetype>(got));
    return bytes;
  } catch (const RunTimeError&) {
    return {};
  }
}

}  // namespace

std::optional<CursorPicture> Parse_Cursor(const QByteArray& bytes) {
  const auto cursor = Decode_Cursor({reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                     static_cast<std::size_t>(bytes.size())});
  if (!cursor) return std::nullopt;
  const QImage image = cursor->png.empty() ? Image_Of(*cursor) : Png_Image(cursor->png);
  const QPoint hot_spot(cursor->hot_col, cursor->hot_row);
  if (image.isNull() || image.width() > kLargestCursorSide || image.height() > kLargestCursorSide) {
    return std::nullopt;
  }
  if (!image.rect().contains(hot_spot)) return std::nullopt;
  return CursorPicture{image, hot_spot};
}

CursorFile::CursorFile(const DriveMap& drives, std::string name)
    : drives_(drives), name_(std::move(name)) {}

const QCursor& CursorFile::Cursor() {
  constexpr qint64 kMillisecondsBetweenLooks = 1000;
  if (!looked_.isValid() || looked_.hasExpired(kMillisecondsBetweenLooks)) Look_At_File();
  return cursor_;
}

void CursorFile::Look_At_File() {
  looked_.start();
  const FilePath file = drives_.Locate(name_);
  const QDateTime modified = QFileInfo(QString::fromStdString(file.native.string())).lastModified();
  if (modified == modified_) return;
  modified_ = modified;
  cursor_ = QCursor(Qt::CrossCursor);
  if (const auto picture = Parse_Cursor(Bytes_Of(file))) {
    cursor_ =
        QCursor(QPixmap::fromImage(picture->image), picture->hot_spot.x(), picture->hot_spot.y());
  }
}

}  // namespace sylvomex
