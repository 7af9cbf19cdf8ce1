#ifndef POSTWRIGHT_POSTAL_FETCH_FETCHPLAN_H_
#define POSTWRIGHT_POSTAL_FETCH_FETCHPLAN_H_

#include <optional>
#include <string>
#include <vector>

#include "postal/fetch/FileFetch.h"
#include "postal/fetch/SiteClient.h"
#include "postal/import/BaseBuilder.h"

namespace postwright::postal {

// What a user asks for.
struct FetchRequest {
  std::string from = "tiger";       // a name of FetchKinds
  std::vector<std::string> places;  // as ReadPlaces takes them
  std::string year;                 // empty: the newest there is; for "tiger" alone
  std::string mirror;               // in the place of the origin; empty: the origin
};

// The files that it takes, and what is to be said of them.
struct FetchPlan {
  std::string year;  // where the files have one
  std::vector<RemoteFile> files;
  SourceFacts facts;
};

// Who publishes addresses.
struct FetchKind {
  const char* name;                // "tiger"
  const char* title;               // "TIGER/Line ADDRFEAT"
  const char* origin;              // "https://www2.census.gov"
  std::vector<std::string> hosts;  // where else it may send us
  FileBounds bounds;
  // Asks the server. Throws FetchError and FetchStopped.
  FetchPlan (*plan)(SiteClient& client, const FetchRequest& request);
};

const std::vector<FetchKind>& FetchKinds();

// nullptr for an unknown name.
const FetchKind* FindFetchKind(const std::string& name);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_FETCHPLAN_H_
