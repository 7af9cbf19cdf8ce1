#ifndef POSTWRIGHT_POSTAL_PLACES_REJECTION_H_
#define POSTWRIGHT_POSTAL_PLACES_REJECTION_H_

#include <cstddef>

namespace postwright::postal {

// Why an address is turned down: the Verify interface's own reasons.
enum class Rejection {
  InvalidAddress,  // there is no delivery line, or it was cut short, or cannot be read
  InvalidZip,      // the ZIP code does not exist, or not there, and no other follows
  InvalidState,    // no state of that name, and none follows
  InvalidCity,     // no city of that name, and none follows
  NotFound,        // the delivery line is of no known form
  Multiple,        // several places fit equally well
};
constexpr size_t kRejections = static_cast<size_t>(Rejection::Multiple) + 1;

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_PLACES_REJECTION_H_
