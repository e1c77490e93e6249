// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "session/script_screen.h"
#include "support/small_site.h"
#include "workspace/event_dispatch.h"
#include "workspace/start_up.h"

namespace sylvomex {

/// A started workspace with one image of SmallImage, driven by operator events.
class OneImage : public testing::Test {
 protected:
  OneImage() {
    w_->Form1.ClientWidth = 1280;
    w_->Form1.ClientHeight = 1024;
    Start_Workspace(*w_);
    screen_.Queue_Answer({QueuedAnswer::Kind::File, site_.Write_Image("a", {})});
    Choose("Add_images_to_set");
    transcript_.str("");
  }

  Workspace& w() { return *w_; }
  [[nodiscard]] std::string transcript() const { return transcript_.str(); }

  EventOutcome Choose(const std::string& item) {
    OperatorEvent event;
    event.kind = OperatorEvent::Kind::Menu;
    event.control = item;
    return Handle_Event(*w_, event);
  }

  EventOutcome Click(double px, double py, int shift) {
    OperatorEvent event;
    event.kind = OperatorEvent::Kind::Click;
    event.control = "Picture1(0)";
    event.x = px;
    event.y = py;
    event.shift = shift;
    return Handle_Event(*w_, event);
  }

 private:
  SmallSite site_;
  std::ostringstream transcript_;
  std::ostringstream log_;
  ScriptScreen screen_{transcript_, log_};
  std::unique_ptr<Workspace> w_ = std::make_unique<Workspace>(site_.Drives(), screen_);
};

}  // namespace sylvomex
