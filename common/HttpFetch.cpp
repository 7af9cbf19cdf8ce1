#include "common/HttpFetch.h"

#include <curl/curl.h>
#include <unistd.h>

#include <algorithm>
#include <new>

#include "common/HttpTransfer.h"
#include "common/SmallText.h"

namespace postwright {

namespace {

constexpr std::chrono::seconds kLongestRetryAfter = std::chrono::hours(24);

template <auto function>
struct Deleter {
  template <typename T>
  void operator()(T* object) const {
    function(object);
  }
};

using UrlParts = std::unique_ptr<CURLU, Deleter<curl_url_cleanup>>;
using HeaderList = std::unique_ptr<curl_slist, Deleter<curl_slist_free_all>>;

// libcurl's callbacks. It ends the call where fewer bytes are taken than it offered, and where
// Watch, which it calls after each read and at least once a second, gives anything but 0. What it
// reads past, as the body of a redirect and the extensions of a chunk, only Trace sees.

std::size_t TakeHeadLine(char* data, std::size_t, std::size_t size, void* transfer) noexcept {
  return static_cast<HttpTransfer*>(transfer)->TakeHeadLine({data, size}) ? size : 0;
}

std::size_t TakeBody(char* data, std::size_t, std::size_t size, void* transfer) noexcept {
  return static_cast<HttpTransfer*>(transfer)->TakeBody({data, size}) ? size : 0;
}

int Watch(void* transfer, curl_off_t, curl_off_t, curl_off_t, curl_off_t) noexcept {
  return static_cast<HttpTransfer*>(transfer)->MayGoOn() ? 0 : 1;
}

int Trace(CURL*, curl_infotype type, char* data, std::size_t size, void* transfer) noexcept {
  switch (type) {
    case CURLINFO_HEADER_IN:
    case CURLINFO_DATA_IN:
      static_cast<HttpTransfer*>(transfer)->CountReceived(size);
      break;
    case CURLINFO_HEADER_OUT:
      static_cast<HttpTransfer*>(transfer)->CountSent({data, size});
      break;
    default:
      break;
  }
  return 0;
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

HttpOutcome OutcomeOf(CURLcode end, const HttpTransfer& transfer) {
  switch (end) {
    case CURLE_URL_MALFORMAT:
    case CURLE_UNSUPPORTED_PROTOCOL:
      // A redirect may lead to such a URL too.
      return transfer.Requests() > 0 ? HttpOutcome::BadAnswer : HttpOutcome::BadUrl;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
      return HttpOutcome::NotResolved;
    case CURLE_OPERATION_TIMEDOUT:
      return HttpOutcome::TimedOut;
    case CURLE_PARTIAL_FILE:
      return HttpOutcome::BrokeOff;
    case CURLE_OUT_OF_MEMORY:  // what it also says of a line beyond its own bound, of 100 KB
      return HttpOutcome::TooLong;
    default:
      return transfer.Requests() == 0 ? HttpOutcome::Refused
             : transfer.HasReceived() ? HttpOutcome::BadAnswer
                                      : HttpOutcome::NoAnswer;
  }
}

}  // namespace

// A libcurl handle, which keeps its connection.
class HttpFetch::Handle {
 public:
  Handle();
  ~Handle();
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  bool IsOurs() const { return owner_ == getpid(); }
  Reply Send(const Request& request, const HttpLimits& limits);

 private:
  void Prepare(const Request& request, const HttpLimits& limits, HttpTransfer& transfer);
  void ReadHead(Reply& reply) const;

