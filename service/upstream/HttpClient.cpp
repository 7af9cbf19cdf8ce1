#include "service/upstream/HttpClient.h"

#include <curl/curl.h>

#include <new>
#include <stdexcept>

namespace postwright::service {
namespace {

constexpr int kTooManyRequests = 429;
constexpr std::chrono::seconds kLongestRetryAfter = std::chrono::hours(24);

struct FreeList {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using HeaderList = std::unique_ptr<curl_slist, FreeList>;

// What a transfer's callbacks write to and look at.
struct Transfer {
  std::string body;
  size_t limit;
  const std::atomic<bool>& isStopped;
};

// libcurl ends the transfer when fewer bytes are taken than it offered.
size_t TakeBody(char* data, size_t, size_t size, void* context) noexcept {
  auto* const transfer = static_cast<Transfer*>(context);
  if (size > transfer->limit - transfer->body.size()) {
    return 0;
  }
  try {
    transfer->body.append(data, size);
  } catch (const std::bad_alloc&) {
    return 0;  // one more answer that could not be read
  }
  return size;
}

// Called at least once a second.
int Watch(void* context, curl_off_t, curl_off_t, curl_off_t, curl_off_t) noexcept {
  return static_cast<Transfer*>(context)->isStopped ? 1 : 0;
}

HeaderList ListOf(const std::vector<std::string>& headers) {
  HeaderList list;
  for (const std::string& header : headers) {
    curl_slist* const longer = curl_slist_append(list.get(), header.c_str());
    if (longer == nullptr) {
      throw std::bad_alloc();
    }
    [[maybe_unused]] curl_slist* const kept = list.release();
    list.reset(longer);
  }
  return list;
}

}  // namespace

// A libcurl handle, which keeps its connection, for one call at a time.
class HttpClient::Handle {
 public:
  explicit Handle(const Limits& limits) : curl_(curl_easy_init()) {
    if (curl_ == nullptr) {
      throw std::bad_alloc();
    }
    curl_easy_setopt(curl_, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl_, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(curl_, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(curl_, CURLOPT_USERAGENT, "postwright-verifyd");
    curl_easy_setopt(curl_, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits.connect.count()));
    curl_easy_setopt(curl_, CURLOPT_TIMEOUT_MS, static_cast<long>(limits.whole.count()));
    curl_easy_setopt(curl_, CURLOPT_WRITEFUNCTION, &TakeBody);
    curl_easy_setopt(curl_, CURLOPT_XFERINFOFUNCTION, &Watch);
    curl_easy_setopt(curl_, CURLOPT_NOPROGRESS, 0L);
  }
  ~Handle() { curl_easy_cleanup(curl_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  std::variant<HttpAnswer, Failure> Send(const HttpCall& call, Transfer& transfer) {
    const HeaderList headers = ListOf(call.headers);
    curl_easy_setopt(curl_, CURLOPT_URL, call.url.c_str());
    curl_easy_setopt(curl_, CURLOPT_HTTPHEADER, headers.get());
    if (call.body.empty()) {
      curl_easy_setopt(curl_, CURLOPT_HTTPGET, 1L);
    } else {
      curl_easy_setopt(curl_, CURLOPT_POSTFIELDSIZE, static_cast<long>(call.body.size()));
      curl_easy_setopt(curl_, CURLOPT_POSTFIELDS, call.body.c_str());
    }
    curl_easy_setopt(curl_, CURLOPT_WRITEDATA, &transfer);
    curl_easy_setopt(curl_, CURLOPT_XFERINFODATA, &transfer);
    const CURLcode end = curl_easy_perform(curl_);
    // The call's own memory goes; the connection stays.
    curl_easy_setopt(curl_, CURLOPT_HTTPHEADER, nullptr);
    curl_easy_setopt(curl_, CURLOPT_POSTFIELDS, nullptr);
    if (end != CURLE_OK) {
      return FailureOf(end);
    }
    long status = 0;
    curl_off_t retryAfter = 0;
    curl_easy_getinfo(curl_, CURLINFO_RESPONSE_CODE, &status);
    curl_easy_getinfo(curl_, CURLINFO_RETRY_AFTER, &retryAfter);
    HttpAnswer answer{static_cast<int>(status), std::move(transfer.body), std::nullopt};
    if (retryAfter > 0) {
      answer.retryAfter =
          std::min<std::chrono::seconds>(kLongestRetryAfter, std::chrono::seconds(retryAfter));
    }
    return answer;
  }

 private:
  Failure FailureOf(CURLcode end) const {
    curl_off_t sendingSince = 0;
    curl_easy_getinfo(curl_, CURLINFO_PRETRANSFER_TIME_T, &sendingSince);
    const bool isSent = sendingSince > 0;
    return {!isSent                           ? FaultKind::Unreachable
            : end == CURLE_OPERATION_TIMEDOUT ? FaultKind::TimedOut
                                              : FaultKind::BadReply,
            isSent, curl_easy_strerror(end)};
  }

  CURL* const curl_;
};

HttpClient::HttpClient(const Limits& limits) : limits_(limits) {
  static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
  if (ready != CURLE_OK) {
    throw std::runtime_error(std::string("cannot use libcurl: ") + curl_easy_strerror(ready));
  }
}

HttpClient::~HttpClient() = default;

std::variant<HttpAnswer, HttpClient::Failure> HttpClient::Send(const HttpCall& call) {
  Transfer transfer{"", limits_.bytes, isStopped_};
  std::unique_ptr<Handle> handle = TakeHandle();
  auto answer = handle->Send(call, transfer);
  PutBack(std::move(handle));
  return answer;
}

std::unique_ptr<HttpClient::Handle> HttpClient::TakeHandle() {
  {
    const std::lock_guard lock(mutex_);
    if (!idle_.empty()) {
      std::unique_ptr<Handle> handle = std::move(idle_.back());
      idle_.pop_back();
      return handle;
    }
  }
  return std::make_unique<Handle>(limits_);
}

void HttpClient::PutBack(std::unique_ptr<Handle> handle) {
  const std::lock_guard lock(mutex_);
  idle_.push_back(std::move(handle));
}

UpstreamFault FaultOfStatus(const HttpAnswer& answer) {
  const int status = answer.status;
  const FaultKind kind = status == 401                ? FaultKind::Unauthorised
                         : status == 403              ? FaultKind::Forbidden
                         : status == kTooManyRequests ? FaultKind::Quota
                         : status >= 500              ? FaultKind::ServerError
                         : status >= 400              ? FaultKind::Refused
                                                      : FaultKind::BadReply;
  return {kind, answer.retryAfter, "HTTP " + std::to_string(status)};
}

std::string EscapeQuery(std::string_view text) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  constexpr std::string_view kPlain = "-._~";
  std::string escaped;
  for (const unsigned char c : text) {
    const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                         (c >= 'a' && c <= 'z') || kPlain.find(c) != std::string_view::npos;
    if (isPlain) {
      escaped += static_cast<char>(c);
    } else {
      escaped += '%';
      escaped += kHex[c >> 4];
      escaped += kHex[c & 15];
    }
  }
  return escaped;
}

}  // namespace postwright::service
