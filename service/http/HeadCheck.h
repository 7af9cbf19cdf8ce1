#ifndef POSTWRIGHT_SERVICE_HTTP_HEADCHECK_H_
#define POSTWRIGHT_SERVICE_HTTP_HEADCHECK_H_

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace postwright::service {

// The head of a request as it was sent: its fields in their order, names and values.
struct RequestHead {
  std::string_view version;  // "HTTP/1.1"
  std::string_view target;
  std::vector<std::pair<std::string_view, std::string_view>> fields;
};

// Says what is wrong with a head that two readers could understand in two ways, about where its
// request ends or whom it is for; empty where nothing is. Such a request is refused before anything
// of it is acted on, and its connection closed: what follows may be a request that somebody hid
// (RFC 9112, sections 3.2, 5.1, 6.1 and 6.3; RFC 9110, sections 5.5, 5.6.2 and 8.6).
std::string_view ObjectionTo(const RequestHead& head);

// Says whether a proxy asks for a client of its own: by RFC 7239, RFC 9110 section 7.6.3, or one of
// the field names that are usual without a standard.
bool IsForwarded(const RequestHead& head);

// Returns the fields whose names begin with "Postwright-", in any case.
std::vector<std::pair<std::string, std::string>> ExtensionsOf(const RequestHead& head);

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_HEADCHECK_H_
