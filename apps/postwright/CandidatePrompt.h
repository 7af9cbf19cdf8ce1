#ifndef POSTWRIGHT_APPS_POSTWRIGHT_CANDIDATEPROMPT_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_CANDIDATEPROMPT_H_

#include <fstream>
#include <optional>
#include <string>

#include "apps/postwright/LabelFix.h"

namespace postwright {

// Has a person at a terminal choose among candidates: by their numbers, and then a number in the
// range of the one that was chosen. Asks on standard error and reads from the terminal, so that a
// label may have been typed on standard input, and the output may go elsewhere.
class CandidatePrompt {
 public:
  // Needs a person: standard input and standard error are the terminal.
  CandidatePrompt();

  // False where there is nobody to ask.
  bool IsPossible() const { return terminal_.is_open(); }

  // Offers the candidates of `fix` until one is taken or the person wants none, and asks about what
  // was chosen through `client`, as `asking` says. Returns the text to print: what the service
  // confirms, or what the person takes all the same; nullopt where the person wants none.
  std::optional<std::wstring> Offer(const LabelFix& fix, const LabelFix::Asking& asking,
                                    PostwrightClient& client);

 private:
  std::optional<std::wstring> Choose(const QList<AddressMatch>& candidates);
  std::optional<std::wstring> AskValue(const std::string& what, const std::wstring& low,
                                       const std::wstring& high, AddressRangeType type);
  bool Agrees();
  std::optional<std::wstring> ReadLine();

  std::ifstream terminal_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_CANDIDATEPROMPT_H_
