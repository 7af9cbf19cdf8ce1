#include "common/HttpTransfer.h"

#include <algorithm>
#include <charconv>
#include <new>

#include "common/SmallText.h"

namespace postwright {

bool HttpTransfer::End(HttpOutcome outcome, const char* detail) {
  if (outcome_ == HttpOutcome::Answered) {  // the first reason is the one
    outcome_ = outcome;
    detail_ = detail;
  }
  return false;
}

void HttpTransfer::CountSent(std::string_view bytes) {
  requests_ += bytes.starts_with("GET ") || bytes.starts_with("POST ") ? 1 : 0;
}

// Where an interim answer (RFC 9110, 15.2) comes first, or a redirect is followed, one call has
// several heads. What an earlier answer declared does not hold for the next.
void HttpTransfer::BeginHead(std::string_view statusLine) {
  const std::size_t blank = statusLine.find(' ');
  const bool wasInterim = isInterim_;
  isInterim_ = blank != std::string_view::npos && statusLine.substr(blank + 1).starts_with('1');
  contentCodings_ = 0;
  contentLength_.reset();
  hasWholeHead_ = false;
  head_ = {};
  std::from_chars(statusLine.data() + std::min(blank, statusLine.size() - 1) + 1,
                  statusLine.data() + statusLine.size(), head_.status);
  if (!wasInterim) {
    headBytes_ = 0;
  }
}

// A coding that grows without end is refused before a byte of it is unpacked, and so are codings
// inside one another, whose ends are products.
bool HttpTransfer::CheckField(std::string_view line) {
  const std::size_t colon = std::min(line.find(':'), line.size());
  const std::string_view name = Trim(line.substr(0, colon));
  const std::string_view value = Trim(line.substr(std::min(colon + 1, line.size())));
  if (colon < line.size() && !hasWholeHead_) {
    head_.fields.emplace_back(name, value);
  }
  if (EqualsIgnoringCase(name, "transfer-encoding") && !EqualsIgnoringCase(value, "chunked")) {
    return End(HttpOutcome::BadAnswer, "a transfer coding other than chunked");
  }
  if (EqualsIgnoringCase(name, "content-length")) {
    // Of two libcurl would take the last one, and of a list the first (RFC 9112, 6.3: errors).
    std::uint64_t length = 0;
    const auto [end, fault] = std::from_chars(value.begin(), value.end(), length);
    if (fault != std::errc() || end != value.end() || contentLength_.value_or(length) != length) {
      return End(HttpOutcome::BadAnswer, "an invalid length, or two of them");
    }
    contentLength_ = length;
  }
  if (EqualsIgnoringCase(name, "content-encoding")) {
    contentCodings_ += 1 + static_cast<int>(std::count(value.begin(), value.end(), ','));
    if (contentCodings_ > 1) {
      return End(HttpOutcome::BadAnswer, "content codings inside one another");
    }
  }
  return true;
}

bool HttpTransfer::TakeHeadLine(std::string_view line) {
  if (line.starts_with("HTTP/")) {
    BeginHead(line);
  }
  hasWholeHead_ = hasWholeHead_ || Trim(line).empty();
  headBytes_ += line.size();
  if (headBytes_ > limits_.headBytes) {
    return End(HttpOutcome::TooLong, "the head is too long");
  }
  return CheckField(line);
}

bool HttpTransfer::HandOver(std::string_view bytes) {
  try {
    return sink_(head_, bytes) || End(HttpOutcome::Cancelled, "no more is wanted");
  } catch (...) {
    thrown_ = std::current_exception();
    return false;
  }
}

bool HttpTransfer::TakeBody(std::string_view bytes) {
  if (bytes.size() > limits_.bytes - handedOver_ - body_.size()) {
    return End(HttpOutcome::TooLong, "the answer is too long");
  }
  if (sink_) {
    handedOver_ += bytes.size();
    return HandOver(bytes);
  }
  try {
    body_.append(bytes);
  } catch (const std::bad_alloc&) {
    return End(HttpOutcome::TooLong, "there is no memory for the answer");
  }
  return true;
}

bool HttpTransfer::MayGoOn() {
  if (limits_.cancelled != nullptr && limits_.cancelled->load()) {
    return End(HttpOutcome::Cancelled, "cancelled");
  }
  if (received_ > limits_.bytes) {
    return End(HttpOutcome::TooLong, "the answer is too long");
  }
  return true;
}

}  // namespace postwright
