#ifndef POSTWRIGHT_POSTAL_FETCH_OPENADDRESSESPLAN_H_
#define POSTWRIGHT_POSTAL_FETCH_OPENADDRESSESPLAN_H_

#include "postal/fetch/FetchPlan.h"

namespace postwright::postal {

// The files of OpenAddresses: a gzipped one for each source, as the list of its service (/api/data)
// has them. To fetch them it wants the token of an account.
FetchPlan PlanOpenAddresses(SiteClient& client, const FetchRequest& request);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_OPENADDRESSESPLAN_H_
