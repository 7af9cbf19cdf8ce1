#ifndef POSTWRIGHT_SERVICE_HTTP_REQUESTTARGET_H_
#define POSTWRIGHT_SERVICE_HTTP_REQUESTTARGET_H_

#include <string_view>

namespace postwright::service {

// What a request line asks for, in its parts (RFC 9112, 3.2). A client that has us as its proxy
// sends the absolute form, "http://production.shippingapis.com/ShippingAPI.dll?API=Verify".
struct RequestTarget {
  std::string_view host;   // of the absolute form, with a port where it has one; empty otherwise
  std::string_view path;   // without the query
  std::string_view query;  // without the question mark

  // Cuts a target of any content. The parts live as long as it does.
  static RequestTarget Of(std::string_view target);
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_REQUESTTARGET_H_
