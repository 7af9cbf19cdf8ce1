#ifndef POSTWRIGHT_POSTAL_FETCH_TIGERPLAN_H_
#define POSTWRIGHT_POSTAL_FETCH_TIGERPLAN_H_

#include "postal/fetch/FetchPlan.h"

namespace postwright::postal {

// The files of the Census Bureau: an archive a county, in a folder a year,
//
//   /geo/tiger/TIGER2024/ADDRFEAT/tl_2024_48453_addrfeat.zip
//
// of which the newest is found by asking. Counties by their names are looked up in the list that
// the server has of them.
FetchPlan PlanTiger(SiteClient& client, const FetchRequest& request);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_TIGERPLAN_H_
