#ifndef POSTWRIGHT_CLIENT_REVIEWEDFIX_H_
#define POSTWRIGHT_CLIENT_REVIEWEDFIX_H_

#include <postwright/BatchResultRecord.h>
#include <postwright/ClientExport.h>

namespace postwright {

// Asks about one label with care, for PostwrightController::setAsk():
//
//   window.setAsk(fixReviewed);
//
// Asks through `client` about the lines that are the address alone (AddressLines) and leaves the
// others as they were typed. A label that cannot be asked about is answered with its own text. A
// correction that CorrectionReview doubts is not made: it comes as two candidates, the text as
// corrected and the text as typed, with the doubt's reason, so that a person picks one.
//
// Blocks as PostwrightClient::fixAddress does. The worker's thread, as every AskFunction.
POSTWRIGHT_CLIENT_EXPORT AddressOutcome fixReviewed(PostwrightClient& client,
                                                    const QString& address);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_REVIEWEDFIX_H_
