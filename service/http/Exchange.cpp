#include "service/http/Exchange.h"

#include <microhttpd.h>

#include <utility>

namespace postwright::service {
namespace {

// Sees to it that a request whose handler forgot it does not keep its client waiting.
struct Guard {
  explicit Guard(std::shared_ptr<Exchange> owner) : exchange(std::move(owner)) {}
  ~Guard() { exchange->Answer(FailureReply("no answer")); }
  Guard(const Guard&) = delete;
  Guard& operator=(const Guard&) = delete;

  const std::shared_ptr<Exchange> exchange;
};

}  // namespace

Respond Exchange::Responder(const std::shared_ptr<Exchange>& exchange) {
  return [guard = std::make_shared<Guard>(exchange)](HttpReply reply) {
    guard->exchange->Answer(std::move(reply));
  };
}

void Exchange::Answer(HttpReply reply) {
  const std::lock_guard lock(mutex_);
  if (!std::exchange(isAnswered_, true)) {
    reply_ = std::move(reply);
    Wake();
  }
}

std::optional<HttpReply> Exchange::TakeReply() {
  const std::lock_guard lock(mutex_);
  return std::exchange(reply_, std::nullopt);
}

bool Exchange::Suspend(MHD_Connection* connection) {
  const std::lock_guard lock(mutex_);
  if (isAnswered_) {
    return false;
  }
  suspended_ = connection;
  MHD_suspend_connection(connection);
  return true;
}

void Exchange::Abandon() {
  const std::lock_guard lock(mutex_);
  isAnswered_ = true;
  Wake();
}

void Exchange::Wake() {
  if (suspended_ != nullptr) {
    MHD_resume_connection(std::exchange(suspended_, nullptr));
  }
}

}  // namespace postwright::service
