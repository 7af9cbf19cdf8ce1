#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEFILTER_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEFILTER_H_

#include <functional>
#include <string>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LabelLine.h"

namespace postwright {

// When a finished record is handed to the reader of the output.
enum class Flushing {
  kEachRecord,  // at once: each takes long to make
  kWhenIdle     // before the filter waits for input: each takes microseconds
};

// What makes a record, a line with its line feed, of an input line. One that is no label is handed
// over all the same, its problem said.
using LineAnswer = std::function<std::string(const LabelLine&)>;

// What makes the record of a label whose worker process died: the text says how, as in "was ended
// by signal 9 (Killed)".
using DeadWorkerAnswer = std::function<std::string(const LabelLine&, const std::string&)>;

struct LineFilterOptions {
  std::string input = "-";  // "-" is standard input
  std::string output;       // "" is standard output
  std::string resume;       // an earlier run's output to go on with, in place of `output`
  int jobs = 1;             // processes that make records at once
  bool progress = false;    // show it where standard error is a terminal
  Flushing flushing = Flushing::kEachRecord;
};

// Answers every line of the input with a record, in order. A line that is no label is reported on
// standard error with its number. With one job one line is held at a time and `answer` is called in
// this process; with more, in forks of it (WorkerPool), and `answerForDead` in this process.
//
// With `resume` the labels whose records are there are passed over; where those are of another
// input, nothing is changed (EarlierRecords).
//
// Returns kExitNotALabel where a line was no label. Throws Failure and ClosedPipe.
ExitStatus FilterLines(const LineFilterOptions& options, const LineAnswer& answer,
                       const DeadWorkerAnswer& answerForDead = {});

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEFILTER_H_
