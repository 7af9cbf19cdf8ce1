#ifndef POSTWRIGHT_TESTS_SERVICE_SOCKET_H_
#define POSTWRIGHT_TESTS_SERVICE_SOCKET_H_

#include <string>

namespace postwright::service {

// A client's end of a connection, for sending what no well-behaved client would. Nothing here waits
// longer than ten seconds.
class Socket {
 public:
  // Connects to "127.0.0.1:8470", from another loopback address if one is given.
  explicit Socket(const std::string& address, const char* from = "127.0.0.1");
  ~Socket();
  Socket(Socket&& other) noexcept;
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  bool IsOpen() const { return socket_ >= 0; }

  // Closes with a reset, as after a client's crash.
  void Reset();

  // Returns how many bytes were sent before the peer closed.
  size_t Send(const std::string& bytes);

  // Returns one HTTP response, headers and body; less if the peer closes within it.
  std::string ReceiveResponse();

  // Returns what comes until the peer closes; "(silence)" if it does not.
  std::string ReceiveAll();

 private:
  bool Receive(std::string& bytes);

  int socket_ = -1;
};

// A GET for the standard form of an address in Austin.
std::string AskForMain(const std::string& line = "12 main street");

}  // namespace postwright::service

#endif  // POSTWRIGHT_TESTS_SERVICE_SOCKET_H_
