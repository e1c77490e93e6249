// SPDX-License-Identifier: MIT
// The input is a script: its lines are split into words, and the steps of events made into events,
// which must read back as the same step. Nothing is played.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "session/event_steps.h"
#include "session/script_reader.h"
#include "session/step_end.h"

namespace {

using namespace sylvomex;

// A word in script syntax is read as itself, line breaks being blanks.
void Check_Words(const ScriptStep& step) {
  std::string line;
  for (const ScriptWord& word : step.words) line += Script_Word(word.text) + " ";
  const auto again = Split_Line(line);
  // A first word that begins with # needs its quotes, which a step's name never has.
  if (step.words.front().text.starts_with('#')) return;
  const auto same_text = [](const ScriptWord& read, ScriptWord written) {
    std::ranges::replace(written.text, '\r', ' ');
    return read.text == written.text;
  };
  const bool same = std::ranges::equal(again, step.words, same_text);
  if (!same) std::abort();
}

bool Is_Event(const ScriptStep& step) {
  struct Arity {
    const char* name;
    std::size_t least;
  };
  constexpr std::array kEvents{Arity{"menu", 2},  Arity{"command", 2}, Arity{"set", 3},
                               Arity{"press", 2}, Arity{"click", 4},   Arity{"doubleclick", 4},
                               Arity{"move", 4},  Arity{"key", 2},     Arity{"resize", 4},
                               Arity{"close", 2}};
  return std::ranges::any_of(kEvents, [&](const Arity& event) {
    return step.words.front().text == event.name && step.words.size() >= event.least;
  });
}

void Check_Event(const ScriptStep& step) {
  if (!Is_Event(step)) return;
  try {
    const std::string text = Step_Text(Event_Of_Step(step.words));
    if (Step_Text(Event_Of_Step(Split_Line(text))) != text) std::abort();
  } catch (const StepEnd&) {
    return;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream stream(std::string(data, data + size));
  ScriptReader reader(stream);
  try {
    while (const auto step = reader.Next()) {
      Check_Words(*step);
      Check_Event(*step);
    }
  } catch (const ScriptSyntaxError&) {
    return 0;
  }
  return 0;
}
