#include "apps/postwright/stream/LineFilter.h"

#include <memory>
#include <optional>

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

// Passes over the labels that have their records already.
void PassOver(EarlierRecords& earlier, LabelSource& labels, Progress& progress) {
  while (earlier.Next()) {
    earlier.Check(labels.Next() ? &labels.Label() : nullptr);
    progress.Count(earlier.Line(), true);
    progress.Refresh();
  }
}

// Answers each line before the next is read; records wait until there is none at hand.
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

ExitStatus EndOfOutage(const LineFilterOptions& options, Output& output, Progress& progress) {
  const std::string kept = output.Keep();
  const std::string file = kept.empty() ? options.resume : kept;
  progress.Stop();
  progress.Say("the service gave no answer for " + InWords(*options.giveUpAfter) +
               ": the run ends here, its records are whole" +
               (file.empty() ? "" : "; go on with --resume " + file));
  return kExitOutage;
}

}  // namespace

ExitStatus FilterLines(const LineFilterOptions& options, const LineAnswer& answer,
                       const DeadWorkerAnswer& answerForDead) {
  Progress progress(options.progress);
  LabelSource labels(options.input, progress);
  progress.Begin(progress.IsShown() ? labels.Count() : std::nullopt);
  std::optional<EarlierRecords> earlier;
  if (!options.resume.empty()) {
    earlier.emplace(options.resume, labels.Descriptor());
    PassOver(*earlier, labels, progress);
  }
  Output output = earlier ? Output(earlier->Continue(), options.resume) : Output(options.output);
  if (options.giveUpAfter) {
    RunClock systemClock;
    RunClock& clock = options.clock == nullptr ? systemClock : *options.clock;
    Outage outage(clock, *options.giveUpAfter);
    const auto workers = WorkersFor(options.jobs, answer, clock);
    PatientFilter::Run run{*workers, answer, answerForDead, clock, outage, progress};
    if (!PatientFilter(labels, output, run).Do()) {
      return EndOfOutage(options, output, progress);
    }
  } else {
    FilterHere(labels, answer, output, progress);
  }
  output.Finish();
  progress.Finish();
  return labels.Status();
}

}  // namespace postwright
