#ifndef POSTWRIGHT_SERVICE_URLREQUEST_H_
#define POSTWRIGHT_SERVICE_URLREQUEST_H_

#include <string>
#include <vector>

#include "service/http/HttpMessage.h"

namespace postwright::service {

// Returns the request that a client within the process makes of an absolute URL, whose host does
// not matter, with these fields in its head: "Postwright-Source: 1".
HttpRequest RequestOf(const std::string& url, const std::vector<std::string>& headers);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_URLREQUEST_H_
