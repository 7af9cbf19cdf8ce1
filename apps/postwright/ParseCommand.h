#ifndef POSTWRIGHT_APPS_POSTWRIGHT_PARSECOMMAND_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_PARSECOMMAND_H_

#include <string>

#include "apps/postwright/stream/Failure.h"

namespace postwright {

struct ParseOptions {
  std::string file = "-";  // "-" is standard input
  bool jsonl = false;      // a JSON line a label; else the whole input is one label
  std::string output;      // "" is standard output; only with jsonl
};

// `postwright parse`: splits labels into the fields of their addresses. Throws Failure and
// ClosedPipe; returns kExitNotALabel where a line was no label or a plain text holds no address.
ExitStatus RunParse(const ParseOptions& options);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_PARSECOMMAND_H_
