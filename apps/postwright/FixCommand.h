#ifndef POSTWRIGHT_APPS_POSTWRIGHT_FIXCOMMAND_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_FIXCOMMAND_H_

#include <string>

#include "apps/postwright/Failure.h"

namespace postwright {

struct FixOptions {
  std::string file = "-";         // "-" is standard input
  bool jsonl = false;             // a JSON line a label; else the whole input is one label
  std::string output;             // "" is standard output; only with jsonl
  std::string server;             // HOST[:PORT]; "" is the build's own
  std::string letters = "upper";  // the case of corrected text: upper, lower or mixed
  bool keepPunctuation = false;
  std::string mixedCase;  // the user's spellings, separated by ";"
};

// What is wrong with the value of --case or of --mixed-case; the empty answer is consent.
std::string CheckLetters(const std::string& letters);
std::string CheckSpellings(const std::string& spellings);

// `postwright fix`: corrects labels against the Verify service. Throws Failure and ClosedPipe;
// returns kExitNotALabel where a line was no label or the fix of a plain text failed.
ExitStatus RunFix(const FixOptions& options);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_FIXCOMMAND_H_
