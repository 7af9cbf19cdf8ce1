#ifndef POSTWRIGHT_SERVICE_HTTP_HTTPMESSAGE_H_
#define POSTWRIGHT_SERVICE_HTTP_HTTPMESSAGE_H_

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace postwright::service {

struct HttpRequest {
  std::string method;  // GET, HEAD or POST
  std::string path;    // as it was sent, without the query and without a scheme and host
  std::string query;   // as it was sent, without the question mark
  std::string body;
  std::string host = {};     // of the target or the head, with a port where it has one
  std::string client = {};   // the peer's address without its port, "127.0.0.1"
  bool isForwarded = false;  // a proxy says that it asks for somebody else
  // The fields of the head that are this program's own, "Postwright-…", as they were sent.
  std::vector<std::pair<std::string, std::string>> extensions = {};
  std::string origin = {};  // of the page that sent it, RFC 6454: "http://127.0.0.1:8470"
};

struct HttpReply {
  int status = 200;
  std::string contentType;
  std::string body;
  std::string note;  // what the log's line says of it
  // What the header Retry-After says, RFC 9110, section 10.2.3; 0 for none.
  std::chrono::seconds retryAfter = std::chrono::seconds(0);
  std::vector<std::pair<std::string, std::string>> fields = {};  // more of its head
};

// A reply of plain text, for people.
inline HttpReply TextReply(int status, std::string text, std::string note = "") {
  return {status, "text/plain; charset=UTF-8", std::move(text), std::move(note)};
}

// The reply where the service itself failed. The client keeps its text, and sees that the address
// was not found wrong.
inline HttpReply FailureReply(std::string_view failure) {
  return TextReply(500, "The service could not answer. Try again.\n",
                   "failure=\"" + std::string(failure) + '"');
}

// Gives the answer to one request, from any thread and at any time, also when the server is no
// more. Of several answers the first counts. When the last copy is gone and none was given, the
// client is told that the service failed.
using Respond = std::function<void(HttpReply)>;

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_HTTPMESSAGE_H_
