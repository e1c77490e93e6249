// SPDX-License-Identifier: MIT
// Pipes, sockets and devices in the place of files: a message, and no waiting.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <thread>

#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/line_file.h"
#include "platform/list_reader.h"
#include "platform/replacing_file.h"
#include "session/picture_png.h"
#include "session/session.h"
#include "support/failure_of.h"
#include "support/flat_model.h"
#include "support/recording_screen.h"
#include "support/small_site.h"
#include "workspace/event_dispatch.h"
#include "workspace/start_up.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

/// Ends the program when the test waits for something that never comes.
struct Patience {
  explicit Patience(unsigned seconds) { alarm(seconds); }
  ~Patience() { alarm(0); }
  Patience(const Patience&) = delete;
  Patience& operator=(const Patience&) = delete;
};

void Make_Pipe(const fs::path& path) {
  fs::create_directories(path.parent_path());
  fs::remove(path);
  ASSERT_EQ(mkfifo(path.c_str(), 0666), 0) << path;
}

/// One end of a pipe that another program holds open, so that opening it would not wait but
/// reading it would.
class HeldPipe {
 public:
  explicit HeldPipe(const fs::path& path) : descriptor_(open(path.c_str(), O_RDWR)) {}
  ~HeldPipe() { close(descriptor_); }
  HeldPipe(const HeldPipe&) = delete;
  HeldPipe& operator=(const HeldPipe&) = delete;

 private:
  int descriptor_;
};

