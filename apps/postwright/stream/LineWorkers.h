#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEWORKERS_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEWORKERS_H_

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/postwright/stream/LabelLine.h"
#include "apps/postwright/stream/LineRecord.h"

namespace postwright {

// What makes a record of an input line. One that is not a label is handed over all the same, its
// problem said.
using LineAnswer = std::function<LineRecord(const LabelLine&)>;

// Who answers lines, each worker one at a time.
//
//   if (workers.HasRoom()) workers.Give(0, label, line);
//   for (const LineWorkers::Answer& answer : workers.Wait(-1, -1).answers) ...
class LineWorkers {
 public:
  struct Answer {
    std::size_t ticket;
    LineRecord record;   // its line is empty where the worker died over it
    std::string ending;  // how it died: "was ended by signal 9 (Killed)"
  };

  struct Events {
    std::vector<Answer> answers;
    bool isReadable = false;  // the descriptor that was waited for besides the workers
  };

  virtual ~LineWorkers() = default;

  // Whether a worker is free. Throws Failure where there can be none at all.
  virtual bool HasRoom() = 0;

  // Gives a free worker a line, without its line feed. `ticket` tells which line was answered.
  virtual void Give(std::size_t ticket, const LabelLine& label, std::string_view line) = 0;

  // Waits for answers, for `descriptor` to be readable (-1: none) or until `milliseconds` have gone
  // by (-1: for ever); returns with at least one of them, or with none where a signal came.
  virtual Events Wait(int descriptor, int milliseconds) = 0;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEWORKERS_H_
