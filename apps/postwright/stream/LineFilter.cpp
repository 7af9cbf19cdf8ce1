#include "apps/postwright/stream/LineFilter.h"

#include <algorithm>
#include <memory>
#include <optional>

#include "apps/postwright/stream/ChunkFilter.h"
#include "apps/postwright/stream/EarlierRecords.h"
#include "apps/postwright/stream/LabelSource.h"
#include "apps/postwright/stream/Outage.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/stream/OwnWorker.h"
#include "apps/postwright/stream/PatientFilter.h"
#include "apps/postwright/stream/Progress.h"
#include "apps/postwright/stream/WorkerPool.h"

namespace postwright {

namespace {

// Passes over the labels that have their records already. Returns how many want a new one.
std::size_t PassOver(EarlierRecords& earlier, LabelSource& labels, Retry retry,
                     Progress& progress) {
  std::size_t count = 0;
  while (earlier.Next()) {
    earlier.Check(labels.Next() ? &labels.Label() : nullptr);
    if (IsMadeAgain(earlier.Line(), retry)) {
      ++count;
    } else {
      progress.Count(earlier.Line(), true);
    }
    progress.Refresh();
  }
  return count;
}

// Answers each line before the next is read; records wait until no more has arrived.
void FilterHere(LabelSource& labels, const LineAnswer& answer, Output& output, Progress& progress) {
  while (labels.Next()) {
    const std::string record = answer(labels.Label()).line;
    output.Write(record);
    if (!labels.IsAtHand()) {
      progress.MakeWay();
      output.Flush();
    }
    progress.Count(record);
    progress.Refresh();
  }
}

// What a worker does, on its own standard streams.
void Serve(const LineAnswer& answer) {
  const LineAnswer packed = [&answer](const LabelLine& label) { return PackRecord(answer(label)); };
  Progress progress(false);
  LabelSource labels("-", progress);
  Output output("");
  FilterHere(labels, packed, output, progress);
}

std::unique_ptr<LineWorkers> WorkersFor(int jobs, const LineAnswer& answer, RunClock& clock) {
  if (jobs == 1) {
    return std::make_unique<OwnWorker>(answer, clock);
  }
  return std::make_unique<WorkerPool>(jobs, [&answer] { Serve(answer); });
}

// False where the service was given up; the records that were made until then are in their places
// all the same.
bool MakeAgain(EarlierRecords& earlier, Retry retry, PatientFilter::Run& run) {
  RecordsAgain records(earlier.Path(), retry);
  Output output(earlier.BeginAgain(), earlier.Path());
  const bool isDone = PatientFilter(records, output, run).Do();
  output.Finish();
  isDone ? earlier.EndAgain() : earlier.Settle();
  return isDone;
}

ExitStatus EndOfOutage(const std::string& records, std::chrono::seconds giveUpAfter,
                       Progress& progress) {
  progress.Stop();
  progress.Say("the service gave no answer for " + InWords(giveUpAfter) +
               ": the run ends here, its records are whole" +
               (records.empty() ? "" : "; go on with --resume " + records));
  return kExitOutage;
}

// Makes records that take a service.
ExitStatus FilterPatiently(const LineFilterOptions& options, const LineAnswer& answer,
                           const DeadWorkerAnswer& answerForDead, RecordForm& form,
                           LabelSource& labels, Progress& progress) {
  RunClock systemClock;
  RunClock& clock = options.clock == nullptr ? systemClock : *options.clock;
  Outage outage(clock, *options.giveUpAfter);
  const auto workers = WorkersFor(options.jobs, answer, clock);
  PatientFilter::Run run{*workers, answer, answerForDead, clock, outage, progress};
  const std::string goOnWith = options.isResumable ? options.resume : "";
  std::optional<EarlierRecords> earlier;
  if (!options.resume.empty()) {
    earlier.emplace(options.resume, labels.Descriptor(), form);
    const std::size_t again = PassOver(*earlier, labels, options.retry, progress);
    earlier->Settle();
    if (again > 0 && !MakeAgain(*earlier, options.retry, run)) {
      return EndOfOutage(goOnWith, *options.giveUpAfter, progress);
    }
  }
  Output output = earlier ? Output(earlier->Continue(), options.resume) : Output(options.output);
  if (!PatientFilter(labels, output, run).Do()) {
    const std::string kept = output.Keep();
    return EndOfOutage(kept.empty() ? goOnWith : kept, *options.giveUpAfter, progress);
  }
  output.Finish();
  progress.Finish();
  return labels.Status();
}

// Makes records that need no answer.
ExitStatus FilterAlone(const LineFilterOptions& options, const LineAnswer& answer, RecordForm& form,
                       LabelSource& labels, Progress& progress) {
  std::optional<EarlierRecords> earlier;
  if (!options.resume.empty()) {
    earlier.emplace(options.resume, labels.Descriptor(), form);
    PassOver(*earlier, labels, options.retry, progress);
    earlier->Settle();
  }
  Output output = earlier ? Output(earlier->Continue(), options.resume) : Output(options.output);
  ExitStatus status = kExitDone;
  if (options.jobs == 1) {
    FilterHere(labels, answer, output, progress);
  } else {
    WorkerPool workers(
        options.jobs, [&answer] { ChunkFilter::Serve(answer); }, ChunkFilter::kAnswerEnd);
    status = ChunkFilter(labels.Lines(), output, workers, answer, progress).Do();
  }
  output.Finish();
  progress.Finish();
  return std::max(status, labels.Status());
}

}  // namespace

std::string CheckJobs(const std::string& jobs) {
  const bool isNumber = !jobs.empty() && jobs.size() <= 3 &&
                        jobs.find_first_not_of("0123456789") == std::string::npos;
  const int number = isNumber ? std::stoi(jobs) : 0;
  return number >= 1 && number <= WorkerPool::kLimit
             ? ""
             : "'" + jobs + "' is not a number from 1 to " + std::to_string(WorkerPool::kLimit);
}

ExitStatus FilterLines(const LineFilterOptions& options, const LineAnswer& answer,
                       const DeadWorkerAnswer& answerForDead) {
  FixRecordForm formOfFixes;
  RecordForm& form = options.form == nullptr ? formOfFixes : *options.form;
  Progress progress(options.progress);
  LabelSource labels(options.input, progress);
  progress.Begin(progress.IsShown() ? labels.Count() : std::nullopt);
  if (options.giveUpAfter) {
    return FilterPatiently(options, answer, answerForDead, form, labels, progress);
  }
  return FilterAlone(options, answer, form, labels, progress);
}

}  // namespace postwright
