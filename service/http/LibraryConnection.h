#ifndef POSTWRIGHT_SERVICE_HTTP_LIBRARYCONNECTION_H_
#define POSTWRIGHT_SERVICE_HTTP_LIBRARYCONNECTION_H_

#include <string>
#include <string_view>

#include "service/http/HeadCheck.h"
#include "service/http/HttpMessage.h"

struct MHD_Connection;
struct MHD_Response;

namespace postwright::service {

// What libmicrohttpd tells of a connection and of the request on it. Called where the library has
// called; texts live as long as the request.
namespace LibraryConnection {

int SocketOf(MHD_Connection* connection);

// Returns the peer's address without its port.
std::string HostOf(MHD_Connection* connection);

// Returns the value of the first header of that name; empty where there is none.
std::string_view ValueOf(MHD_Connection* connection, const char* header);

// Returns the Content-Length; 0 where there is none that is a number.
size_t LengthOf(MHD_Connection* connection);

RequestHead HeadOf(MHD_Connection* connection, std::string_view version, std::string_view target);

// Returns a reply as the library sends it, which the caller destroys; null where there is no
// memory. `closes`: the connection ends with it.
MHD_Response* ResponseOf(const HttpReply& reply, bool closes);

}  // namespace LibraryConnection
}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_LIBRARYCONNECTION_H_
