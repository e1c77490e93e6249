// SPDX-License-Identifier: MIT
#include "desktop/cursor_file.h"

#include <QFile>
#include <QFileInfo>
#include <QPixmap>
#include <QtEndian>
#include <utility>

namespace sylvomex {
namespace {

constexpr qsizetype kDirectoryBytes = 6;
constexpr qsizetype kEntryBytes = 16;
constexpr qsizetype kBitmapHeaderBytes = 40;
constexpr int kMaxSide = 256;
constexpr qint64 kMaxFileBytes = 1 << 20;

template <class Number>
Number Read(const QByteArray& bytes, qsizetype at) {
  return qFromLittleEndian<Number>(bytes.constData() + at);
}

qsizetype Padded_Row_Bytes(int width, int bits) { return (qsizetype{width} * bits + 31) / 32 * 4; }

/// A cursor's bitmap: colour rows, then mask rows, both from the bottom.
struct CursorBitmap {
  int width = 0;
  int height = 0;
  int bits = 0;
  int colours = 0;  // number of palette entries
  qsizetype palette_at = 0;

  [[nodiscard]] qsizetype Rows_At() const { return palette_at + qsizetype{colours} * 4; }
  [[nodiscard]] qsizetype Mask_At() const {
    return Rows_At() + height * Padded_Row_Bytes(width, bits);
  }
  [[nodiscard]] qsizetype End() const { return Mask_At() + height * Padded_Row_Bytes(width, 1); }
};

std::optional<CursorBitmap> Read_Bitmap_Header(const QByteArray& picture) {
  if (picture.size() < kBitmapHeaderBytes) return std::nullopt;
  const auto header_bytes = Read<quint32>(picture, 0);
  const auto width = Read<qint32>(picture, 4);
  const auto doubled_height = Read<qint32>(picture, 8);
  const auto bits = Read<quint16>(picture, 14);
  const auto compression = Read<quint32>(picture, 16);
  const auto colours = Read<quint32>(picture, 32);
  const bool bits_known = bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
  if (header_bytes != kBitmapHeaderBytes || !bits_known || compression != 0) return std::nullopt;
  if (width < 1 || width > kMaxSide || doubled_height < 2 || doubled_height > 2 * kMaxSide ||
      colours > 256) {
    return std::nullopt;
  }
  CursorBitmap bitmap{width, doubled_height / 2, bits, 0, kBitmapHeaderBytes};
  if (bits <= 8) bitmap.colours = colours == 0 ? 1 << bits : static_cast<int>(colours);
  if (picture.size() < bitmap.End()) return std::nullopt;
  return bitmap;
}

/// Entry of a row with 1, 4 or 8 bits an entry, the first entry in the highest bits.
int Packed_Entry(const QByteArray& picture, qsizetype row_at, int col, int bits) {
  const int bit = col * bits;
  const int byte = static_cast<uchar>(picture.at(row_at + bit / 8));
  return (byte >> (8 - bits - bit % 8)) & ((1 << bits) - 1);
}

QRgb Colour_At(const QByteArray& picture, const CursorBitmap& bitmap, qsizetype row_at, int col) {
  qsizetype at = row_at + qsizetype{col} * bitmap.bits / 8;
  if (bitmap.bits <= 8) {
    const int entry = Packed_Entry(picture, row_at, col, bitmap.bits);
    if (entry >= bitmap.colours) return qRgb(0, 0, 0);
    at = bitmap.palette_at + qsizetype{entry} * 4;
  }
  const auto channel = [&](qsizetype k) { return static_cast<uchar>(picture.at(at + k)); };
  return qRgba(channel(2), channel(1), channel(0), bitmap.bits == 32 ? channel(3) : 255);
}

QRgb Masked_Colour(QRgb colour, bool masked, bool has_alpha) {
  if (has_alpha) return colour;
  if (!masked) return colour | 0xff000000;
  const bool inverts = (colour & 0x00ffffff) != 0;
  return inverts ? qRgb(255, 255, 255) : qRgba(0, 0, 0, 0);
}

bool Uses_Alpha(const QByteArray& picture, const CursorBitmap& bitmap) {
  if (bitmap.bits != 32) return false;
  for (qsizetype at = bitmap.Rows_At() + 3; at < bitmap.Mask_At(); at += 4) {
    if (picture.at(at) != 0) return true;
  }
  return false;
}

QImage Read_Bitmap(const QByteArray& picture) {
  const auto bitmap = Read_Bitmap_Header(picture);
  if (!bitmap) return {};
  const bool has_alpha = Uses_Alpha(picture, *bitmap);
  QImage image(bitmap->width, bitmap->height, QImage::Format_ARGB32);
  for (int y = 0; y < bitmap->height; ++y) {
    const qsizetype from_bottom = bitmap->height - 1 - y;
    const qsizetype row_at =
        bitmap->Rows_At() + from_bottom * Padded_Row_Bytes(bitmap->width, bitmap->bits);
    const qsizetype mask_at = bitmap->Mask_At() + from_bottom * Padded_Row_Bytes(bitmap->width, 1);
    for (int x = 0; x < bitmap->width; ++x) {
      const bool masked = Packed_Entry(picture, mask_at, x, 1) != 0;
      image.setPixel(x, y,
                     Masked_Colour(Colour_At(picture, *bitmap, row_at, x), masked, has_alpha));
    }
  }
  return image;
}

}  // namespace

std::optional<CursorPicture> Parse_Cursor(const QByteArray& bytes) {
  constexpr int kCursorType = 2;
  if (bytes.size() < kDirectoryBytes + kEntryBytes || Read<quint16>(bytes, 0) != 0 ||
      Read<quint16>(bytes, 2) != kCursorType || Read<quint16>(bytes, 4) == 0) {
    return std::nullopt;
  }
  const QPoint hot_spot(Read<quint16>(bytes, kDirectoryBytes + 4),
                        Read<quint16>(bytes, kDirectoryBytes + 6));
  const qsizetype length = Read<quint32>(bytes, kDirectoryBytes + 8);
  const qsizetype offset = Read<quint32>(bytes, kDirectoryBytes + 12);
  if (offset > bytes.size() || length > bytes.size() - offset) return std::nullopt;
  const QByteArray picture = bytes.mid(offset, length);
  const bool is_png = picture.startsWith("\x89PNG");
  const QImage image = is_png ? QImage::fromData(picture, "PNG") : Read_Bitmap(picture);
  if (image.isNull() || image.width() > kMaxSide || image.height() > kMaxSide) return std::nullopt;
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
  const QString path = QString::fromStdString(drives_.Locate(name_).native.string());
  const QDateTime modified = QFileInfo(path).lastModified();
  if (modified == modified_) return;
  modified_ = modified;
  cursor_ = QCursor(Qt::CrossCursor);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return;
  if (const auto picture = Parse_Cursor(file.read(kMaxFileBytes))) {
    cursor_ =
        QCursor(QPixmap::fromImage(picture->image), picture->hot_spot.x(), picture->hot_spot.y());
  }
}

}  // namespace sylvomex
