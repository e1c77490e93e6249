// SPDX-License-Identifier: MIT
// A disk that fails at any write or flush of a session with a journal, and the session that goes on
// in that journal later.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <sstream>

#include "played_journal.h"
#include "session/file_part.h"
#include "session/session.h"
#include "session/step_end.h"
#include "support/failing_calls.h"
#include "support/failure_of.h"

namespace sylvomex {
namespace {

constexpr const char* kPoints = "c/data/Lehtomaa/Pistedata/PointData.txt";
constexpr int kSaved = 3;

std::string Saving_Script(int lines = kSaved) {
  std::string script = "file c:\\data\\a.hdr\ntry menu Add_images_to_set\n";
  for (int i = 0; i < lines; ++i) {
    script += "input " + std::to_string(i) +
              "\ninput 7\ninput 3\ntry menu Set_3D_solution\n"
              "try menu Save_measured_point\ntry press Form3.Accept_And_Save_Button\n";
  }
  return script + "print NextMeasurementNumber\n";
}

struct FailingSession : PlayedJournal {
  FailingSession() {
    site.Write_Image("a", {});
    options.width = options.height = 200;
  }
  int Play_With_Journal(const std::string& script = Saving_Script()) {
    options.journal = (folder.Path() / "journal").string();
    return Play(script);
  }
  int Resume() {
    options.resume = std::exchange(options.journal, "");
    return Play("print NextMeasurementNumber\n");
  }
  std::vector<std::string> Lines() const {
    std::istringstream points(site.Folder().Has(kPoints) ? site.Folder().Read(kPoints) : "");
    std::vector<std::string> lines;
    for (std::string line; std::getline(points, line);) lines.push_back(line);
    return lines;
  }
};

/// The lines of a session that takes some back and puts them back again.
std::string Taking_Script() {
  return "history on\n" + Saving_Script(2) +
         "try undo\ntry redo\ntry takeback\ntry redo\nprint NextMeasurementNumber\ntry takeback\n"
         "try menu Save_measured_point\ntry press Form3.Accept_And_Save_Button\n"
         "print NextMeasurementNumber\n";
}

struct Fault {
  SystemCall call;
  int error;
};

class JournalOnAFailingDisk : public testing::TestWithParam<Fault> {};

TEST_P(JournalOnAFailingDisk, LosesAndDoublesNoLine) {
  int calls = 0;
  for (;; ++calls) {
    FailingSession session;
    bool has_failed = false;
    int status = 0;
    {
      const FailingCall failing(GetParam().call, GetParam().error, calls);
      status = session.Play_With_Journal();
      has_failed = FailingCall::Has_Happened();
    }
    const std::vector<std::string> saved = session.Lines();
    const std::string next = "Number = " + std::to_string(saved.size() + 1) + "\n";
    const bool is_counted = session.transcript.find(next) != std::string::npos;
    EXPECT_TRUE(is_counted || status == kStartFailed) << calls << session.transcript;
    session.Resume();
    EXPECT_EQ(session.Lines(), saved) << calls << session.told;
    EXPECT_EQ(std::set(saved.begin(), saved.end()).size(), saved.size()) << calls;
    if (!has_failed) break;
  }
  EXPECT_GT(calls, kSaved);
}

/// The numbers of the saved lines, "1 2 3".
std::string Numbers(const std::vector<std::string>& lines) {
  std::string numbers;
  for (const std::string& line : lines) {
    const std::size_t first = line.find_first_not_of(' ');
    numbers += line.substr(first, line.find(',') - first) + " ";
  }
  return numbers;
}

std::string Numbers_Below(int next) {
  std::string numbers;
  for (int i = 1; i < next; ++i) numbers += std::to_string(i) + " ";
  return numbers;
}

class LinesTakenBackOnAFailingDisk : public testing::TestWithParam<Fault> {};

TEST_P(LinesTakenBackOnAFailingDisk, StandInTheirFileOnceOrNotAtAll) {
  int calls = 0;
  for (bool has_failed = true; has_failed; ++calls) {
    FailingSession session;
    {
      const FailingCall failing(GetParam().call, GetParam().error, calls);
      session.Play_With_Journal(Taking_Script());
      has_failed = FailingCall::Has_Happened();
    }
    if (session.transcript.empty()) continue;  // it could not be begun
    const std::vector<std::string> saved = session.Lines();
    const std::size_t last = session.transcript.rfind("Number = ");
    ASSERT_NE(last, std::string::npos) << calls << session.told;
    EXPECT_EQ(Numbers(saved), Numbers_Below(std::atoi(session.transcript.c_str() + last + 9)))
        << calls << session.transcript;
    session.Resume();
    EXPECT_EQ(session.Lines(), saved) << calls << session.told;
  }
  EXPECT_GT(calls, kSaved);
}

INSTANTIATE_TEST_SUITE_P(Faults, LinesTakenBackOnAFailingDisk,
                         testing::Values(Fault{SystemCall::Write, ENOSPC},
                                         Fault{SystemCall::Flush, EIO},
                                         Fault{SystemCall::ReadAt, EIO},
                                         Fault{SystemCall::Cut, EIO},
                                         Fault{SystemCall::Cut, EINTR}));

INSTANTIATE_TEST_SUITE_P(Faults, JournalOnAFailingDisk,
                         testing::Values(Fault{SystemCall::Write, ENOSPC},
                                         Fault{SystemCall::Write, FailingCall::kInPart},
                                         Fault{SystemCall::Flush, EIO}));

/// How many lines a journal has, but for the times of day.
long Lines_Of(const std::string& journal) {
  std::istringstream text(journal);
  long lines = 0;
  for (std::string line; std::getline(text, line);) lines += line.starts_with("# time") ? 0 : 1;
  return lines;
}

TEST(JournalFailure, WritesTakenInPartsLoseNothing) {
  FailingSession session;
  ASSERT_EQ(session.Play_With_Journal(), 0);
  const std::string whole = session.folder.Read("journal");
  for (int calls = 0; calls < 12; ++calls) {
    FailingSession other;
    const FailingCall failing(SystemCall::Write, FailingCall::kInPart, calls);
    EXPECT_EQ(other.Play_With_Journal(), 0) << calls << other.told;
    EXPECT_EQ(Lines_Of(other.folder.Read("journal")), Lines_Of(whole)) << calls;
  }
}

TEST(JournalFailure, AFlushThatFailsInTheBackgroundIsTold) {
  FailingSession session;
  const FailingCall failing(SystemCall::Flush, EIO);
  session.options.journal = (session.folder.Path() / "journal").string();
  session.Play("input 1\ninput 7\ninput 3\nmenu Set_3D_solution\n");
  EXPECT_NE(session.told.find("the journal ends early"), std::string::npos) << session.told;
  EXPECT_NE(session.told.find("Input/output error"), std::string::npos) << session.told;
}

/// The beginning of a journal; then the disk fails.
class BrokenJournal : public std::streambuf {
 protected:
  int_type underflow() override {
    if (given_) throw std::ios_base::failure("broken");
    given_ = true;
    setg(text_.data(), text_.data(), text_.data() + text_.size());
    return traits_type::to_int_type(text_[0]);
  }

 private:
  std::string text_ = "journal 1\nroot /\nsize 200 200\nseed 1\nset Text4 9\nend done\n";
  bool given_ = false;
};

TEST(JournalFailure, AJournalThatCannotBeReadToItsEndIsNotPlayed) {
  FailingSession session;
  BrokenJournal broken;
  std::istream in(&broken);
  std::ostringstream out, err;
  EXPECT_EQ(Run_Session(session.options, {in, out, err}), 1);
  EXPECT_EQ(err.str(), "cannot read the script - to its end\n");
  EXPECT_EQ(out.str(), "");
}

TEST(JournalFailure, APartThatCannotBeReadIsNoMissingOne) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write("points.txt", "1,2\n3,4\n");
  const FailingCall failing(SystemCall::Read, EIO);
  EXPECT_NE(Failure_Of([&] { Part_Of_File(file.native, 4, 4); }).find("cannot be read any further"),
            std::string::npos);
  EXPECT_EQ(Part_Of_File(file.native, 4, 4), "3,4\n");
}

}  // namespace
}  // namespace sylvomex
