#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_CHUNKFILTER_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_CHUNKFILTER_H_

#include <cstddef>
#include <deque>
#include <list>
#include <map>
#include <string>
#include <string_view>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LineReader.h"
#include "apps/postwright/stream/LineWorkers.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/stream/Progress.h"

namespace postwright {

// Has the lines of an input answered by worker processes, some hundred at a time, and puts the
// records in the order of the lines, each as soon as it and all before it are known. For answers
// that take no longer than handing a line to another process does: lines are not even looked at
// here.
//
//   WorkerPool workers(jobs, [&answer] { ChunkFilter::Serve(answer); }, ChunkFilter::kAnswerEnd);
//   ExitStatus status = ChunkFilter(reader, output, workers, answer, progress).Do();
//
// What it holds at a time is bounded in bytes. Of a worker that dies the lines are handed out
// again, one by one; one over which two more die is reported and has the record of a line that is
// not a label.
class ChunkFilter {
 public:
  // What the answers of workers end in.
  static constexpr std::string_view kAnswerEnd = "\n.\n";

  // Borrows everything. `answer` is asked here about lines over which every worker has died.
  ChunkFilter(LineReader& lines, Output& output, LineWorkers& workers, const LineAnswer& answer,
              Progress& progress)
      : lines_(lines), output_(output), workers_(workers), answer_(answer), progress_(progress) {}

  // Answers everything up to the end of the input. kExitNotALabel where a line was not a label or
  // could not be answered, which is reported with its number.
  ExitStatus Do();

  // What a worker does, on its own standard streams.
  static void Serve(const LineAnswer& answer);

 private:
  struct Chunk {
    std::size_t number = 0;     // of its first line, in the input
    std::size_t count = 0;      // of lines
    std::string text = {};      // the lines, and then the records
    std::string problems = {};  // of the lines: "0 is not a JSON string", with line feeds
    bool isKnown = false;
    int deaths = 0;  // of workers that had this line alone
  };
  using Place = std::list<Chunk>::iterator;

  bool IsDone() const { return isEnded_ && chunks_.empty(); }
  bool MayTakeMore() const;
  void HandOut();
  void TakeLines();
  void AddTooLong(Chunk before);
  Place Add(Chunk chunk);
  void Give(Place chunk);
  void WaitForEvents();
  void Note(const LineWorkers::Answer& answer);
  void Split(Place chunk);
  void Know(Place chunk, std::string problems, std::string records);
  void KnowUnanswered(Place chunk, const std::string& problem);
  void WriteKnown();
  void Report(const Chunk& chunk);

  LineReader& lines_;
  Output& output_;
  LineWorkers& workers_;
  const LineAnswer& answer_;
  Progress& progress_;
  std::list<Chunk> chunks_;              // in the order of the lines
  std::deque<Place> due_;                // to be handed out again
  std::map<std::size_t, Place> handed_;  // what workers have, by ticket
  std::size_t ticket_ = 0;
  std::size_t bytes_ = 0;  // of all chunks
  bool isEnded_ = false;   // the input
  ExitStatus status_ = kExitDone;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_CHUNKFILTER_H_
