#include "platform/UrlFetch.h"

#include <curl/curl.h>
#include <unistd.h>

#include <memory>
#include <new>
#include <optional>

namespace postwright {

namespace {

template <auto function>
struct Deleter {
  template <typename T>
  void operator()(T* object) const {
    function(object);
  }
};

using UrlParts = std::unique_ptr<CURLU, Deleter<curl_url_cleanup>>;
using HeaderList = std::unique_ptr<curl_slist, Deleter<curl_slist_free_all>>;

// libcurl's callbacks. A body is collected; a transfer that brings more than it may ends, also
// where libcurl reads past the body, as it does with a redirect's. libcurl itself bounds headers.
// It calls CheckLimits at least once a second, however silent the other side is.

std::size_t CollectBody(char* data, std::size_t, std::size_t size, void* context) noexcept {
  auto* body = static_cast<std::vector<std::uint8_t>*>(context);
  try {
    body->insert(body->end(), data, data + size);
  } catch (const std::bad_alloc&) {
    return 0;  // the fetch fails: the caller keeps the user's text and hears of a bad reply
  }
  return size;
}

int CheckLimits(void* context, curl_off_t, curl_off_t received, curl_off_t, curl_off_t) noexcept {
  const auto* limits = static_cast<const FetchLimits*>(context);
  const bool abandoned = limits->abandoned != nullptr && limits->abandoned->load();
  return abandoned || static_cast<std::size_t>(received) > limits->bytes ? 1 : 0;
}

// One thread's libcurl handle, which keeps the connection between fetches.
class Connection {
 public:
  Connection();
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // False in a child of the process that made it, whose socket still serves the parent.
  bool IsOurs() const { return owner_ == getpid(); }

  bool Get(CURLU* url, FetchLimits limits, std::vector<std::uint8_t>* body);

 private:
  const pid_t owner_ = getpid();
  const HeaderList headers_{curl_slist_append(nullptr, "Accept:")};  // libcurl's own, taken out
  CURL* handle_ = nullptr;
};

Connection::Connection() {
  static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  handle_ = ready ? curl_easy_init() : nullptr;
  if (handle_ == nullptr) {
    return;
  }
  curl_easy_setopt(handle_, CURLOPT_HTTPHEADER, headers_.get());
  curl_easy_setopt(handle_, CURLOPT_HTTPGET, 1L);
  curl_easy_setopt(handle_, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(handle_, CURLOPT_TCP_NODELAY, 1L);
  curl_easy_setopt(handle_, CURLOPT_PROTOCOLS_STR, "http,https");  // for redirects, too
  curl_easy_setopt(handle_, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(handle_, CURLOPT_WRITEFUNCTION, &CollectBody);
  curl_easy_setopt(handle_, CURLOPT_XFERINFOFUNCTION, &CheckLimits);
  curl_easy_setopt(handle_, CURLOPT_NOPROGRESS, 0L);
}

Connection::~Connection() {
  // A forked child must not say good-bye on a connection that the parent goes on using.
  if (handle_ != nullptr && IsOurs()) {
    curl_easy_cleanup(handle_);
  }
}

bool Connection::Get(CURLU* url, FetchLimits limits, std::vector<std::uint8_t>* body) {
  if (handle_ == nullptr) {
    return false;
  }
  curl_easy_setopt(handle_, CURLOPT_CURLU, url);
  curl_easy_setopt(handle_, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits.connect.count()));
  curl_easy_setopt(handle_, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(handle_, CURLOPT_LOW_SPEED_TIME, static_cast<long>(limits.silence.count()));
  curl_easy_setopt(handle_, CURLOPT_MAXREDIRS, limits.redirects);
  curl_easy_setopt(handle_, CURLOPT_WRITEDATA, body);
  curl_easy_setopt(handle_, CURLOPT_XFERINFODATA, &limits);
  const bool fetched = curl_easy_perform(handle_) == CURLE_OK;
  curl_easy_setopt(handle_, CURLOPT_CURLU, nullptr);
  return fetched;
}

// The calling thread's connection, a new one after a fork.
Connection& ThreadConnection() {
  thread_local std::optional<Connection> connection;
  if (!connection || !connection->IsOurs()) {
    connection.emplace();
  }
  return *connection;
}

}  // namespace

std::vector<std::uint8_t> FetchUrl(const std::string& url, const FetchLimits& limits) noexcept {
  try {
    // Parsed here and not by the transfer, which would take a URL without a scheme for http.
    const UrlParts parts(curl_url());
    if (parts == nullptr || curl_url_set(parts.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK) {
      return {};
    }
    std::vector<std::uint8_t> body;
    if (ThreadConnection().Get(parts.get(), limits, &body)) {
      return body;
    }
  } catch (const std::bad_alloc&) {
    // No memory is one more failed fetch.
  }
  return {};
}

}  // namespace postwright
