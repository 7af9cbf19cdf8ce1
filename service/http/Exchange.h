#ifndef POSTWRIGHT_SERVICE_HTTP_EXCHANGE_H_
#define POSTWRIGHT_SERVICE_HTTP_EXCHANGE_H_

#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "service/http/HttpMessage.h"

struct MHD_Connection;

namespace postwright::service {

// A request from its first line to its answer: the server reads it in its connection's thread, and
// whoever answers it does so from there or from another thread. While there is no answer the
// connection is suspended, so that its thread serves others.
class Exchange {
 public:
  // Written by the connection's thread alone; of the request nothing once it was handed out.
  HttpRequest request;
  bool hasHeaders = false;
  size_t bodyBytes = 0;  // that it may have
  bool isTooLarge = false;
  std::string objection;  // to its head, for the client; empty where there is none
  bool isHandedOut = false;
  bool hasWaited = false;  // for its answer, suspended
  const std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();

  // Returns the function that answers `exchange`.
  static Respond Responder(const std::shared_ptr<Exchange>& exchange);

  // Gives the answer, unless there is one, and wakes the connection where it waits. Any thread.
  void Answer(HttpReply reply);

  // Returns the answer, once.
  std::optional<HttpReply> TakeReply();

  // Suspends the connection until there is an answer. Returns false where there is one already.
  bool Suspend(MHD_Connection* connection);

  // Wakes the connection without an answer. From then on an answer touches it no more.
  void Abandon();

 private:
  void Wake();  // under mutex_

  std::mutex mutex_;
  bool isAnswered_ = false;
  std::optional<HttpReply> reply_;
  MHD_Connection* suspended_ = nullptr;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_EXCHANGE_H_
