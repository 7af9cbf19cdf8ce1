#ifndef POSTWRIGHT_APPS_BASE_LOOKUPCOMMAND_H_
#define POSTWRIGHT_APPS_BASE_LOOKUPCOMMAND_H_

#include <string>

namespace postwright::postal {

struct LookupOptions {
  std::string base;
  std::string unit;
  std::string street;
  std::string city;
  std::string state;
  std::string zip;
  std::string zips;  // a file of ZIP codes besides those that come with it; may be empty
};

// `postwright-base lookup`: writes to standard output what the service would answer, and how it
// comes to that. Returns the exit status.
int RunLookup(const LookupOptions& options);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_LOOKUPCOMMAND_H_
