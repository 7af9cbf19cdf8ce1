#ifndef POSTWRIGHT_POSTAL_FETCH_FETCHRECORD_H_
#define POSTWRIGHT_POSTAL_FETCH_FETCHRECORD_H_

#include <filesystem>
#include <optional>

#include "postal/fetch/FetchPlan.h"

namespace postwright::postal {

// What was asked for and what it takes, as it is kept: beside a base for `update` (BASE.fetched),
// and with files that are being fetched, so that the same command goes on with the same files.
struct FetchRecord {
  FetchRequest request;
  FetchPlan plan;

  // Says whether another plan of the same request has a newer year or other files.
  bool IsOutdatedBy(const FetchPlan& now) const;

  // Text: a line a fact, "NAME<tab>VALUE[<tab>VALUE...]". Throws FetchError.
  void Write(const std::filesystem::path& file) const;

  // nullopt where there is no such file, or one that is none of these.
  static std::optional<FetchRecord> Read(const std::filesystem::path& file);
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_FETCHRECORD_H_
