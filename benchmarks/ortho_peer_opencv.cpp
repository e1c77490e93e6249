// SPDX-License-Identifier: MIT
#include <opencv2/core.hpp>
#include <opencv2/core/utility.hpp>
#include <opencv2/imgproc.hpp>

#include "ortho_peers.h"

namespace sylvomex::bench {

void Ortho_By_Opencv(OrthoInputs& in, int threads) {
  cv::setNumThreads(threads);
  cv::Mat cols(kOrthoSide, kOrthoSide, CV_32F), rows(kOrthoSide, kOrthoSide, CV_32F);
  cv::parallel_for_(cv::Range(0, kOrthoSide), [&](const cv::Range& range) {
    for (int row = range.start; row < range.end; ++row) {
      for (int col = 0; col < kOrthoSide; ++col) {
        const PixelPosition at = Object_To_Pixel(in.source.camera, Ground_Of_Cell(in, col, row));
        cols.at<float>(row, col) = static_cast<float>(at.col);
        rows.at<float>(row, col) = static_cast<float>(kFrameHeight - 1 - at.row);
      }
    }
  });
  cv::Mat out(kOrthoSide, kOrthoSide, CV_8UC3, in.cells.data());
  cv::remap(cv::Mat(kFrameHeight, kFrameWidth, CV_8UC3, in.frame.data()), out, cols, rows,
            cv::INTER_NEAREST, cv::BORDER_CONSTANT, 0);
}

}  // namespace sylvomex::bench
