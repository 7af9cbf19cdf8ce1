#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_PARALLELFILTER_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_PARALLELFILTER_H_

#include <cstddef>
#include <deque>
#include <string>

#include "apps/postwright/stream/LabelSource.h"
#include "apps/postwright/stream/LineFilter.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/stream/Progress.h"
#include "apps/postwright/stream/WorkerPool.h"

namespace postwright {

// Has the lines of one stream answered by a pool of workers and puts the records in the order of
// the lines, each as soon as it and all before it are known. Reads on while it writes; what it
// holds at a time is bounded, in lines and in bytes.
class ParallelFilter {
 public:
  // Borrows everything. `answer` is asked here about lines that are no labels alone.
  ParallelFilter(LabelSource& labels, WorkerPool& pool, const LineAnswer& answer,
                 const DeadWorkerAnswer& answerForDead, Output& output, Progress& progress)
      : labels_(labels),
        pool_(pool),
        answer_(answer),
        answerForDead_(answerForDead),
        output_(output),
        progress_(progress) {}

  // Answers everything up to the end of the input.
  void Run();

 private:
  // A line that has been read and whose record has not been written.
  struct Entry {
    LabelLine label;     // until the record is known
    std::string record;  // empty until then
    std::size_t bytes;   // of the line, and then of the record
  };

  bool MayTakeMore() const;
  void TakeLabels();
  void Take();
  void WaitForAnswers();
  void Know(std::size_t ticket, std::string record);
  void WriteKnown();

  LabelSource& labels_;
  WorkerPool& pool_;
  const LineAnswer& answer_;
  const DeadWorkerAnswer& answerForDead_;
  Output& output_;
  Progress& progress_;
  std::deque<Entry> entries_;  // in the order of the lines
  std::size_t first_ = 0;      // the ticket of the first entry
  std::size_t bytes_ = 0;      // of all entries
  bool isEnded_ = false;       // the input
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_PARALLELFILTER_H_