  const pid_t owner_ = getpid();
  CURL* curl_ = nullptr;
};

HttpFetch::Handle::Handle() {
  static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  curl_ = ready ? curl_easy_init() : nullptr;
  if (curl_ == nullptr) {
    throw std::bad_alloc();
  }
}

HttpFetch::Handle::~Handle() {
  // A forked child must not say good-bye on a connection that the parent goes on using.
  if (IsOurs()) {
    curl_easy_cleanup(curl_);
  }
}

// Sets everything again: the last call's memory is gone, its connection is there.
void HttpFetch::Handle::Prepare(const Request& request, const HttpLimits& limits,
                                HttpTransfer& transfer) {
  curl_easy_reset(curl_);
  curl_easy_setopt(curl_, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(curl_, CURLOPT_TCP_NODELAY, 1L);
  curl_easy_setopt(curl_, CURLOPT_PROTOCOLS_STR, "http,https");                // for redirects, too
  curl_easy_setopt(curl_, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1});  // its bytes count
  curl_easy_setopt(curl_, CURLOPT_ACCEPT_ENCODING, request.takesPacked ? "" : nullptr);
  if (request.body) {
    curl_easy_setopt(curl_, CURLOPT_POSTFIELDSIZE_LARGE,
                     static_cast<curl_off_t>(request.body->size()));
    curl_easy_setopt(curl_, CURLOPT_POSTFIELDS, request.body->c_str());
  }
  curl_easy_setopt(curl_, CURLOPT_FOLLOWLOCATION, limits.redirects > 0 ? 1L : 0L);
  curl_easy_setopt(curl_, CURLOPT_MAXREDIRS, limits.redirects);
  curl_easy_setopt(curl_, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits.connect.count()));
  curl_easy_setopt(curl_, CURLOPT_TIMEOUT_MS, static_cast<long>(limits.whole.count()));
  curl_easy_setopt(curl_, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(curl_, CURLOPT_LOW_SPEED_TIME, static_cast<long>(limits.silence.count()));
  curl_easy_setopt(curl_, CURLOPT_HEADERFUNCTION, &TakeHeadLine);
  curl_easy_setopt(curl_, CURLOPT_HEADERDATA, &transfer);
  curl_easy_setopt(curl_, CURLOPT_WRITEFUNCTION, &TakeBody);
  curl_easy_setopt(curl_, CURLOPT_WRITEDATA, &transfer);
  curl_easy_setopt(curl_, CURLOPT_XFERINFOFUNCTION, &Watch);
  curl_easy_setopt(curl_, CURLOPT_XFERINFODATA, &transfer);
  curl_easy_setopt(curl_, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(curl_, CURLOPT_DEBUGFUNCTION, &Trace);
  curl_easy_setopt(curl_, CURLOPT_DEBUGDATA, &transfer);
  curl_easy_setopt(curl_, CURLOPT_VERBOSE, 1L);  // or Trace is never called
}

HttpFetch::Reply HttpFetch::Handle::Send(const Request& request, const HttpLimits& limits) {
  Reply reply;
  HttpTransfer transfer(limits, request.sink);
  // Parsed here and not by the transfer, which would take a URL without a scheme for http.
  const UrlParts url(curl_url());
  if (url == nullptr) {
    throw std::bad_alloc();
  }
  if (const CURLUcode bad = curl_url_set(url.get(), CURLUPART_URL, request.url.c_str(), 0)) {
    reply.detail = curl_url_strerror(bad);
    return reply;
  }
  const HeaderList headers = ListOf(request.headers);
  Prepare(request, limits, transfer);
  curl_easy_setopt(curl_, CURLOPT_CURLU, url.get());
  curl_easy_setopt(curl_, CURLOPT_HTTPHEADER, headers.get());
  CURLcode end = curl_easy_perform(curl_);
  if (end == CURLE_OK && !transfer.HasWholeHead()) {
    end = CURLE_PARTIAL_FILE;  // libcurl takes half a head for an answer without a body
  }
  reply.requests = transfer.Requests();
  if (end == CURLE_OK) {
    reply.outcome = HttpOutcome::Answered;
    reply.body = transfer.TakeBody();
    reply.head = transfer.TakeHead();
    ReadHead(reply);
  } else if (transfer.Outcome() != HttpOutcome::Answered) {
    reply.outcome = transfer.Outcome();
    reply.detail = transfer.Detail();
  } else {
    reply.outcome = OutcomeOf(end, transfer);
    reply.detail = curl_easy_strerror(end);
  }
  curl_easy_reset(curl_);  // so that nothing points at what goes away here
  transfer.Rethrow();
  return reply;
}

void HttpFetch::Handle::ReadHead(Reply& reply) const {
  long status = 0;
  curl_off_t retryAfter = 0;
  curl_easy_getinfo(curl_, CURLINFO_RESPONSE_CODE, &status);
  curl_easy_getinfo(curl_, CURLINFO_RETRY_AFTER, &retryAfter);
  reply.status = static_cast<int>(status);
  if (retryAfter > 0) {
    reply.retryAfter =
        std::min<std::chrono::seconds>(kLongestRetryAfter, std::chrono::seconds(retryAfter));
  }
}

std::string_view HttpHead::Find(std::string_view name) const {
  for (const auto& [field, value] : fields) {
    if (EqualsIgnoringCase(field, name)) {
      return value;
    }
  }
  return {};
}

HttpFetch::HttpFetch() : handle_(std::make_unique<Handle>()) {}

HttpFetch::~HttpFetch() = default;

bool HttpFetch::IsOurs() const {
  return handle_->IsOurs();
}

HttpFetch::Reply HttpFetch::Send(const Request& request, const HttpLimits& limits) {
  return handle_->Send(request, limits);
}

}  // namespace postwright
