#ifndef POSTWRIGHT_APPS_BASE_FETCHCOMMAND_H_
#define POSTWRIGHT_APPS_BASE_FETCHCOMMAND_H_

#include <string>
#include <vector>

#include "apps/base/ProgressLine.h"
#include "postal/fetch/FetchPlan.h"

namespace postwright::postal {

struct FetchOptions {
  FetchRequest request;
  std::string base;                // empty: one of the places' names among the user's bases
  std::string tokenFile;           // empty: no login
  std::vector<std::string> hosts;  // that the server may send us to
  bool restart = false;
  ProgressLine::Form progress = ProgressLine::Form::Text;
};

struct UpdateOptions {
  std::vector<std::string> bases;  // none: all of the user's that were fetched
  std::string tokenFile;
  std::vector<std::string> hosts;
  ProgressLine::Form progress = ProgressLine::Form::Text;
};

// Run `postwright-base fetch` and `postwright-base update`: fetch the files, and make the base of
// them. Return the status to exit with; throw what the parts do.
int RunFetch(const FetchOptions& options);
int RunUpdate(const UpdateOptions& options);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_FETCHCOMMAND_H_
