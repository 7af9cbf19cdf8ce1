#ifndef POSTWRIGHT_POSTAL_FETCH_NATIONALPLAN_H_
#define POSTWRIGHT_POSTAL_FETCH_NATIONALPLAN_H_

#include "postal/fetch/FetchPlan.h"

namespace postwright::postal {

// The text file of the National Address Database: one archive of the whole country, some 8 GB, of
// which the rows of the states that are named are taken alone.
FetchPlan PlanNational(SiteClient& client, const FetchRequest& request);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_NATIONALPLAN_H_
