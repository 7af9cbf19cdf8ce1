#ifndef POSTWRIGHT_POSTAL_FETCH_FETCHERROR_H_
#define POSTWRIGHT_POSTAL_FETCH_FETCHERROR_H_

#include <stdexcept>

namespace postwright::postal {

// What cannot be fetched, or not now; what() says why, and what to do.
class FetchError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The user has stopped it; what was fetched is kept.
class FetchStopped : public std::runtime_error {
 public:
  FetchStopped() : std::runtime_error("stopped; the same command goes on") {}
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_FETCHERROR_H_
