#include "postal/fetch/FetchPlan.h"

#include <algorithm>

#include "postal/fetch/NationalPlan.h"
#include "postal/fetch/OpenAddressesPlan.h"
#include "postal/fetch/TigerPlan.h"

namespace postwright::postal {
namespace {

constexpr uint64_t kGigabyte = uint64_t{1} << 30U;

}  // namespace

// The bounds are ten times of what is published and more.
const std::vector<FetchKind>& FetchKinds() {
  static const std::vector<FetchKind> kinds = {
      {"tiger",
       "TIGER/Line ADDRFEAT",
       "https://www2.census.gov",
       {},
       {Packing::Zip, kGigabyte, 8 * kGigabyte},
       &PlanTiger},
      {"nad",
       "National Address Database",
       "https://data.transportation.gov",
       {},
       {Packing::Zip, 64 * kGigabyte, 512 * kGigabyte},
       &PlanNational},
      {"openaddresses",
       "OpenAddresses",
       "https://batch.openaddresses.io",
       {".openaddresses.io"},
       {Packing::Gzip, 32 * kGigabyte, 512 * kGigabyte},
       &PlanOpenAddresses},
  };
  return kinds;
}

const FetchKind* FindFetchKind(const std::string& name) {
  const auto found = std::ranges::find_if(
      FetchKinds(), [&name](const FetchKind& kind) { return name == kind.name; });
  return found == FetchKinds().end() ? nullptr : &*found;
}

}  // namespace postwright::postal
