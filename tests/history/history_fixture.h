// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "history/history_events.h"
#include "session/event_steps.h"
#include "session/script_reader.h"
#include "session/script_screen.h"
#include "support/small_site.h"
#include "workspace/start_up.h"

namespace sylvomex {

/// A started workspace with two images that see the same ground, in small panes, and a history.
class HistoryTest : public testing::Test {
 protected:
  HistoryTest() {
    w_->Form1.ClientWidth = 400;
    w_->Form1.ClientHeight = 240;
    Start_Workspace(*w_);
    site_.Folder().Make_Folder("e");
    SmallImage left, right;
    right.id = 2;
    right.X0 = 20;
    Add(site_.Write_Image("a", left));
    Add(site_.Write_Image("b", right));
    transcript_.str("");
  }

  void Add(const std::string& header) {
    screen_.Queue_Answer({QueuedAnswer::Kind::File, header});
    Play("menu Add_images_to_set");
  }

  /// Plays the step of a script.
  EventOutcome Play(const std::string& step) {
    const auto words = Split_Line(step);
    return Handle_Event_In(&history, *w_, Event_Of_Step(words));
  }

  void Answer(const std::string& text) { screen_.Queue_Answer({QueuedAnswer::Kind::Input, text}); }

  Workspace& w() { return *w_; }
  [[nodiscard]] const TemporaryFolder& Folder() const { return site_.Folder(); }
  [[nodiscard]] std::string Transcript() const { return transcript_.str(); }
  [[nodiscard]] std::string Observations() const {
    return Read("c/data/Lehtomaa/Pistedata/PointData.txt");
  }
  [[nodiscard]] std::string Read(const std::string& name) const {
    std::ifstream file(site_.Folder().Path() / name, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
  }

  /// Measures a point with two clicks and saves it.
  void Save_A_Point(int px) {
    Play("click Picture1(0) " + std::to_string(px) + " 60");
    Play("click Picture1(1) " + std::to_string(px) + " 60");
    Play("menu Point_Intersection");
    Play("menu Save_measured_point");
    Play("press Form3.Accept_And_Save_Button");
  }

  History history;

 private:
  SmallSite site_;
  std::ostringstream transcript_;
  std::ostringstream log_;
  ScriptScreen screen_{transcript_, log_};
  std::unique_ptr<Workspace> w_ = std::make_unique<Workspace>(site_.Drives(), screen_);
};

}  // namespace sylvomex
