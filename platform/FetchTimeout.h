#ifndef POSTWRIGHT_PLATFORM_FETCHTIMEOUT_H_
#define POSTWRIGHT_PLATFORM_FETCHTIMEOUT_H_

#include <postwright/Export.h>

#include <chrono>

namespace postwright {

// How long one fetch of MacPlatformServices may last as a whole, from the call to the last byte,
// redirects included. A service that sends a byte now and then would otherwise hold a fix for as
// long as it likes.
//
//   SetFetchTimeout(std::chrono::seconds(20));

// Returns the time in force. Until SetFetchTimeout it is that of the build: the CMake cache
// variable POSTWRIGHT_FETCH_TIMEOUT, in seconds, 120 unless set. Any thread.
POSTWRIGHT_CORE_EXPORT std::chrono::milliseconds GetFetchTimeout();

// Sets it for the process's fetches to come; less than a millisecond counts as one, more than a day
// as a day. Any thread.
POSTWRIGHT_CORE_EXPORT void SetFetchTimeout(std::chrono::milliseconds timeout);

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_FETCHTIMEOUT_H_