FilePath Make_Socket(const TemporaryFolder& folder) {
  FilePath file = folder.File("socket");
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  file.native.native().copy(address.sun_path, sizeof address.sun_path - 1);
  const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
  EXPECT_EQ(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  close(listening);
  return file;
}

void Expect_Refused_By_All(const FilePath& file) {
  const Patience patience(60);
  const std::string refusal = "File error: " + file.name + ", it is not an ordinary file";
  const std::vector<std::uint8_t> bytes{1, 2, 3};
  EXPECT_EQ(Failure_Of([&] { Read_Whole_File(file); }), refusal);
  EXPECT_EQ(Failure_Of([&] { ListReader{file}; }), refusal);
  EXPECT_EQ(Failure_Of([&] { PositionalFile{file}; }), refusal);
  EXPECT_EQ(Failure_Of([&] { MappedFile{file}; }), refusal);
  EXPECT_EQ(Failure_Of([&] { Write_Whole_File(file, "text"); }), refusal);
  EXPECT_EQ(Failure_Of([&] { Append_To_File(file, "text\n"); }), refusal);
  EXPECT_EQ(Failure_Of([&] { Append_To_File(file, ""); }), refusal);
  EXPECT_EQ(Failure_Of([&] { Overwrite_Start(file, bytes); }), refusal);
  EXPECT_EQ(Failure_Of([&] { LineFile{file}; }), refusal);
  EXPECT_EQ(Failure_Of([&] { ReplacingFile(file, 3); }), refusal);
  EXPECT_EQ(Failure_Of([&] { Open_Locked(file, O_RDWR); }), refusal);
}

TEST(Pipes, AreRefusedByEveryReaderAndWriter) {
  const TemporaryFolder folder;
  const FilePath pipe = folder.File("pipe");
  Make_Pipe(pipe.native);
  Expect_Refused_By_All(pipe);
  const HeldPipe held(pipe.native);
  Expect_Refused_By_All(pipe);
}

TEST(Pipes, SocketsAndDevicesAreRefusedToo) {
  const TemporaryFolder folder;
  Expect_Refused_By_All(Make_Socket(folder));
  for (const char* device : {"/dev/zero", "/dev/full", "/dev/null"}) {
    Expect_Refused_By_All({device, device});
  }
}

TEST(Pipes, APictureIsNotSavedIntoAPipe) {
  const Patience patience(60);
  const TemporaryFolder folder;
  const FilePath pipe = folder.File("pipe.png");
  Make_Pipe(pipe.native);
  Picture picture;
  picture.Width = picture.Height = 20;
  EXPECT_EQ(Failure_Of([&] { Save_Picture_Png(picture, pipe.native); }),
            "File error: " + pipe.native.string() + ", it is not an ordinary file");
}

TEST(Pipes, ASessionIsNotRecordedIntoAPipe) {
  const Patience patience(60);
  const SmallSite site;
  Make_Pipe(site.Folder().Path() / "pipe");
  std::istringstream in("say never\n");
  std::ostringstream out, err;
  SessionOptions options;
  options.script = "-";
  options.root = site.Folder().Path();
  options.record = (site.Folder().Path() / "pipe").string();
  EXPECT_EQ(Run_Session(options, {in, out, err}), 1);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(err.str(), "cannot write the record: File error: " + options.record +
                           ", it is not an ordinary file\n");
}

TEST(Pipes, AScriptMayComeThroughAPipe) {
  const Patience patience(60);
  const SmallSite site;
  const fs::path pipe = site.Folder().Path() / "pipe";
  Make_Pipe(pipe);
  std::jthread writer([&] { std::ofstream(pipe) << "say through a pipe\n"; });
  std::istringstream in;
  std::ostringstream out, err;
  SessionOptions options;
  options.script = pipe.string();
  options.root = site.Folder().Path();
  EXPECT_EQ(Run_Session(options, {in, out, err}), 0);
  EXPECT_EQ(out.str(), "say through a pipe\n");
}

/// Answers everything: files with a pipe, numbers with 1; a question that comes again and again is
/// dismissed.
struct TirelessScreen : RecordingScreen {
  static constexpr int kPatience = 40;
  int questions = 0;
  std::string chosen;

  Answer Message_Box(std::string_view text, Buttons buttons, std::string_view) override {
    messages.emplace_back(text);
    return buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
  }
  std::optional<std::string> Input_Box(std::string_view, std::string_view,
                                       std::string_view) override {
    return Answered("1");
  }
  std::optional<std::string> File_Dialog(const FileQuestion&) override { return Answered(chosen); }

 private:
  std::optional<std::string> Answered(const std::string& answer) {
    if (++questions > kPatience) return std::nullopt;
    return answer;
  }
};

/// The drive names that stand in the sources.
std::set<std::string> Names_In_Sources() {
  const std::regex literal(R"rx("([A-Fa-f]:(?:\\\\[^"\\]+)+\.[A-Za-z]+)")rx");
  std::set<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(SYLVOMEX_SOURCE_DIR)) {
    if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
    std::stringstream text;
    text << std::ifstream(entry.path()).rdbuf();
    const std::string source = text.str();
    for (std::sregex_iterator found(source.begin(), source.end(), literal), end; found != end;
         ++found) {
      names.insert(std::regex_replace((*found)[1].str(), std::regex(R"(\\\\)"), "\\"));
    }
  }
  return names;
}

struct PipesEverywhere : testing::Test {
  SmallSite site;
  TirelessScreen screen;
  std::unique_ptr<Workspace> block = std::make_unique<Workspace>(site.Drives(), screen);
  Workspace& w = *block;

  PipesEverywhere() {
    site.Write_Image("a", {.id = 1});
    site.Write_Image("b", {.id = 2, .X0 = 20});
    Write_Flat_Model(site.Folder(), 0);
    w.Form1.ClientWidth = 1280;
    w.Form1.ClientHeight = 1024;
    Start_Workspace(w);
    for (const char* name : {"a", "b"}) Load("Add_images_to_set", name);
    Load("Add_height_Model", "dem");
    w.SolutionValid = true;
    for (const auto& entry : fs::recursive_directory_iterator(site.Folder().Path())) {
      if (entry.is_regular_file()) Make_Pipe(entry.path());
    }
    for (const std::string& name : Names_In_Sources()) Make_Pipe(w.Drives.Locate(name).native);
    screen.chosen = "c:\\data\\a.hdr";
  }

  void Load(const std::string& item, const std::string& name) {
    screen.chosen = "c:\\data\\" + name + ".hdr";
    Choose("Form1", item);
  }

  void Choose(const std::string& form, const std::string& item) {
    screen.questions = 0;
    OperatorEvent event;
    event.kind = OperatorEvent::Kind::Command;
    event.form = form;
    event.control = item;
    Handle_Event(w, event);
  }
};

TEST_F(PipesEverywhere, NoCommandWaitsForOne) {
  ASSERT_EQ(w.ImageCount, 2);
  ASSERT_GT(Names_In_Sources().size(), 30u);
  std::size_t refused = 0;
  for (const WindowRow& window : All_Windows()) {
    for (const MenuRow& row : window.menu) {
      if (row.handler == nullptr) continue;
      const Patience patience(60);
      SCOPED_TRACE(row.name);
      screen.errors.clear();
      Choose(window.name, row.name);
      for (const std::string& error : screen.errors) {
        refused += error.find("it is not an ordinary file") != std::string::npos ? 1 : 0;
      }
    }
  }
  EXPECT_GT(refused, 25u);
}

/// Files are opened where this is looked after, and nowhere else.
TEST(Pipes, OnlyTheFileLayerOpensFiles) {
  const std::set<std::string> kOpening{
      "file_descriptor.cpp",  // looks what it is
      "unnamed_file.cpp",     // makes a new one
      "session.cpp",          // scripts, which may come through a pipe
      "record_file.h",        // the record, after the file layer has looked at it
      "record_file.cpp",
      "memory_room.cpp",     // files of the system itself
      "root_lock.cpp",       // the same, and a folder
      "journal_reads.cpp",   // without waiting
      "file_part.cpp",       // after a look at the file's size, which a pipe has not
      "measured_model.cpp",  // the same
      "peak_memory.cpp",     // files of the system itself
  };
  const std::regex opening(
      R"((^|[^_a-zA-Z.>])open\(|\.open\([^Q)]|\bfopen\(|std::[oi]?fstream\b|\bQFile [a-z]|QSaveFile|write_to_png\(|\.save\(Q)");
  for (const auto& entry : fs::recursive_directory_iterator(SYLVOMEX_SOURCE_DIR)) {
    const bool is_source = entry.path().extension() == ".cpp" || entry.path().extension() == ".h";
    const bool is_of_runs_without_operator =
        entry.path().string().find("/interchange/") != std::string::npos;
    if (is_of_runs_without_operator) continue;
    if (!is_source || kOpening.contains(entry.path().filename().string())) continue;
    std::ifstream stream(entry.path());
    int number = 0;
    for (std::string line; std::getline(stream, line);) {
      ++number;
      const std::string code = line.substr(0, line.find("//"));
      EXPECT_FALSE(std::regex_search(code, opening))
          << entry.path() << ':' << number << ' ' << line;
    }
  }
}

}  // namespace
}  // namespace sylvomex
