#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEFILTER_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEFILTER_H_

#include <chrono>
#include <optional>
#include <string>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LineWorkers.h"
#include "apps/postwright/stream/PatientFilter.h"
#include "apps/postwright/stream/RecordForm.h"
#include "apps/postwright/stream/RecordsAgain.h"
#include "apps/postwright/stream/RunClock.h"

namespace postwright {

struct LineFilterOptions {
  std::string input = "-";     // "-" is standard input
  std::string output;          // "" is standard output
  std::string resume;          // an earlier run's output to go on with, in place of `output`
  RecordForm* form = nullptr;  // of its records; null is that of fixes
  bool isResumable = true;     // that file outlives the run, so that the user may go on with it
  Retry retry = Retry::kUnanswered;  // which of its records are made again
  int jobs = 1;                      // processes that make records at once
  bool progress = false;             // show it where standard error is a terminal

  // A service that is away is waited for: for so long without any answer (Outage). Nothing: records
  // are made without a service.
  std::optional<std::chrono::seconds> giveUpAfter;
  RunClock* clock = nullptr;  // to wait by; null is the system's. Not with jobs.
};

// What is wrong with the value of --jobs; empty if nothing is.
std::string CheckJobs(const std::string& jobs);

// Answers every line of the input with a record, in order. A line that is not a label is reported
// on standard error with its number. With one job `answer` is called in this process; with more, in
// forks of it (WorkerPool), and `answerForDead` in this process. Records that are made without a
// service are made by many lines at once (ChunkFilter); `answerForDead` has no part in it.
//
// With `resume` the labels whose records are there are passed over, but
// for those that are made again; where the records are of another input, nothing is changed
// (EarlierRecords).
//
// Returns kExitNotALabel where a line was not a label, and kExitOutage where the service was given
// up: then each line that was taken has its record, and standard error says where they are. Throws
// Failure and ClosedPipe.
ExitStatus FilterLines(const LineFilterOptions& options, const LineAnswer& answer,
                       const DeadWorkerAnswer& answerForDead = {});

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEFILTER_H_
