#ifndef POSTWRIGHT_APPS_POSTWRIGHT_FIXCOMMAND_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_FIXCOMMAND_H_

#include <chrono>
#include <string>

#include "apps/postwright/stream/Failure.h"

namespace postwright {

// Those of the second group are for many labels.
struct FixOptions {
  std::string file = "-";              // "-" is standard input
  std::string server;                  // HOST[:PORT]; "" is that of the environment, or none
  std::chrono::seconds timeout{0};     // of one request; 0 is the build's own
  std::string letters = "upper";       // the case of corrected text: upper, lower or mixed
  std::string punctuation = "postal";  // keep, postal or remove
  bool keepPunctuation = false;        // "keep" by its other name
  std::string names = "as-typed";      // of lines around the address: as-typed or same-case
  bool wholeLabel = false;      // ask about the whole text, not about the address lines alone
  std::string mixedCase;        // the user's spellings, separated by ";"
  bool explain = false;         // say why each word was changed
  bool candidates = false;      // say what could have been meant
  bool acceptDoubtful = false;  // take corrections that a person should look at
  bool jsonl = false;           // a JSON line a label
  bool csv = false;             // a table; where neither is said, a table is told from one label
  std::string columns;          // what makes the labels of a table; "" is to be found

  std::string output;        // "" is standard output
  std::string resume;        // an earlier run's records; beside `output` only of a table
  bool retryFailed = false;  // with `resume`: ask again about what was turned down, too
  int jobs = 1;              // fixes under way at once
  std::chrono::seconds giveUpAfter = std::chrono::minutes(10);  // without any answer
  bool quiet = false;                                           // no progress
};

// What is wrong with the value of --case, --punctuation, --names or --mixed-case; empty if nothing
// is.
std::string CheckLetters(const std::string& letters);
std::string CheckPunctuation(const std::string& punctuation);
std::string CheckNames(const std::string& names);
std::string CheckSpellings(const std::string& spellings);

// `postwright fix`: corrects labels against the Verify service that is named, or the process's own
// (OwnService). Throws Failure and ClosedPipe; returns kExitNotALabel where a line was not a label,
// a row could not be read or the fix of a plain text failed, kExitDoubtful where that of a plain
// text is doubtful, and kExitOutage where many labels were given up, for want of answers.
ExitStatus RunFix(const FixOptions& options);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_FIXCOMMAND_H_
