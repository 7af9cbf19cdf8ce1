#include "apps/postwright/stream/LineFilter.h"

#include <optional>

#include "apps/postwright/stream/EarlierRecords.h"
#include "apps/postwright/stream/LabelSource.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/stream/ParallelFilter.h"
#include "apps/postwright/stream/Progress.h"

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

void FilterHere(LabelSource& labels, Flushing flushing, const LineAnswer& answer, Output& output,
                Progress& progress) {
  while (labels.Next()) {
    const std::string record = answer(labels.Label());
    output.Write(record);
    if (flushing == Flushing::kEachRecord || !labels.Reader().IsLineAtHand()) {
      progress.MakeWay();
      output.Flush();
    }
    progress.Count(record);
    progress.Refresh();
  }
}

// What a worker does: the same, on its own standard streams.
void Serve(const LineAnswer& answer) {
  Progress progress(false);
  LabelSource labels("-", progress);
  Output output("");
  FilterHere(labels, Flushing::kEachRecord, answer, output, progress);
}

}  // namespace

ExitStatus FilterLines(const LineFilterOptions& options, const LineAnswer& answer,
                       const DeadWorkerAnswer& answerForDead) {
  Progress progress(options.progress);
  LabelSource labels(options.input, progress);
  progress.Begin(progress.IsShown() ? labels.Reader().CountLinesAhead() : std::nullopt);
  std::optional<EarlierRecords> earlier;
  if (!options.resume.empty()) {
    earlier.emplace(options.resume, labels.Reader().Descriptor());
    PassOver(*earlier, labels, progress);
  }
  Output output = earlier ? Output(earlier->Continue(), options.resume) : Output(options.output);
  if (options.jobs > 1) {
    WorkerPool pool(options.jobs, [&answer] { Serve(answer); });
    ParallelFilter(labels, pool, answer, answerForDead, output, progress).Run();
  } else {
    FilterHere(labels, options.flushing, answer, output, progress);
  }
  output.Finish();
  progress.Finish();
  return labels.Status();
}

}  // namespace postwright
