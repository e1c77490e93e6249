// SPDX-License-Identifier: MIT
#include "faults/shrinking_files.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>
#include <sstream>
#include <thread>
#include <utility>

#include "session/session.h"

namespace sylvomex {

std::function<void(const std::filesystem::path&)> after_mapping_raw;

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr const char* kLost = "it became shorter or unreadable while it was read";

std::string Content(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void Put_New_File(const fs::path& file, const std::string& content) {
  const fs::path fresh = file.string() + ".new";
  std::ofstream(fresh, std::ios::binary) << content;
  fs::rename(fresh, file);
}

std::map<std::string, std::string> Contents(const ReadingCommand& reading) {
  std::map<std::string, std::string> contents;
  for (const std::string& name : reading.outputs) contents[name] = Content(reading.root / name);
  return contents;
}

std::size_t Count_Of(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

/// Each output is the old one or (a part of) the one that sound files give.
void Expect_Old_Or_Sound(const PlayedCommand& played, const PlayedCommand& sound) {
  for (const auto& [name, after] : played.outputs_after) {
    const bool is_old = after == played.outputs_before.at(name);
    const bool is_sound = sound.outputs_after.at(name).starts_with(after);
    EXPECT_TRUE(is_old || is_sound) << name << "\n" << played.transcript;
  }
}

class RawFiles {
 public:
  explicit RawFiles(const ReadingCommand& reading) {
    for (const std::string& name : reading.raws) {
      contents_[reading.root / name] = Content(reading.root / name);
    }
  }
  ~RawFiles() { Restore(); }
  RawFiles(const RawFiles&) = delete;
  RawFiles& operator=(const RawFiles&) = delete;

  void Restore() const {
    for (const auto& [file, content] : contents_) Put_New_File(file, content);
  }

 private:
  std::map<fs::path, std::string> contents_;
};

}  // namespace

PlayedCommand Play_Command(const ReadingCommand& reading, const std::function<void()>& begin,
                           const std::function<void()>& end) {
  for (const std::string& name : reading.outputs) fs::remove(reading.root / name);
  std::istringstream in(reading.before + "say begin\n" + reading.command + "say end\n");
  std::ostringstream out, err;
  SessionOptions options;
  options.script = "-";
  options.root = reading.root;
  options.width = reading.width;
  options.height = reading.height;
  PlayedCommand played;
  std::optional<std::size_t> begun;
  Clock::time_point started;
  SessionHooks hooks;
  hooks.show = [&](Workspace&) {
    const bool is_begin = !begun && out.str().ends_with("say begin\n");
    if (!is_begin) return;
    begun = out.str().size();
    played.outputs_before = Contents(reading);
    begin();
    started = Clock::now();
  };
  Run_Session(options, {in, out, err}, hooks);
  played.seconds = std::chrono::duration<double>(Clock::now() - started).count();
  end();
  EXPECT_TRUE(begun) << out.str() << err.str();
  played.transcript = out.str().substr(begun.value_or(0));
  played.went_on = played.transcript.ends_with("say end\n");
  played.outputs_after = Contents(reading);
  return played;
}

void Expect_One_Error_For_Each_Mapping(const ReadingCommand& reading) {
  if (!kMappingIsSeen) return;
  const RawFiles raws(reading);
  int mapped = 0;
  after_mapping_raw = [&](const fs::path&) { ++mapped; };
  const auto forget = [] { after_mapping_raw = nullptr; };
  const PlayedCommand sound = Play_Command(
      reading,
      [&] {
        raws.Restore();
        mapped = 0;
      },
      forget);
  ASSERT_TRUE(sound.went_on) << sound.transcript;
  ASSERT_GT(mapped, 0);
  const int count = mapped;
  for (int n = 1; n <= count; ++n) {
    SCOPED_TRACE("mapping " + std::to_string(n));
    std::string shrunk;
    const PlayedCommand played = Play_Command(
        reading,
        [&] {
          raws.Restore();
          mapped = 0;
          after_mapping_raw = [&](const fs::path& file) {
            if (++mapped != n) return;
            fs::resize_file(file, 0);
            shrunk = file.filename().string();
          };
        },
        forget);
    EXPECT_TRUE(played.went_on) << played.transcript;
    // A file that shrinks between a look at its length and its use is found too short then.
    const std::size_t errors = Count_Of(played.transcript, shrunk + ", " + kLost) +
                               Count_Of(played.transcript, shrunk + ": the header tells");
    EXPECT_EQ(errors, 1u) << played.transcript;
    EXPECT_EQ(Count_Of("\n" + played.transcript, "\nerror "), 1u) << played.transcript;
    raws.Restore();
    Expect_Old_Or_Sound(played, sound);
  }
}

void Expect_To_Survive_Any_Moment(const ReadingCommand& reading, int rounds) {
  const RawFiles raws(reading);
  const auto restore = [&] { raws.Restore(); };
  const PlayedCommand sound = Play_Command(reading, restore, [] {});
  ASSERT_TRUE(sound.went_on) << sound.transcript;
  std::mt19937 random(4711);
  for (int round = 0; round < rounds; ++round) {
    const double delay = std::uniform_real_distribution(0.0, 1.1 * sound.seconds)(random);
    const fs::path file = reading.root / reading.raws[random() % reading.raws.size()];
    const std::uintmax_t size = random() % fs::file_size(file);
    std::thread shrinking;
    const PlayedCommand played = Play_Command(
        reading,
        [&] {
          raws.Restore();
          shrinking = std::thread([&] {
            std::this_thread::sleep_for(std::chrono::duration<double>(delay));
            fs::resize_file(file, size);
          });
        },
        [&] { shrinking.join(); });
    raws.Restore();
    EXPECT_TRUE(played.went_on) << played.transcript;
    EXPECT_LE(Count_Of(played.transcript, kLost), 1u) << played.transcript;
    if (reading.takes_short_files) continue;
    Expect_Old_Or_Sound(played, sound);
    if (played.transcript == sound.transcript) {
      EXPECT_TRUE(played.outputs_after == sound.outputs_after) << played.transcript;
    }
  }
}

}  // namespace sylvomex

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// Stands in front of the C library's function in this program.
extern "C" void* mmap(void* address, std::size_t size, int protection, int flags, int descriptor,
                      off_t offset) noexcept {
  const long placed = syscall(SYS_mmap, address, size, protection, flags, descriptor, offset);
  if (placed != -1 && descriptor >= 0 && sylvomex::after_mapping_raw) {
    std::error_code none;
    const auto file =
        std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), none);
    if (file.extension() == ".raw") sylvomex::after_mapping_raw(file);
  }
  return reinterpret_cast<void*>(placed);
}
#endif
