// SPDX-License-Identifier: MIT
#include "pane_peer_opencv.h"

#include <opencv2/imgproc.hpp>

namespace sylvomex::bench {

PanePeer Pane_OpenCv(const PaneSource& source) {
  cv::setNumThreads(1);
  // The matrix is only read; cv::Mat has no const variant.
  const cv::Mat image(source.size, source.size, CV_8UC3,
                      const_cast<std::uint8_t*>(source.bytes.data()));
  const auto paint = [image](const PaneWindow& window, int pane_size, std::span<std::uint8_t> bgr) {
    cv::Mat part = image(cv::Rect(window.col, window.raw_row, window.size, window.size));
    cv::Mat scaled;
    if (window.size != pane_size) {
      cv::resize(part, scaled, cv::Size(pane_size, pane_size), 0, 0, cv::INTER_NEAREST);
      part = scaled;
    }
    cv::Mat pane(pane_size, pane_size, CV_8UC3, bgr.data());
    cv::cvtColor(part, pane, cv::COLOR_RGB2BGR);
  };
  return {"opencv", paint};
}

}  // namespace sylvomex::bench
