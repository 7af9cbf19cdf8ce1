#ifndef POSTWRIGHT_APPS_POSTWRIGHT_LINEFILTER_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_LINEFILTER_H_

#include <functional>
#include <string>

#include "apps/postwright/Failure.h"
#include "apps/postwright/LabelLine.h"

namespace postwright {

// When a finished record is handed to the reader of the output.
enum class Flushing {
  kEachRecord,  // at once: each takes long to make
  kWhenIdle     // before the filter waits for input: each takes microseconds
};

// Answers every line of the file `input` ("-": standard input) with the line that `answer` makes
// of it, in order, into the file `output` ("": standard output). A line that is no label is
// reported on standard error with its number and handed to `answer` all the same, its problem
// said, so that it is answered, too. One line is held at a time.
//
// Returns kExitNotALabel where a line was no label. Throws Failure and ClosedPipe.
ExitStatus FilterLines(const std::string& input, const std::string& output, Flushing flushing,
                       const std::function<std::string(const LabelLine&)>& answer);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_LINEFILTER_H_
