// SPDX-License-Identifier: MIT
#pragma once

#include "ortho_inputs.h"

namespace sylvomex::bench {

/// Two maps made by the plain formula, then remap with the nearest pixel.
void Ortho_By_Opencv(OrthoInputs& in, int threads);

/// Warps by the rational polynomials that a frame camera is exactly, over the model as a data set.
class GdalOrtho {
 public:
  explicit GdalOrtho(const OrthoInputs& in);
  ~GdalOrtho();
  GdalOrtho(const GdalOrtho&) = delete;
  GdalOrtho& operator=(const GdalOrtho&) = delete;

  void Warp(int threads);

 private:
  void* source_ = nullptr;
};

}  // namespace sylvomex::bench
