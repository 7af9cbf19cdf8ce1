#ifndef POSTWRIGHT_COMMON_HTTPTRANSFER_H_
#define POSTWRIGHT_COMMON_HTTPTRANSFER_H_

#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "common/HttpFetch.h"

namespace postwright {

// What comes in during one call, held against its limits. A member that takes bytes returns whether
// the call may go on; once it may not, Outcome() and Detail() say why.
class HttpTransfer {
 public:
  // Borrows both. Without a sink the body is kept.
  HttpTransfer(const HttpLimits& limits, const HttpSink& sink) : limits_(limits), sink_(sink) {}

  // Every byte as it comes from the connection, before anything is decoded.
  void CountReceived(std::size_t bytes) { received_ += bytes; }

  // The head of a request went out, or a piece of one.
  void CountSent(std::string_view bytes);

  // One line of a head or of the trailers.
  bool TakeHeadLine(std::string_view line);

  // A piece of the body, decoded.
  bool TakeBody(std::string_view bytes);

  // Asked again and again while the call lasts.
  bool MayGoOn();

  HttpOutcome Outcome() const { return outcome_; }
  const char* Detail() const { return detail_; }
  int Requests() const { return requests_; }
  bool HasWholeHead() const { return hasWholeHead_; }
  bool HasReceived() const { return received_ > 0; }
  std::string TakeBody() { return std::move(body_); }
  HttpHead TakeHead() { return std::move(head_); }

  // Throws what the sink has thrown; through libcurl nothing may be thrown.
  void Rethrow() const {
    if (thrown_) {
      std::rethrow_exception(thrown_);
    }
  }

 private:
  bool End(HttpOutcome outcome, const char* detail);
  void BeginHead(std::string_view statusLine);
  bool CheckField(std::string_view line);

  bool HandOver(std::string_view bytes);

  const HttpLimits& limits_;
  const HttpSink& sink_;
  std::size_t handedOver_ = 0;  // to the sink, decoded
  HttpHead head_;
  std::exception_ptr thrown_;
  std::size_t received_ = 0;
  std::size_t headBytes_ = 0;
  bool isInterim_ = false;  // this head is followed by another of the same answer
  bool hasWholeHead_ = false;
  int contentCodings_ = 0;
  std::optional<std::uint64_t> contentLength_;
  std::string body_;
  int requests_ = 0;
  HttpOutcome outcome_ = HttpOutcome::Answered;
  const char* detail_ = "";
};

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_HTTPTRANSFER_H_
