#ifndef POSTWRIGHT_PLATFORM_URLFETCH_H_
#define POSTWRIGHT_PLATFORM_URLFETCH_H_

#include <cstdint>
#include <string>
#include <vector>

#include "common/HttpFetch.h"
#include "platform/FetchReport.h"

namespace postwright {

// The limits of the engine's fetches, the time of GetFetchTimeout() among them.
HttpLimits FetchLimits();

// Returns the body of one GET of `url`, which is absolute, http or https, and in ASCII or UTF-8;
// empty on failure of any kind. Where local answers are set (LocalAnswers.h) they are asked, and
// nobody else. The connection is kept for the calling thread's next fetch and closed with the
// thread. `report`, where it is not null, is told how it ended. Any number of threads at once;
// throws nothing. `headers` are sent besides Host, "Name: value".
std::vector<std::uint8_t> FetchUrl(const std::string& url, const HttpLimits& limits,
                                   FetchReport* report = nullptr,
                                   std::vector<std::string> headers = {}) noexcept;

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_URLFETCH_H_
