#ifndef POSTWRIGHT_APPS_POSTWRIGHT_FIXCOMMAND_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_FIXCOMMAND_H_

#include <string>

#include "apps/postwright/Failure.h"

namespace postwright {

struct FixOptions {
  std::string file = "-";  // "-" is standard input
  bool jsonl = false;      // a JSON line a label; else the whole input is one label
  std::string output;      // "" is standard output; only with jsonl
  std::string server;      // HOST[:PORT]; "" is the build's own
};

// `postwright fix`: corrects labels against the Verify service. Throws Failure and ClosedPipe;
// returns kExitNotALabel where a line was no label or the fix of a plain text failed.
ExitStatus RunFix(const FixOptions& options);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_FIXCOMMAND_H_
