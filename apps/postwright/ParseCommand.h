#ifndef POSTWRIGHT_APPS_POSTWRIGHT_PARSECOMMAND_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_PARSECOMMAND_H_

#include <string>

#include "apps/postwright/stream/Failure.h"

namespace postwright {

struct ParseOptions {
  std::string file = "-";  // "-" is standard input
  bool jsonl = false;      // a JSON line a label
  bool csv = false;        // a table; where neither is said, a table is told from one label
  std::string columns;     // what makes the labels of a table; "" is to be found
  std::string output;      // "" is standard output; not for one label
  std::string resume;      // an earlier run's records to go on with; as `output`
  int jobs = 1;            // processes that parse at once; as `output`
};

// `postwright parse`: splits labels into the fields of their addresses. Throws Failure and
// ClosedPipe; returns kExitNotALabel where a line was not a label, a row could not be read or a
// plain text holds no address.
ExitStatus RunParse(const ParseOptions& options);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_PARSECOMMAND_H_
