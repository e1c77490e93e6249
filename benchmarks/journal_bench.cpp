// SPDX-License-Identifier: MIT
// What a journal costs an event: its lines, each with a write of its own, while a thread flushes
// them; and a save, which waits for the disk.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <memory>
#include <string>

#include "platform/files.h"
#include "session/journal_appends.h"
#include "session/journal_reads.h"

namespace sylvomex {
namespace {

/// A journal in a new folder below the present one, which lies on a disk.
struct BenchJournal {
  std::string folder = "journal_bench_XXXXXX";
  std::unique_ptr<JournalFile> file;
  std::unique_ptr<Journal> journal;

  BenchJournal() {
    if (mkdtemp(folder.data()) == nullptr) std::abort();
    file = std::make_unique<JournalFile>(File("journal"), 0, 0);
    journal = std::make_unique<Journal>(*file);
  }
  ~BenchJournal() {
    journal.reset();
    file.reset();
    std::filesystem::remove_all(folder);
  }
  [[nodiscard]] FilePath File(const std::string& name) const {
    return {name, std::filesystem::path(folder) / name};
  }
};

OperatorEvent Click() {
  OperatorEvent event;
  event.kind = OperatorEvent::Kind::Click;
  event.control = "Picture1(0)";
  event.x = 301.5;
  event.y = 288;
  return event;
}

void Journaled_Click(benchmark::State& state) {
  BenchJournal bench;
  const OperatorEvent event = Click();
  for (auto _ : state) {
    bench.journal->Begin_Event(event);
    bench.journal->End_Event("done");
  }
}
BENCHMARK(Journaled_Click);

void Journaled_Click_With_Three_Answers(benchmark::State& state) {
  BenchJournal bench;
  const OperatorEvent event = Click();
  for (auto _ : state) {
    bench.journal->Begin_Event(event);
    for (int i = 0; i < 3; ++i) {
      bench.journal->Dialog_Opens();
      bench.journal->Dialog_Answered(DialogKind::Input, "2515150.25");
      bench.journal->Dialog_Left();
    }
    bench.journal->End_Event("done");
  }
}
BENCHMARK(Journaled_Click_With_Three_Answers);

void Save(benchmark::State& state) {
  const BenchJournal bench;
  for (auto _ : state) Append_To_File(bench.File("points"), "1,2515150.00,6860150.00,175.00,\n");
}
BENCHMARK(Save);

void Save_With_Journal(benchmark::State& state) {
  const BenchJournal bench;
  JournalReads reads(*bench.journal, {}, bench.File("before").native);
  const JournalAppends appends(*bench.journal, {}, reads);
  for (auto _ : state) Append_To_File(bench.File("points"), "1,2515150.00,6860150.00,175.00,\n");
}
BENCHMARK(Save_With_Journal);

}  // namespace
}  // namespace sylvomex
