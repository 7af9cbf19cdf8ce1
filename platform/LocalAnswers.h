#ifndef POSTWRIGHT_PLATFORM_LOCALANSWERS_H_
#define POSTWRIGHT_PLATFORM_LOCALANSWERS_H_

#include <postwright/Export.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace postwright {

// What a service within the process says to one GET.
struct LocalAnswer {
  std::int32_t httpStatus = 200;
  std::int32_t retryAfter = 0;  // seconds that it wants to be left alone, 0 where it does not say
  std::string body;
};

// Takes the URL, in UTF-8, and the fields of the head besides Host, "Name: value". One that throws
// has given no answer: the fetch fails as where a connection breaks off.
using LocalAnswers =
    std::function<LocalAnswer(const std::string& url, const std::vector<std::string>& headers)>;

// Has the process's fetches (MacPlatformServices and what derives from it) answered by a function
// and no connection opened: for a service that needs no port, no daemon and no network.
//
//   UseLocalService({"us-zips.tsv", "texas.base"});  // of libpostwright-local, calls this
//   SetLocalAnswers({});                             // back to the network
//
// While it is set, every host counts as reachable, and of the Deployment only what is in the
// URL and the request matters. Fetches that have begun end as they began. The function is called by
// any number of threads at once, and lives until it is replaced and they have come back. Any
// thread.
POSTWRIGHT_CORE_EXPORT void SetLocalAnswers(LocalAnswers answers);

// Returns the function in force, empty where there is none. Any thread.
POSTWRIGHT_CORE_EXPORT LocalAnswers GetLocalAnswers();

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_LOCALANSWERS_H_
