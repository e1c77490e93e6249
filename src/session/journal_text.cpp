// SPDX-License-Identifier: MIT
#include "session/journal_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "platform/number_text.h"
#include "session/event_steps.h"

namespace sylvomex {
namespace {

using Kind = JournalLine::Kind;
using Words = std::vector<ScriptWord>;

constexpr std::string_view kHistoryStep = "history";  // on, off: no event, but it is played

std::string_view Take_Line(std::string_view& text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

template <class Number>
std::optional<Number> Number_In(const std::string& text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  if (parsed.ec != std::errc() || parsed.ptr != end) return std::nullopt;
  return number;
}

/// The words of a line, none for one that is damaged: zeros, as a torn disk leaves them, or an open
/// quote.
Words Words_Of(std::string_view line) {
  if (line.find('\0') != std::string_view::npos) return {};
  try {
    return Split_Line(line);
  } catch (const ScriptSyntaxError&) {
    return {};
  }
}

bool Is_Comment(std::string_view line) { return line.starts_with('#'); }

Words Words_Of_Comment(std::string_view line) { return Words_Of(line.substr(1)); }

void Take_Append(JournalFacts& facts, const Words& words) {
  if (words.size() != 6) return;
  const auto number = Number_In<long>(words[1].text);
  const auto offset = Number_In<std::uint64_t>(words[3].text);
  const auto bytes = Number_In<std::uint64_t>(words[4].text);
  if (!number || !offset || !bytes) return;
  facts.appends[*number] = {
      words[0].text == "take",      words[2].text, *offset, *bytes, words[5].text,
      JournaledAppend::State::Begun};
}

void Take_Append_State(JournalFacts& facts, const Words& words, JournaledAppend::State state) {
  const auto number = words.size() == 2 ? Number_In<long>(words[1].text) : std::nullopt;
  if (!number) return;
  const auto append = facts.appends.find(*number);
  if (append != facts.appends.end()) append->second.state = state;
}

void Take_Read(JournalFacts& facts, const Words& words) {
  if (words.size() != 5) return;
  const auto bytes = Number_In<std::uint64_t>(words[2].text);
  if (!bytes) return;
  facts.reads.try_emplace(words[1].text, JournaledRead{*bytes, words[3].text, words[4].text});
}

void Take_Write(JournalFacts& facts, const Words& words) {
  if (words.size() != 2 && words.size() != 3) return;
  const std::string state = words.size() == 3 ? words[2].text : "";
  BeforeWrite before = BeforeWrite::Unknown;
  if (state == "new") before = BeforeWrite::Missing;
  if (state == "kept") before = BeforeWrite::Kept;
  const long after = facts.appends.empty() ? 0 : facts.appends.rbegin()->first;
  facts.writes.try_emplace(words[1].text, JournaledWrite{before, after});
}

/// A file that the session knew before was removed by others in between.
void Take_Creation(JournalFacts& facts, const Words& words) {
  if (words.size() != 2) return;
  const std::string& file = words[1].text;
  const bool is_known =
      facts.reads.contains(file) || facts.writes.contains(file) ||
      std::ranges::any_of(facts.appends, [&](const auto& a) { return a.second.file == file; });
  if (!is_known) facts.created.insert(file);
}

void Take_Comment(JournalFacts& facts, const Words& words) {
  if (words.empty()) return;
  const std::string& name = words.front().text;
  if (name == "append" || name == "take") Take_Append(facts, words);
  if (name == "appended" || name == "taken")
    Take_Append_State(facts, words, JournaledAppend::State::Done);
  if (name == "not-appended") Take_Append_State(facts, words, JournaledAppend::State::Failed);
  if (name == "reads") Take_Read(facts, words);
  if (name == "writes") Take_Write(facts, words);
  if (name == "creates") Take_Creation(facts, words);
}

std::optional<JournalHead> Head_Of(std::string_view text) {
  const Words journal = Words_Of(Take_Line(text));
  const Words root = Words_Of(Take_Line(text));
  const Words size = Words_Of(Take_Line(text));
  const Words seed = Words_Of(Take_Line(text));
  const bool is_head = journal.size() == 2 && journal[0].text == "journal" &&
                       journal[1].text == "1" && root.size() == 2 && root[0].text == "root" &&
                       size.size() == 3 && size[0].text == "size" && seed.size() == 2 &&
                       seed[0].text == "seed";
  if (!is_head) return std::nullopt;
  const auto width = Number_In<double>(size[1].text);
  const auto height = Number_In<double>(size[2].text);
  const auto number = Number_In<std::uint32_t>(seed[1].text);
  if (!width || !height || !number) return std::nullopt;
  return JournalHead{root[1].text, *width, *height, *number};
}

bool Is_Head_Word(const std::string& name) {
  return name == "journal" || name == "root" || name == "size" || name == "seed" || name == "exit";
}

bool Is_Answer(const Words& words) {
  const std::string& name = words.front().text;
  if (name == "cancel") return words.size() == 1;
  return words.size() == 2 && (name == "input" || name == "file" || name == "button");
}

}  // namespace

std::string Head_Text(const JournalHead& head) {
  return "journal 1\nroot " + Script_Word(head.root) + "\nsize " + Full_Text(head.width) + " " +
         Full_Text(head.height) + "\nseed " + std::to_string(head.seed) + "\n";
}

JournalFacts Facts_Of_Journal(std::string_view text) {
  JournalFacts facts;
  const std::size_t end = text.rfind('\n');
  facts.whole_bytes = end == std::string_view::npos ? 0 : end + 1;
  text = text.substr(0, facts.whole_bytes);
  facts.head = Head_Of(text);
  if (facts.head) facts.ended_bytes = Head_Text(*facts.head).size();
  while (!text.empty()) {
    const std::string_view line = Take_Line(text);
    if (line.starts_with("end ")) facts.ended_bytes = facts.whole_bytes - text.size();
    if (Is_Comment(line)) Take_Comment(facts, Words_Of_Comment(line));
    if (line == "exit") facts.has_exit = true;
  }
  return facts;
}

const JournalLine* JournalCursor::Peek() {
  while (!next_ && !text_.empty()) {
    ++line_;
    next_ = Read(Take_Line(text_));
  }
  return next_ ? &*next_ : nullptr;
}

std::optional<JournalLine> JournalCursor::Read(std::string_view line) {
  if (Is_Comment(line)) return Read_Comment(line);
  Words words = Words_Of(line);
  if (!words.empty() && Is_Head_Word(words.front().text)) return std::nullopt;
  std::optional<JournalLine> read;
  if (!words.empty()) read = Read_Step(std::move(words));
  if (!read) damaged_.push_back(line_);
  return read;
}

std::optional<JournalLine> JournalCursor::Read_Step(Words words) {
  const std::string& name = words.front().text;
  if (name == "end") return JournalLine{Kind::End, {line_, std::move(words)}, 0};
  if (Is_Answer(words)) return JournalLine{Kind::Answer, {line_, std::move(words)}, 0};
  JournalLine read;
  std::ptrdiff_t before = 0;  // words before the event's step
  if (name == "within") {
    read.kind = Kind::Within;
    before = 1;
  } else if (name == "during" && words.size() > 2) {
    const auto servicing = Number_In<long>(words[1].text);
    if (!servicing) return std::nullopt;
    read.kind = Kind::During;
    read.number = *servicing;
    before = 2;
  }
  words.erase(words.begin(), words.begin() + before);
  if (words.empty()) return std::nullopt;
  const std::string& step = words.front().text;
  if (!Is_Event_Step(step) && step != kHistoryStep) return std::nullopt;
  read.step = {line_, std::move(words)};
  return read;
}

std::optional<JournalLine> JournalCursor::Read_Comment(std::string_view comment) {
  const Words words = Words_Of_Comment(comment);
  if (words.size() < 2) return std::nullopt;
  if (words[0].text == "time") time_ = Number_In<std::time_t>(words[1].text).value_or(time_);
  const bool takes = words[0].text == "take";
  if (!wants_appends_) return std::nullopt;
  if (words[0].text == "creates") return JournalLine{Kind::Create, {line_, {words[1]}}, 0};
  if (!takes && words[0].text != "append") return std::nullopt;
  const long number = Number_In<long>(words[1].text).value_or(0);
  if (number <= last_append_) return std::nullopt;  // written again by a later program run
  last_append_ = number;
  return JournalLine{takes ? Kind::Take : Kind::Append, {line_, {}}, number};
}

}  // namespace sylvomex
