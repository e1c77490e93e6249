// SPDX-License-Identifier: MIT
// The common orientation of a normal-case pair and the plane that holds both images.
// Angles in radians, lengths in metres.
#pragma once

#include <array>

#include "imageblock/image_record.h"
#include "stereo/stereo_pair.h"

namespace sylvomex {

struct NormalAngles {
  double omega = 0, phi = 0, kappa = 0;
};

/// Angles of the normal frame from the base between two images. phi and omega come from the
/// images' own angles where the base runs mainly along Y. The signs follow fixed rules, which put
/// conjugate points on one row for most flight directions but not for all: not for a base with
/// falling X and rising Y, nor with three rising components, nor along Y with a difference in Z.
/// RunTimeError(DivisionByZero) for a base without a component along X (along Y where the angle is
/// taken from it).
NormalAngles Angles_Of_Base(const ImageRecord& left, const ImageRecord& right);

/// Rows are the axes of the normal frame in object space.
RotationMatrix Normal_Rotation(const NormalAngles& angles);

/// From the normal frame to camera axes: rotation times the transpose of normal_rotation.
RotationMatrix Normal_Matrix(const RotationMatrix& rotation, const RotationMatrix& normal_rotation);

/// A side of a pair without its raster's name.
StereoImage Make_Stereo_Image(const ImageRecord& image, const RotationMatrix& normal_rotation);

/// Smallest box of the normal plane, at distances within 1 m of its origin.
struct NormalExtent {
  double Xmin = 1, Xmax = -1;
  double Ymin = 1, Ymax = -1;
};

/// Widens the box by the four corner pixels of an image. RunTimeErrors of Pixel_To_Image and
/// Rotate_And_Project.
void Include_Image(NormalExtent& extent, const ImageRecord& image, const StereoImage& side);

/// The box of both images of a pair.
NormalExtent Extent_Of_Pair(const ImageRecord& left, const ImageRecord& right,
                            const StereoPair& pair);

/// Size of the pair's rasters for its PixelWidth; sets Xmin and Ymax too. RunTimeError
/// (DivisionByZero) for a PixelWidth of 0, RunTimeError(Overflow) beyond 16 bits,
/// RunTimeError(BadContent) for a size below one pixel.
void Set_Raster_Size(StereoPair& pair, const NormalExtent& extent);

/// Side of an image's pixel on the film, micrometres. RunTimeError(DivisionByZero) for a singular
/// affine, RunTimeError(BadContent) for a mirrored one.
double Film_Pixel_Micrometres(const ImageRecord& image);

}  // namespace sylvomex
