#ifndef POSTWRIGHT_SERVICE_HTTP_LISTENADDRESS_H_
#define POSTWRIGHT_SERVICE_HTTP_LISTENADDRESS_H_

#include <stdexcept>
#include <string>
#include <string_view>

struct sockaddr;

namespace postwright::service {

// An address that cannot be listened on; what() says which and why.
class ListenError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Where a server listens: ADDRESS:PORT, the address a name or a number, IPv6 in brackets.
//
//   const int socket = ListenAddress::Parse("127.0.0.1:0").Open();
//   ListenAddress::OfSocket(socket);   // "127.0.0.1:41539"
class ListenAddress {
 public:
  // Connections that may wait to be accepted; the kernel cuts it to net.core.somaxconn.
  static constexpr int kBacklog = 1024;

  // Throws ListenError for a text of another form.
  static ListenAddress Parse(std::string_view text);

  // Returns the address alone, IPv6 without its brackets.
  const std::string& Host() const { return host_; }

  // Says whether this machine alone can connect. A name other than localhost counts as not.
  bool IsLoopback() const;

  // Opens a listening socket, which is the caller's to close; port 0 takes a free one. Throws
  // ListenError where the address is none of this machine's or the port is taken.
  int Open() const;

  // Returns ADDRESS:PORT of a socket's own end.
  static std::string OfSocket(int socket);

  // Returns a numeric address as HostOf would; empty for any other text.
  static std::string ReadHost(const std::string& text);

  // Returns an address without its port, "127.0.0.1", also for one of IPv4 in the form of IPv6; "?"
  // for one that cannot be shown.
  static std::string HostOf(const sockaddr* address);

 private:
  std::string host_;
  std::string port_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_LISTENADDRESS_H_
